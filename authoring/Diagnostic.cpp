#include "authoring/Diagnostic.h"

#include <algorithm>
#include <string_view>

#include "text/Text.h"

namespace tavrel::authoring {
namespace {

constexpr int widestLine = 100;  // of a line that is shown, in columns

// The part of a line that is shown, and how many columns lie before the place in it.
struct Excerpt {
  std::string text;
  int before;
};

// Around the place, where the line is long.
Excerpt excerptOf(std::string_view line, std::size_t column) {
  const std::string shownLine = printable(line, Charset::utf8);
  std::string text;
  int before = 0, used = 0;
  std::size_t character = 1;
  const std::size_t first = column > widestLine / 2 ? column - widestLine / 2 : 1;
  for (const Glyph& glyph : glyphs(shownLine)) {
    if (character >= first && used + glyph.width <= widestLine) {
      if (character < column) before += glyph.width;
      text += glyph.bytes;
      used += glyph.width;
    }
    ++character;
  }
  return {text, before};
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

Severity severityOf(Code code) { return code == Code::repeated ? Severity::note : Severity::error; }

void Diagnostics::add(Code code, Place place, std::string text, std::string cure) {
  all_.push_back({code, place, std::move(text), std::move(cure)});
}

std::vector<Diagnostic> Diagnostics::sorted() const {
  std::vector<Diagnostic> all = all_;
  std::stable_sort(all.begin(), all.end(),
                   [](const Diagnostic& a, const Diagnostic& b) { return a.place < b.place; });
  return all;
}

std::size_t Diagnostics::count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(all_.begin(), all_.end(), [severity](const Diagnostic& diagnostic) {
        return severityOf(diagnostic.code) == severity;
      }));
}

std::string shown(const Diagnostic& diagnostic, const SourceFile& file) {
  const Excerpt excerpt = excerptOf(file.line(diagnostic.place.line), diagnostic.place.column);
  std::string text = file.name() + ":" + std::to_string(diagnostic.place.line) + ":" +
                     std::to_string(diagnostic.place.column) + ": " +
                     nameOf(severityOf(diagnostic.code)) + ": " + diagnostic.text + " [" +
                     nameOf(diagnostic.code) + "]\n";
  text += "    " + excerpt.text + "\n";
  text += "    " + std::string(static_cast<std::size_t>(excerpt.before), ' ') + "^\n";
  if (!diagnostic.cure.empty()) text += "    " + diagnostic.cure + "\n";
  return text;
}

}  // namespace tavrel::authoring
