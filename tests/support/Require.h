// What programs that count and measure hold their own work to: figures of work that wasn't
// done are worth nothing.

#ifndef TAVREL_TESTS_SUPPORT_REQUIRE_H
#define TAVREL_TESTS_SUPPORT_REQUIRE_H

#include <stdexcept>
#include <string>

namespace tavrel {

/// Throws std::logic_error where what was counted hasn't done what it should have.
inline void require(bool isAsExpected, const std::string& what) {
  if (!isAsExpected) throw std::logic_error("not as expected: " + what);
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_REQUIRE_H
