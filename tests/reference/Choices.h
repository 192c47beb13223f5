// Where a generator's choices come from: a seed, or the bytes of a fuzzer.

#ifndef TAVREL_TESTS_REFERENCE_CHOICES_H
#define TAVREL_TESTS_REFERENCE_CHOICES_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>

namespace tavrel::reference {

class Choices {
 public:
  explicit Choices(std::uint64_t seed) : state_(mixed(seed + 1)) {}
  /// REQUIRES: the bytes outlive this object.
  Choices(const std::uint8_t* bytes, std::size_t size)
      : bytes_(bytes), end_(bytes + size), isSeeded_(false) {}

  /// A number from 0 to `end` - 1. REQUIRES: 0 < end <= 65536.
  int below(int end) { return static_cast<int>(next(end > 256) % static_cast<std::uint32_t>(end)); }
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

  /// Whether bytes have run out; a seed never does.
  bool isOver() const { return !isSeeded_ && bytes_ == end_; }

 private:
  std::uint32_t next(bool isWide) {
    if (isSeeded_) return fromSeed();
    std::uint32_t value = fromByte();
    if (isWide) value = value << 8 | fromByte();
    return value;
  }

  std::uint32_t fromByte() { return bytes_ == end_ ? 0 : *bytes_++; }

  // Splitmix64.
  std::uint32_t fromSeed() {
    return static_cast<std::uint32_t>(mixed(state_ += 0x9e3779b97f4a7c15) >> 33);
  }

  static std::uint64_t mixed(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
    value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
    return value ^ (value >> 31);
  }

  std::uint64_t state_ = 0;
  const std::uint8_t* bytes_ = nullptr;
  const std::uint8_t* end_ = nullptr;
  bool isSeeded_ = true;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_CHOICES_H
