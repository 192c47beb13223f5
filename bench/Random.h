// Numbers drawn from a fixed seed: the same on every machine and with every library.

#ifndef TAVREL_BENCH_RANDOM_H
#define TAVREL_BENCH_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <random>

namespace tavrel::bench {

class Random {
 public:
  explicit Random(std::uint64_t seed) : numbers_(seed) {}

  /// A number from 0 up to, but not including, `end`. REQUIRES: end > 0.
  std::size_t below(std::size_t end) { return static_cast<std::size_t>(numbers_() % end); }

  /// A number from `first` to `last`, both included.
  std::int32_t between(std::int32_t first, std::int32_t last) {
    return first + static_cast<std::int32_t>(below(static_cast<std::size_t>(last - first + 1)));
  }

  /// True once in `many` times on average.
  bool onceIn(std::size_t many) { return below(many) == 0; }

 private:
  std::mt19937_64 numbers_;  // its sequence is prescribed, that of distributions is not
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_RANDOM_H
