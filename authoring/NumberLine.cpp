#include "authoring/NumberLine.h"

#include <charconv>
#include <system_error>

namespace tavrel::authoring {
namespace {

// As the engine has it: bytes 9 to 13 and 32.
constexpr std::string_view blanks = " \t\n\v\f\r";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isSign(char c) { return c == '-' || c == '+'; }

// The integer that a line begins with, its sign included; empty if there is none. REQUIRES: the
// line isn't empty.
std::string_view integerAtStart(std::string_view line) {
  std::size_t end = isSign(line.front()) ? 1 : 0;
  const std::size_t digits = end;
  while (end < line.size() && isDigit(line[end])) ++end;
  if (end == digits) return {};
  const bool isAlone = end == line.size() || blanks.find(line[end]) != std::string_view::npos;
  return isAlone ? line.substr(0, end) : std::string_view();
}

}  // namespace

NumberLine readNumberLine(std::string_view line) {
  NumberLine read;
  while (read.count < NumberLine::most) {
    const std::size_t start = line.find_first_not_of(blanks, read.end);
    if (start == std::string_view::npos) {
      read.end = line.size();
      return read;
    }
    const std::string_view integer = integerAtStart(line.substr(start));
    if (integer.empty()) {
      read.end = start;
      return read;
    }
    const std::size_t sign = integer.front() == '+' ? 1 : 0;  // which from_chars doesn't read
    const auto result = std::from_chars(integer.data() + sign, integer.data() + integer.size(),
                                        read.numbers[read.count]);
    if (result.ec != std::errc()) {
      read.isTooLarge = true;
      read.end = start;
      return read;
    }
    read.offsets[read.count++] = start;
    read.end = start + integer.size();
  }
  return read;
}

bool isBlank(std::string_view line) {
  return line.find_first_not_of(blanks) == std::string_view::npos;
}

Place placeOfNumber(const SourceFile& file, std::size_t line, std::size_t n) {
  const NumberLine read = readNumberLine(file.line(line));
  return file.placeOf(file.startOf(line) + (n < read.count ? read.offsets[n] : read.end));
}

}  // namespace tavrel::authoring
