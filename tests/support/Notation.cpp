#include "tests/support/Notation.h"

#include <array>
#include <cstddef>

namespace tavrel {
namespace {

struct Escape {
  char letter;
  char byte;
};
constexpr std::array<Escape, 5> kEscapes{
    {{'"', '"'}, {'\\', '\\'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};
constexpr char kHexDigits[] = "0123456789abcdef";

bool isControl(char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7f'; }

std::string escaped(char byte) {
  for (const Escape& escape : kEscapes) {
    if (escape.byte == byte) return {'\\', escape.letter};
  }
  if (!isControl(byte)) return {byte};
  return {'\\', 'x', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
}

int hexValue(char digit) {
  const std::size_t value = std::string(kHexDigits).find(digit);
  if (value == std::string::npos) throw NotationError("\\x takes two digits of 0-9a-f");
  return static_cast<int>(value);
}

/// The byte that the escape at `text[at]`, just behind its backslash, stands
/// for; moves `at` behind the escape.
char takeEscape(const std::string& text, std::size_t& at) {
  if (at == text.size()) throw NotationError("nothing follows the backslash");
  const char letter = text[at++];
  for (const Escape& escape : kEscapes) {
    if (escape.letter == letter) return escape.byte;
  }
  if (letter != 'x') throw NotationError(std::string("unknown escape \\") + letter);
  if (text.size() - at < 2) throw NotationError("\\x takes two digits of 0-9a-f");
  const int high = hexValue(text[at++]);
  return static_cast<char>(high * 16 + hexValue(text[at++]));
}

/// The place of the quote that closes the string whose text starts at `begin`.
std::size_t closingQuote(const std::string& line, std::size_t begin) {
  for (std::size_t at = begin; at < line.size(); ++at) {
    if (line[at] == '"') return at;
    if (line[at] == '\\') ++at;
  }
  throw NotationError("the string is not closed");
}

Word takeQuoted(const std::string& line, std::size_t& at) {
  const std::size_t begin = at + 1;
  const std::size_t end = closingQuote(line, begin);
  at = end + 1;
  if (at < line.size() && line[at] != ' ') throw NotationError("a blank must follow the string");
  return {unescape(line.substr(begin, end - begin)), true};
}

Word takeBare(const std::string& line, std::size_t& at) {
  const std::size_t begin = at;
  at = line.find(' ', at);
  if (at == std::string::npos) at = line.size();
  return {line.substr(begin, at - begin), false};
}

}  // namespace

std::string quote(const std::string& bytes) {
  std::string text = "\"";
  for (const char byte : bytes) text += escaped(byte);
  return text + '"';
}

std::string unescape(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const char next = text[at++];
    bytes += next == '\\' ? takeEscape(text, at) : next;
  }
  return bytes;
}

std::vector<Word> wordsOf(const std::string& line) {
  std::vector<Word> words;
  for (std::size_t at = line.find_first_not_of(' '); at < line.size();
       at = line.find_first_not_of(' ', at)) {
    words.push_back(line[at] == '"' ? takeQuoted(line, at) : takeBare(line, at));
  }
  return words;
}

}  // namespace tavrel
