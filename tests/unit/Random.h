// Random numbers, the same in every run.

#ifndef TAVREL_TESTS_UNIT_RANDOM_H
#define TAVREL_TESTS_UNIT_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace tavrel {

class Random {
 public:
  explicit Random(std::uint32_t seed) : generator_(seed) {}
  int below(int end) { return static_cast<int>(generator_() % static_cast<std::uint32_t>(end)); }
  int between(int low, int high) { return low + below(high - low + 1); }
  bool chance(int percent) { return below(100) < percent; }
  template <typename List>
  const auto& from(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }

 private:
  std::mt19937 generator_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_RANDOM_H
