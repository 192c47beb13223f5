// Scanning the bytes of a flowchart file in place: text lines and number lines.

#ifndef TAVREL_ENGINE_SCANNER_H
#define TAVREL_ENGINE_SCANNER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::engine {

/// The size of a text.
struct TextSize {
  std::size_t lines;
  std::size_t widest;  ///< length of the longest line, in bytes
};

/// Reads a file's bytes from first to last. Each read moves on past what it has
/// read; after one that fails the position has no meaning and reading is over.
/// Nothing but strings is copied or allocated. Copies go their own ways.
class Scanner {
 public:
  /// REQUIRES: a readable byte that is no digit stands behind `bytes`, which
  /// saves every other test for the end.
  explicit Scanner(std::string_view bytes) noexcept
      : next_(bytes.data()), end_(bytes.data() + bytes.size()) {}

  /// The next byte to be read.
  const char* position() const noexcept { return next_; }

  /// The number of bytes not yet read.
  std::size_t remaining() const noexcept { return static_cast<std::size_t>(end_ - next_); }

  /// Reads a text line, up to its line feed or the end. Fails when no byte is left.
  bool readLine(std::string_view& line) noexcept {
    if (next_ == end_) return false;
    const void* found = std::memchr(next_, '\n', remaining());
    const char* lineEnd = found ? static_cast<const char*>(found) : end_;
    line = {next_, static_cast<std::size_t>(lineEnd - next_)};
    next_ = found ? lineEnd + 1 : end_;
    return true;
  }

  /// Passes over a text: a number line with the number of text lines, none if it is
  /// negative, and these.
  bool passText() noexcept;

  /// Passes over a text and measures it. REQUIRES: passText would succeed.
  TextSize measureText() noexcept;

  /// Reads a text as strings without their line feeds.
  /// REQUIRES: passText would succeed.
  std::vector<std::string> readText();

  /// Reads a number line: as many decimal integers as `numbers` has places, with
  /// whitespace between, line ends included. What follows the last one on its
  /// line is passed over. Fails at anything but an integer of 32 bits.
  template <std::size_t count>
  bool readNumbers(std::array<std::int32_t, count>& numbers) noexcept {
    return readNumbers(numbers.data(), count);
  }

  /// Reads a number line with one integer. Most have but a digit.
  bool readNumber(std::int32_t& number) noexcept {
    if (next_[0] < '0' || next_[0] > '9' || next_[1] != '\n') return readNumbers(&number, 1);
    number = next_[0] - '0';
    next_ += 2;
    return true;
  }

 private:
  bool readNumbers(std::int32_t* numbers, std::size_t count) noexcept;
  void passRestOfLine() noexcept;

  const char* next_;
  const char* end_;
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_SCANNER_H
