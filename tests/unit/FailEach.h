// A call, with every allocation that it makes failing in turn.

#ifndef TAVREL_TESTS_UNIT_FAILEACH_H
#define TAVREL_TESTS_UNIT_FAILEACH_H

#include <gtest/gtest.h>

#include <string>

#include "tests/support/Allocations.h"
#include "tests/support/Thrown.h"

namespace tavrel {

/// Makes the call on subjects made alike, with every allocation failing in turn: once alone,
/// once with all after it. Each failure must end the call in std::bad_alloc and leave the
/// subject as `isAllowed` says of it and of its state before; the call must then end as if
/// there had been no failure, be that in an exception, with the same state. Without a
/// failure, the last round, it ends so though no memory is left.
///
/// `make` gives a pointer to a new subject, `stateOf` its state as text.
template <typename Make, typename StateOf, typename Call, typename IsAllowed>
void failEach(const Make& make, const StateOf& stateOf, const Call& call,
              const IsAllowed& isAllowed) {
  const auto untroubled = make();
  const std::string end = typeThrown([&] { call(*untroubled); });
  const std::string stateAtEnd = stateOf(*untroubled);
  using Which = FailingAllocations::Which;
  for (const Which which : {Which::one, Which::allFromThere}) {
    bool isReached = true;
    for (long n = 0; isReached; ++n) {
      ASSERT_LT(n, 10000);
      SCOPED_TRACE("allocation " + std::to_string(n) +
                   (which == Which::one ? "" : " and all after"));
      const auto troubled = make();
      const std::string before = stateOf(*troubled);
      std::string thrown;
      {
        const FailingAllocations failing(n, which);
        thrown = typeThrown([&] { call(*troubled); });
        isReached = failing.wereReached();
      }
      if (isReached) {
        EXPECT_EQ(thrown, "bad_alloc");
        EXPECT_TRUE(isAllowed(*troubled, before)) << stateOf(*troubled);
        thrown = typeThrown([&] { call(*troubled); });
      }
      EXPECT_EQ(thrown, end);
      EXPECT_EQ(stateOf(*troubled), stateAtEnd);
    }
  }
}

/// Makes the construction, of an object that is destroyed at once, with every allocation
/// failing in turn. Each failure must leave as std::bad_alloc, with nothing still allocated.
/// Returns their number.
template <typename Construct>
long failEachOfConstruction(const Construct& construct) {
  construct();  // whatever is made once a program
  for (long n = 0;; ++n) {
    const std::size_t before = bytesInUse();
    std::string thrown;
    bool isReached = false;
    {
      const FailingAllocations failing(n);
      thrown = typeThrown(construct);
      isReached = failing.wereReached();
    }
    EXPECT_EQ(bytesInUse(), before) << "allocation " << n;
    EXPECT_EQ(thrown, isReached ? "bad_alloc" : "") << "allocation " << n;
    if (!isReached) return n;
  }
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_FAILEACH_H
