// The compiler on any bytes, as a chart's source: what is wrong has a place in the file, memory
// is in proportion to it, and what has no error becomes a flowchart file without a fault that
// says what the source says.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/ChartCheck.h"
#include "authoring/Compiler.h"
#include "authoring/FvReader.h"
#include "authoring/SizeCheck.h"
#include "authoring/WalkCheck.h"
#include "tests/fuzz/DiagnosticsCheck.h"
#include "tests/fuzz/Finding.h"
#include "tests/support/Allocations.h"

namespace tavrel::fuzz {
namespace {

using namespace authoring;

const Catalogue fewCharts = {"Opening", "RespNT", "Stayman"};

// The limits of a source and of what becomes of it.
constexpr std::size_t mostBytes = 2'000'000, mostValues = 100'000, deepestNesting = 20;
constexpr std::size_t leastCellsAllowed = 1000, mostCellsPerBox = 8;

// A chart is laid out on the grid only if the source was read to its end.
bool wasLaidOut(const Diagnostics& found) {
  if (!found.hasErrors()) return true;
  const std::vector<Diagnostic> all = found.sorted();
  return std::none_of(all.begin(), all.end(), [](const Diagnostic& each) {
    const bool isOfDrawing = each.code >= Code::noWayBack && each.code <= Code::repeated;
    return severityOf(each.code) == Severity::error && !isOfDrawing;
  });
}

// yaml-cpp takes a line between braces to pieces before it says what is in them: 400 bytes for
// each comma. A file of a few boxes may have a thousand cells, and room between them for lines.
void checkMemory(std::size_t fileSize, const Diagnostics& found, std::size_t taken) {
  constexpr std::size_t ofLayout = std::size_t{32} << 20;
  const std::size_t ofReading = 512 * fileSize + 3 * sizeOf(found) + 16384;
  require(taken <= ofReading + (wasLaidOut(found) ? ofLayout : 0),
          "memory is in proportion to the source");
}

// How deep boxes stand within boxes: those without an id stand inline, behind the one they are in.
std::size_t depthOfBoxes(const ChartSource& source) {
  std::vector<std::size_t> depths(source.boxes.size(), 1);
  for (std::size_t box = 0; box < depths.size(); ++box) {
    for (const Answer answer : answers) {
      const BoxNumber next = source.boxes[box].exits[answer];
      if (next == noBox || !source[next].id.empty()) continue;
      depths[static_cast<std::size_t>(next)] = depths[box] + 1;
    }
  }
  return *std::max_element(depths.begin(), depths.end());
}

void checkLimits(const CompiledChart& chart, std::size_t fileSize) {
  const std::size_t boxes = chart.source.boxes.size();
  require(fileSize <= mostBytes, "a source has two million bytes at most");
  require(2 * boxes <= mostValues, "a source has 100,000 values at most");
  require(depthOfBoxes(chart.source) <= deepestNesting, "a source is nested 20 deep at most");
  require(chart.grid.boxes.size() <= std::max(leastCellsAllowed, mostCellsPerBox * boxes),
          "a chart has eight cells a box at most");
}

void checkLines(const std::vector<std::string>& lines, const SourceFile& file, LineRange range) {
  require(lines.size() == range.count, "a text has as many lines as in the source");
  for (LineNumber i = 0; i < range.count; ++i) {
    require(file.line(range.first + i) == lines[i], "a text has the lines of the source");
  }
}

void checkTexts(const ChartSource& source, const SourceFile& file, const FvFile& read) {
  checkLines(source.intro.lines, file, read.intro);
  require(read.nodes.size() == source.boxes.size(), "each box of the source has a node");
  for (std::size_t box = 0; box < read.nodes.size(); ++box) {
    const SourceBox& wanted = source.boxes[box];
    checkLines(wanted.text.lines, file, read.nodes[box].text);
    checkLines(wanted.comment.lines, file, read.nodes[box].comment);
    require(file.line(read.nodes[box].linkLine()) == (wanted.link ? wanted.link->chart : ""),
            "a box leads into the chart that the source names");
  }
}

// Node n shows the source's box n.
void checkExits(const ChartSource& source, const FvFile& read,
                const std::vector<ByAnswer<BoxNumber>>& exits) {
  require(read.boxes.front().node == source.start, "the root is the start");
  for (std::size_t cell = 0; cell < exits.size(); ++cell) {
    for (const Answer answer : answers) {
      const BoxNumber end = exits[cell][answer];
      const BoxNumber met = end == noBox ? noBox : read.boxes[static_cast<std::size_t>(end)].node;
      require(met == source[read.boxes[cell].node].exits[answer],
              "an exit leads where the source says");
    }
  }
}

void checkCompiled(const CompiledChart& chart) {
  const SourceFile file("Opening.fv", chart.bytes);
  Diagnostics found;
  const std::optional<FvFile> read = readFv(file, found);
  require(read && read->hasAllCells && checkSize(*read, file, found),
          "what was compiled can be read");
  const auto exits = checkWalk(*read, file, found);
  require(found.size() == 0, "what was compiled is without a fault");
  checkTexts(chart.source, file, *read);
  checkExits(chart.source, *read, exits);
}

CheckedChart check(const SourceFile& file) {
  takeMostInUse();
  const std::size_t before = bytesInUse();
  CheckedChart checked = checkChart(file, fewCharts);
  checkMemory(file.bytes().size(), checked.found, takeMostInUse() - before);
  checkDiagnostics(checked.found, file);
  return checked;
}

void tryFile(std::string_view bytes) {
  const SourceFile file("Opening.yaml", std::string(bytes));
  if (!wasLaidOut(check(file).found)) return;
  Diagnostics found;
  const std::optional<CompiledChart> chart = compile(file, fewCharts, found);
  require(chart.has_value() != found.hasErrors(), "errors alone keep a source from being compiled");
  if (!chart) return;
  checkLimits(*chart, bytes.size());
  checkCompiled(*chart);
}

}  // namespace
}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tavrel::fuzz::tryFile({reinterpret_cast<const char*>(data), size});
  return 0;
}
