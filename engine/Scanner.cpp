#include "engine/Scanner.h"

#include <algorithm>
#include <limits>

namespace tavrel::engine {
namespace {

bool isWhitespace(char byte) noexcept { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

// The digit's value; 10 or more for any other byte.
std::uint32_t digitOf(char byte) noexcept {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(byte) - '0');
}

// An integer of any length, with whitespace and a sign before it. Returns what follows
// it, or nullptr if it is none of 32 bits.
const char* readAnyInteger(const char* next, std::int32_t& number) noexcept {
  while (isWhitespace(*next)) ++next;
  const bool negative = *next == '-';
  if (negative || *next == '+') ++next;
  if (digitOf(*next) > 9) return nullptr;
  const std::uint32_t most = std::uint32_t{std::numeric_limits<std::int32_t>::max()} + negative;
  std::uint32_t magnitude = 0;
  for (std::uint32_t digit; (digit = digitOf(*next)) <= 9; ++next) {
    if (magnitude > (most - digit) / 10) return nullptr;
    magnitude = 10 * magnitude + digit;
  }
  number = static_cast<std::int32_t>(negative ? -std::int64_t{magnitude} : std::int64_t{magnitude});
  return next;
}

// The same. The integers of a well-made file begin with a digit and have few.
inline const char* readInteger(const char* next, std::int32_t& number) noexcept {
  std::uint32_t magnitude = digitOf(*next);
  if (magnitude > 9) return readAnyInteger(next, number);
  constexpr int fitting = std::numeric_limits<std::int32_t>::digits10;  // digits, for certain
  const char* const first = next;
  for (std::uint32_t digit; (digit = digitOf(*++next)) <= 9;) {
    if (next - first == fitting) return readAnyInteger(first, number);
    magnitude = 10 * magnitude + digit;
  }
  number = static_cast<std::int32_t>(magnitude);
  return next;
}

// The same with one byte of whitespace behind it. Most are a digit and a blank.
inline const char* readIntegerAndSpace(const char* next, std::int32_t& number) noexcept {
  const std::uint32_t digit = digitOf(*next);
  if (digit <= 9 && next[1] == ' ') {
    number = static_cast<std::int32_t>(digit);
    return next + 2;
  }
  next = readInteger(next, number);
  return next && isWhitespace(*next) ? next + 1 : nullptr;
}

}  // namespace

bool Scanner::passText() noexcept {
  std::int32_t count = 0;
  if (!readNumber(count)) return false;
  for (std::string_view line; count > 0; --count) {
    if (!readLine(line)) return false;
  }
  return true;
}

TextSize Scanner::measureText() noexcept {
  std::int32_t count = 0;
  readNumber(count);
  TextSize size = {};
  for (std::string_view line; count > 0; --count) {
    readLine(line);
    ++size.lines;
    size.widest = std::max(size.widest, line.size());
  }
  return size;
}

std::vector<std::string> Scanner::readText() {
  std::int32_t count = 0;
  readNumber(count);
  std::vector<std::string> lines;
  if (count > 0) lines.reserve(static_cast<std::size_t>(count));
  for (std::string_view line; count > 0; --count) {
    readLine(line);
    lines.emplace_back(line);
  }
  return lines;
}

bool Scanner::readNumbers(std::int32_t* numbers, std::size_t count) noexcept {
  const char* next = next_;
  for (std::int32_t* const last = numbers + (count - 1); numbers != last; ++numbers) {
    next = readIntegerAndSpace(next, *numbers);
    if (!next) return false;
  }
  next = readInteger(next, *numbers);
  if (!next) return false;
  next_ = next;
  passRestOfLine();
  return true;
}

void Scanner::passRestOfLine() noexcept {
  if (*next_ == '\n') {  // mostly there is no rest
    ++next_;
    return;
  }
  std::string_view ignored;
  readLine(ignored);
}

}  // namespace tavrel::engine
