// Counts what a program allocates, and makes allocations fail. A program that links
// tavrel_test_allocations has the operators new and delete of Allocations.cpp.

#ifndef TAVREL_TESTS_SUPPORT_ALLOCATIONS_H
#define TAVREL_TESTS_SUPPORT_ALLOCATIONS_H

#include <cstddef>

namespace tavrel {

/// What a call allocates.
struct Cost {
  std::size_t count, bytes, largest;
};

/// What was allocated since the last call.
Cost takeCost();

template <typename Call>
Cost costOf(Call&& call) {
  takeCost();
  call();
  return takeCost();
}

/// The bytes that are allocated and not freed.
std::size_t bytesInUse();

/// The most of them that there were at any time since the last call.
std::size_t takeMostInUse();

/// Makes allocations fail with std::bad_alloc until destroyed. One at a time.
class FailingAllocations {
 public:
  enum class Which { one, allFromThere };

  /// From now on the n-th allocation fails, counting from 0, alone or with all that follow.
  explicit FailingAllocations(long n, Which which = Which::one);
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;

  /// Whether an allocation was made to fail.
  bool wereReached() const;

  /// Asked by what allocates, once for each allocation: whether that is to fail.
  static bool nextMustFail() noexcept;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_ALLOCATIONS_H
