// A fuzzer's bytes, one by one.

#ifndef TAVREL_TESTS_FUZZ_BYTES_H
#define TAVREL_TESTS_FUZZ_BYTES_H

#include <cstddef>
#include <cstdint>

namespace tavrel::fuzz {

/// Taken from the first to the last; zeros follow them.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}
  bool areAtEnd() const { return next_ == end_; }
  std::uint8_t take() { return areAtEnd() ? std::uint8_t{0} : *next_++; }

 private:
  const std::uint8_t* next_;
  const std::uint8_t* end_;
};

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_BYTES_H
