// Random numbers and random files, the same in every run.

#ifndef TAVREL_TESTS_UNIT_RANDOM_H
#define TAVREL_TESTS_UNIT_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>

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

/// The file with up to four of its bytes replaced, removed, or put in.
inline std::string mutated(Random& random, std::string file) {
  static const std::string bytes = "0123456789 -\n\tyx+\r";
  for (int i = random.between(1, 4); i > 0 && !file.empty(); --i) {
    const auto at = static_cast<std::size_t>(random.below(static_cast<int>(file.size())));
    const char byte = random.chance(5) ? '\xff' : random.from(bytes);
    switch (random.below(3)) {
      case 0:
        file[at] = byte;
        break;
      case 1:
        file.insert(at, 1, byte);
        break;
      default:
        file.erase(at, 1);
        break;
    }
  }
  return file;
}

/// The file up to any of its bytes.
inline std::string truncated(Random& random, const std::string& file) {
  return file.substr(0, static_cast<std::size_t>(random.below(static_cast<int>(file.size()))));
}

/// Fewer than 200 bytes of any value.
inline std::string randomBytes(Random& random) {
  std::string bytes(static_cast<std::size_t>(random.below(200)), '\0');
  for (char& byte : bytes) byte = static_cast<char>(random.below(256));
  return bytes;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_RANDOM_H
