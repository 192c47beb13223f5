#include "facade/Utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace tavrel::facade {
namespace {

// How many bytes at the front of `text` are ASCII, as far as whole words of eight tell.
std::size_t asciiWords(std::string_view text) noexcept {
  constexpr std::uint64_t highBits = 0x8080808080808080;
  std::size_t length = 0;
  for (std::uint64_t word; text.size() - length >= sizeof word; length += sizeof word) {
    std::memcpy(&word, text.data() + length, sizeof word);
    if ((word & highBits) != 0) break;
  }
  return length;
}

bool isContinuation(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// What a first byte promises: the length of its sequence, 0 for a byte that starts
// none, and the range of the second byte, which keeps out overlong forms,
// surrogates and values above U+10FFFF.
struct Sequence {
  std::size_t length;
  unsigned char secondMin;
  unsigned char secondMax;
};

Sequence sequenceOf(char first) noexcept {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0x80) return {1, 0, 0};
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte < 0xF4) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

// The length of the valid sequence at the front of `text`, or 0.
std::size_t validSequence(std::string_view text) noexcept {
  const Sequence sequence = sequenceOf(text[0]);
  if (sequence.length > text.size()) return 0;
  if (sequence.length < 2) return sequence.length;
  const auto second = static_cast<unsigned char>(text[1]);
  if (second < sequence.secondMin || second > sequence.secondMax) return 0;
  for (std::size_t i = 2; i < sequence.length; ++i) {
    if (!isContinuation(text[i])) return 0;
  }
  return sequence.length;
}

std::string_view upToNul(const std::string& text) noexcept {
  return std::string_view(text).substr(0, text.find('\0'));
}

}  // namespace

bool isUtf8(std::string_view text) noexcept {
  text.remove_prefix(asciiWords(text));
  while (!text.empty()) {
    const std::size_t length = validSequence(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string endedAtNul(std::string&& text) noexcept {
  text.erase(upToNul(text).size());
  return std::move(text);
}

std::vector<std::string> endedAtNul(std::vector<std::string>&& lines) noexcept {
  for (std::string& line : lines) line.erase(upToNul(line).size());
  return std::move(lines);
}

void checkUtf8(const std::vector<std::string>& lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!isUtf8(lines[i])) {
      throw std::invalid_argument("line " + std::to_string(i) + " is not valid UTF-8");
    }
  }
}

std::vector<std::string> hostLines(std::vector<std::string>&& lines) {
  lines = endedAtNul(std::move(lines));
  checkUtf8(lines);
  return std::move(lines);
}

}  // namespace tavrel::facade
