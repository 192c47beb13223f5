#include "authoring/Diagnostic.h"

#include <algorithm>
#include <iterator>
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

// A line without the carriage return at its end, unless that is what is shown.
std::string_view shownLine(const SourceFile& file, Place place) {
  std::string_view line = file.line(place.line);
  if (!line.empty() && line.back() == '\r' && place.column < line.size()) line.remove_suffix(1);
  return line;
}

// As much of a line as is surely more than what is shown: a character may take many bytes.
std::string_view partOf(std::string_view line, std::size_t start) {
  const std::string_view plain = line.substr(start, widestLine + 1);
  const bool isPlain = std::all_of(plain.begin(), plain.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  return isPlain ? plain : line.substr(start, mostBytes);
}

// Around the place, where the line is long.
Excerpt excerptOf(const SourceFile& file, Place place) {
  const std::string_view line = shownLine(file, place);
  const bool isLong = line.size() > widestLine && place.column > widestLine / 2;
  const std::size_t first = isLong ? place.column - widestLine / 2 : 1;
  const std::size_t start =
      isLong ? file.offsetOf({place.line, first}) - file.startOf(place.line) : 0;
  const std::string part = printable(partOf(line, std::min(start, line.size())), Charset::utf8);
  std::string text;
  int before = 0, used = 0;
  std::size_t character = first;
  for (const Glyph& glyph : glyphs(part)) {
    if (used + glyph.width > widestLine) break;
    if (character < place.column) before += glyph.width;
    text += glyph.bytes;
    used += glyph.width;
    ++character;
  }
  return {text, before};
}

// Codes whose numbers follow each other, both ends among them.
struct Range {
  Code first, last;
  Severity severity;
};

constexpr Range ranges[] = {
    {Code::tooLarge, Code::directive, Severity::error},
    {Code::notAMap, Code::emptyText, Severity::error},
    {Code::noWayBack, Code::tooManyCells, Severity::error},
    {Code::repeated, Code::repeated, Severity::note},
    {Code::fileNotUtf8, Code::byteOrderMarkInFile, Severity::error},
    {Code::rootElsewhere, Code::tooLargeToDraw, Severity::error},
    {Code::oneExit, Code::noEnd, Severity::warning},
    {Code::pathsNotSearched, Code::pathsNotSearched, Severity::note},
    {Code::linkWithoutFile, Code::linkWithoutFile, Severity::warning},
    {Code::nobodyLinks, Code::nobodyLinks, Severity::note},
    {Code::emptyExpression, Code::callsBehindSure, Severity::error},
    {Code::questionWithoutCondition, Code::endWithoutCall, Severity::warning},
    {Code::badExpression, Code::callNotAllowed, Severity::error},
};

std::vector<Code> codesOfRanges() {
  std::vector<Code> codes;
  for (const Range& range : ranges) {
    const int last = static_cast<int>(range.last);
    for (int code = static_cast<int>(range.first); code <= last; ++code) {
      codes.push_back(static_cast<Code>(code));
    }
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
  static const std::vector<Code> codes = codesOfRanges();
  return codes;
}

Severity severityOf(Code code) {
  const auto* const range = std::find_if(std::begin(ranges), std::end(ranges),
                                         [code](const Range& each) { return code <= each.last; });
  return range == std::end(ranges) ? Severity::error : range->severity;
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

void Diagnostics::append(const Diagnostics& others,
                         const std::function<Place(Place place)>& placeOf) {
  const std::size_t kept = std::min(others.all_.size(), mostKept - all_.size());
  for (std::size_t i = 0; i < kept; ++i) {
    all_.push_back(others.all_[i]);
    all_.back().place = placeOf(all_.back().place);
  }
  for (std::size_t i = 0; i < counts_.size(); ++i) counts_[i] += others.counts_[i];
}

std::vector<Diagnostic> Diagnostics::sorted() const {
  std::vector<Diagnostic> all = all_;
  std::stable_sort(all.begin(), all.end(),
                   [](const Diagnostic& a, const Diagnostic& b) { return a.place < b.place; });
  return all;
}

std::string shown(const Diagnostic& diagnostic, const SourceFile& file) {
  const Excerpt excerpt = excerptOf(file, diagnostic.place);
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
