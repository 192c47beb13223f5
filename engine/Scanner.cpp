#include "engine/Scanner.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tavrel::engine {
namespace {

bool isWhitespace(char byte) noexcept { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

// The digit's value; 10 or more for any other byte.
std::uint32_t digitOf(char byte) noexcept {
  return static_cast<unsigned char>(byte) - std::uint32_t{'0'};
}

// Passes whitespace and a sign.
void passToDigits(const char*& next, bool& negative) noexcept {
  while (isWhitespace(*next)) ++next;
  negative = *next == '-';
  if (negative || *next == '+') ++next;
}

bool readInteger(const char*& next, std::int32_t& number) noexcept {
  constexpr std::uint32_t most = std::numeric_limits<std::int32_t>::max();
  bool negative = false;
  if (digitOf(*next) > 9) passToDigits(next, negative);
  std::uint32_t digit = digitOf(*next);
  if (digit > 9) return false;
  std::uint32_t magnitude = digit;
  while ((digit = digitOf(*++next)) <= 9) {
    if (magnitude > most / 10) return false;
    magnitude = 10 * magnitude + digit;
  }
  if (magnitude > most + (negative ? 1U : 0U)) return false;
  number = static_cast<std::int32_t>(negative ? 0U - magnitude : magnitude);
  return true;
}

}  // namespace

bool Scanner::readLine(std::string_view& line) noexcept {
  if (next_ == end_) return false;
  const void* found = std::memchr(next_, '\n', remaining());
  const char* lineEnd = found ? static_cast<const char*>(found) : end_;
  line = {next_, static_cast<std::size_t>(lineEnd - next_)};
  next_ = found ? lineEnd + 1 : end_;
  return true;
}

bool Scanner::readLines(std::int32_t count, TextLines& lines) noexcept {
  const char* first = next_;
  lines = {};
  for (std::string_view line; lines.count < count; ++lines.count) {
    if (!readLine(line)) return false;
    lines.widest = std::max(lines.widest, line.size());
  }
  lines.bytes = {first, static_cast<std::size_t>(next_ - first)};
  return true;
}

bool Scanner::readNumbers(std::int32_t* numbers, std::size_t count) noexcept {
  const char* next = next_;  // a local, for the compiler to keep in a register
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0 && !isWhitespace(*next++)) return false;
    if (!readInteger(next, numbers[i])) return false;
  }
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

std::vector<std::string> copyOf(const TextLines& lines) {
  std::vector<std::string> copy;
  copy.reserve(static_cast<std::size_t>(lines.count));
  Scanner scanner(lines.bytes);
  for (std::string_view line; scanner.readLine(line);) copy.emplace_back(line);
  return copy;
}

}  // namespace tavrel::engine
