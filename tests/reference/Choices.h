// Where a generator's choices come from: a seed.

#ifndef TAVREL_TESTS_REFERENCE_CHOICES_H
#define TAVREL_TESTS_REFERENCE_CHOICES_H

#include <cstdint>
#include <initializer_list>
#include <iterator>

namespace tavrel::reference {

class Choices {
 public:
  explicit Choices(std::uint64_t seed) : state_(mixed(seed + 1)) {}

  /// A number from 0 to `end` - 1. REQUIRES: 0 < end <= 65536.
  int below(int end) { return static_cast<int>(next() % static_cast<std::uint32_t>(end)); }
  int between(int low, int high) { return low + below(high - low + 1); }
  bool chance(int percent) { return below(100) < percent; }
  /// Once in `times`.
  bool once(int times) { return below(times) == times - 1; }

  template <typename List>
  const auto& from(const List& list) {
    return *(std::begin(list) + below(static_cast<int>(std::size(list))));
  }
  template <typename Value>
  Value from(std::initializer_list<Value> list) {
    return *(list.begin() + below(static_cast<int>(list.size())));
  }

 private:
  // Splitmix64.
  std::uint32_t next() {
    return static_cast<std::uint32_t>(mixed(state_ += 0x9e3779b97f4a7c15) >> 33);
  }

  static std::uint64_t mixed(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
    value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
    return value ^ (value >> 31);
  }

  std::uint64_t state_;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_CHOICES_H
