// Scanning the bytes of a flowchart file in place: text lines and number lines.

#ifndef TAVREL_ENGINE_SCANNER_H
#define TAVREL_ENGINE_SCANNER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::engine {

/// Text lines that follow one another in a file, left where they stand.
struct TextLines {
  std::string_view bytes;  ///< the lines with their line feeds
  std::int32_t count = 0;  ///< number of lines
  std::size_t widest = 0;  ///< length of the longest line, in bytes
};

/// The lines as strings without their line feeds.
std::vector<std::string> copyOf(const TextLines& lines);

/// Reads a file's bytes from first to last. Each read moves on past what it has
/// read; after one that fails the position has no meaning and reading is over.
/// Nothing is copied or allocated.
class Scanner {
 public:
  /// REQUIRES: a readable byte that is no digit stands behind `bytes`, which
  /// saves every other test for the end.
  explicit Scanner(std::string_view bytes) noexcept
      : next_(bytes.data()), end_(bytes.data() + bytes.size()) {}

  /// The number of bytes not yet read.
  std::size_t remaining() const noexcept { return static_cast<std::size_t>(end_ - next_); }

  /// Reads a text line, up to its line feed or the end. Fails when no byte is left.
  bool readLine(std::string_view& line) noexcept;

  /// Reads `count` text lines, none if it is negative.
  bool readLines(std::int32_t count, TextLines& lines) noexcept;

  /// Reads a number line: as many decimal integers as `numbers` has places, with
  /// whitespace between, line ends included. What follows the last one on its
  /// line is passed over. Fails at anything but an integer of 32 bits.
  template <std::size_t count>
  bool readNumbers(std::array<std::int32_t, count>& numbers) noexcept {
    return readNumbers(numbers.data(), count);
  }

  /// Reads a number line with one integer.
  bool readNumber(std::int32_t& number) noexcept { return readNumbers(&number, 1); }

 private:
  bool readNumbers(std::int32_t* numbers, std::size_t count) noexcept;
  void passRestOfLine() noexcept;

  const char* next_;
  const char* end_;
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_SCANNER_H
