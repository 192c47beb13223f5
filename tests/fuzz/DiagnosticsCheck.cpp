#include "tests/fuzz/DiagnosticsCheck.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/fuzz/Finding.h"
#include "text/Utf8.h"

namespace tavrel::fuzz {
namespace {

using authoring::Code;
using authoring::Diagnostic;
using authoring::Diagnostics;
using authoring::Severity;
using authoring::SourceFile;

// tests/authoring sees to it that each of all codes has its section.
bool hasSection(Code code) {
  static const std::vector<Code> all = authoring::allCodes();
  return std::binary_search(all.begin(), all.end(), code);
}

// As editors count: a byte that goes on with a character is none.
std::size_t charactersIn(std::string_view line) {
  return static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  }));
}

// Just behind a line's last character is a place too: something may be missing there.
void checkPlace(const Diagnostic& diagnostic, const SourceFile& file) {
  const auto [line, column] = diagnostic.place;
  require(1 <= line && line <= file.lineCount(), "a finding names a line of the file");
  require(1 <= column && column <= charactersIn(file.line(line)) + 1,
          "a finding names a column of its line");
}

bool isControl(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return (value < ' ' && byte != '\n') || value == 0x7F;
}

void checkShown(const Diagnostic& diagnostic, const SourceFile& file) {
  const std::string text = authoring::shown(diagnostic, file);
  const auto lines = std::count(text.begin(), text.end(), '\n');
  require(lines == (diagnostic.cure.empty() ? 3 : 4), "a finding is shown on three or four lines");
  require(std::none_of(text.begin(), text.end(), isControl), "what is shown has no controls");
  require(firstThatIsNotUtf8(text) == std::string_view::npos, "what is shown is UTF-8");
}

}  // namespace

void checkDiagnostics(const Diagnostics& found, const SourceFile& file) {
  std::array<std::size_t, 3> counts = {};
  std::set<Code> shown;  // the first of each alone: showing takes longer than all the rest
  for (const Diagnostic& diagnostic : found.sorted()) {
    require(hasSection(diagnostic.code), "a finding has a code with a section");
    require(!diagnostic.text.empty(), "a finding says what is wrong");
    checkPlace(diagnostic, file);
    if (shown.insert(diagnostic.code).second) checkShown(diagnostic, file);
    ++counts[static_cast<std::size_t>(authoring::severityOf(diagnostic.code))];
  }
  require(found.size() <= Diagnostics::mostKept, "no more findings are kept than help");
  for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
    const std::size_t kept = counts[static_cast<std::size_t>(severity)];
    require(found.size() == Diagnostics::mostKept ? kept <= found.count(severity)
                                                  : kept == found.count(severity),
            "what was found is counted");
  }
}

std::size_t sizeOf(const Diagnostics& found) {
  std::size_t size = 0;
  for (const Diagnostic& each : found.sorted()) {
    size += sizeof(each) + each.text.size() + each.cure.size();
  }
  return size;
}

}  // namespace tavrel::fuzz
