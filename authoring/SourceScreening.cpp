#include "authoring/SourceScreening.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t mostBytes = 2'000'000;
constexpr int deepestBrackets = 20;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t nowhere = std::string_view::npos;

template <typename IsWanted>
std::size_t firstOf(std::string_view bytes, const IsWanted& isWanted) {
  const auto found = std::find_if(bytes.begin(), bytes.end(), isWanted);
  return found == bytes.end() ? nowhere : static_cast<std::size_t>(found - bytes.begin());
}

bool isControl(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return (value < ' ' && byte != '\n' && byte != '\t' && byte != '\r') || value == 0x7F;
}

// A carriage return that belongs to no line end.
std::size_t firstCarriageReturn(std::string_view bytes) {
  std::size_t at = bytes.find('\r');
  while (at != nowhere && bytes.substr(at + 1, 1) == "\n") at = bytes.find('\r', at + 1);
  return at;
}

bool isUtf16(std::string_view bytes) {
  return bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF";
}

// Counted wherever they stand: texts close what they open, or nearly so.
std::size_t firstTooDeep(std::string_view bytes) {
  int depth = 0;
  return firstOf(bytes, [&depth](char byte) {
    if (byte == '{' || byte == '[') ++depth;
    if ((byte == '}' || byte == ']') && depth > 0) --depth;
    return depth > deepestBrackets;
  });
}

struct Check {
  Code code;
  std::size_t (*firstIn)(std::string_view bytes);
  const char* text;
  const char* cure;
};

constexpr Check checks[] = {
    {Code::notUtf8, firstThatIsNotUtf8, "the bytes here are not UTF-8",
     "let the editor save the file in the encoding UTF-8"},
    {Code::byteOrderMark,
     [](std::string_view bytes) {
       return bytes.substr(0, byteOrderMark.size()) == byteOrderMark ? 0 : nowhere;
     },
     "the file begins with a byte order mark",
     "let the editor save it as \"UTF-8\" or \"UTF-8 without BOM\", not \"UTF-8 with BOM\""},
    {Code::controlCharacter, [](std::string_view bytes) { return firstOf(bytes, isControl); },
     "a control character stands here", "take it away"},
    {Code::controlCharacter, firstCarriageReturn, "a carriage return stands here",
     "let the editor save the file with the line ends of Windows or of Unix"},
    {Code::tab, [](std::string_view bytes) { return bytes.find('\t'); }, "a tab stands here",
     "write blanks instead"},
    {Code::bracketsTooDeep, firstTooDeep, "more than 20 brackets and braces are open here",
     "close them, or write the boxes one below the other"},
};

}  // namespace

bool mayBeRead(const SourceFile& file, Diagnostics& found) {
  if (file.bytes().size() > mostBytes) {
    found.add(Code::tooLarge, {}, "the file is larger than 2 MB",
              "no chart needs that: split it into several");
    return false;
  }
  if (isUtf16(file.bytes())) {
    found.add(Code::notUtf8, {}, "the file is in the encoding UTF-16",
              "let the editor save it as \"UTF-8\"");
    return false;
  }
  bool may = true;
  for (const Check& check : checks) {
    const std::size_t place = check.firstIn(file.bytes());
    if (place == nowhere) continue;
    found.add(check.code, file.placeOf(place), check.text, check.cure);
    may = false;
  }
  return may;
}

}  // namespace tavrel::authoring
