#include "authoring/Diagnostic.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "text/Text.h"

namespace tavrel::authoring {
namespace {

constexpr int widestLine = 100;  // of a line that is shown, in columns
constexpr std::size_t mostBytes = std::size_t{16} * widestLine;

// The part of a line that is shown, and how many columns lie before the place in it.
struct Excerpt {
  std::string text;
  int before;
};

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// What can matter of a line from a character on: of a very long one a small part. Whole blocks are
// passed at once, since a line of megabytes may have hundreds of findings.
std::string_view partFrom(std::string_view line, std::size_t character) {
  constexpr std::size_t block = 4096;
  while (line.size() > block) {
    const std::size_t passed = charactersIn(line.substr(0, block));
    if (passed >= character) break;
    character -= passed;
    line.remove_prefix(block);
  }
  std::size_t start = 0;
  while (start < line.size() && (isContinuation(line[start]) || --character > 0)) ++start;
  return line.substr(start, mostBytes);
}

// Around the place, where the line is long.
Excerpt excerptOf(std::string_view line, std::size_t column) {
  const bool isLong = line.size() > widestLine;
  const std::size_t first = isLong && column > widestLine / 2 ? column - widestLine / 2 : 1;
  const std::string_view part = first > 1 ? partFrom(line, first) : line.substr(0, mostBytes);
  const std::string shownLine = printable(part, Charset::utf8);
  std::string text;
  int before = 0, used = 0;
  std::size_t character = first;
  for (const Glyph& glyph : glyphs(shownLine)) {
    if (used + glyph.width <= widestLine) {
      if (character < column) before += glyph.width;
      text += glyph.bytes;
      used += glyph.width;
    }
    ++character;
  }
  return {text, before};
}

// The codes with the numbers of these ranges, both ends among them.
std::vector<Code> codesFrom(std::initializer_list<std::pair<int, int>> ranges) {
  std::vector<Code> codes;
  for (const auto& [first, last] : ranges) {
    for (int code = first; code <= last; ++code) codes.push_back(static_cast<Code>(code));
  }
  return codes;
}

}  // namespace

const char* nameOf(Severity severity) {
  switch (severity) {
    case Severity::error:
      return "error";
    case Severity::warning:
      return "warning";
    default:
      return "note";
  }
}

std::string nameOf(Code code) {
  std::string digits = std::to_string(static_cast<int>(code));
  return "T" + std::string(4 - digits.size(), '0') + digits;
}

const std::vector<Code>& allCodes() {
  static const std::vector<Code> codes = codesFrom(
      {{101, 127}, {201, 210}, {301, 303}, {401, 415}, {501, 509}, {601, 617}, {701, 702}});
  return codes;
}

Severity severityOf(Code code) {
  if (code == Code::repeated || code == Code::pathsNotSearched || code == Code::nobodyLinks) {
    return Severity::note;
  }
  return code >= Code::oneExit ? Severity::warning : Severity::error;
}

void Diagnostics::add(Code code, Place place, std::string text, std::string cure) {
  ++counts_[static_cast<std::size_t>(severityOf(code))];
  if (all_.size() == mostKept) return;
  all_.push_back({code, place, std::move(text), std::move(cure)});
}

void Diagnostics::forgetFrom(std::size_t size) {
  for (; all_.size() > size; all_.pop_back()) {
    --counts_[static_cast<std::size_t>(severityOf(all_.back().code))];
  }
}

void Diagnostics::forgetFromLine(std::size_t line) {
  const auto behind = std::stable_partition(
      all_.begin(), all_.end(), [line](const Diagnostic& each) { return each.place.line < line; });
  forgetFrom(static_cast<std::size_t>(behind - all_.begin()));
}

std::vector<Diagnostic> Diagnostics::sorted() const {
  std::vector<Diagnostic> all = all_;
  std::stable_sort(all.begin(), all.end(),
                   [](const Diagnostic& a, const Diagnostic& b) { return a.place < b.place; });
  return all;
}

std::string shown(const Diagnostic& diagnostic, const SourceFile& file) {
  std::string_view line = file.line(diagnostic.place.line);
  const bool isAtItsEnd = diagnostic.place.column >= line.size();
  if (!line.empty() && line.back() == '\r' && !isAtItsEnd) line.remove_suffix(1);
  const Excerpt excerpt = excerptOf(line, diagnostic.place.column);
  std::string text =
      printable(file.name(), Charset::utf8) + ":" + std::to_string(diagnostic.place.line) + ":" +
      std::to_string(diagnostic.place.column) + ": " + nameOf(severityOf(diagnostic.code)) + ": " +
      printable(diagnostic.text, Charset::utf8) + " [" + nameOf(diagnostic.code) + "]\n";
  text += "    " + excerpt.text + "\n";
  text += "    " + std::string(static_cast<std::size_t>(excerpt.before), ' ') + "^\n";
  if (!diagnostic.cure.empty()) text += "    " + printable(diagnostic.cure, Charset::utf8) + "\n";
  return text;
}

}  // namespace tavrel::authoring
