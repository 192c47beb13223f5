#include "authoring/Compiler.h"

#include <filesystem>
#include <utility>
#include <variant>

#include "authoring/FvWriter.h"
#include "authoring/Layout.h"

namespace tavrel::authoring {
namespace {

// A loop can't be unrolled, so that a line back has to be drawn. A box that leads to itself has
// one end only to name, and needs no line but another answer.
void report(const NoWayBack& problem, const ChartSource& source, Diagnostics& found) {
  if (problem.from == problem.to) {
    const SourceBox& box = source[problem.from];
    const Answer answer = box.exits.yes == problem.to ? Answer::yes : Answer::no;
    found.add(Code::noWayBack, box.exitPlaces[answer], "this answer leads back to its own question",
              "lead it to another box");
    return;
  }
  found.add(Code::noWayBack, source[problem.from].place,
            "there is no way to draw the line from " + source.nameOf(problem.from) + " back to " +
                source.nameOf(problem.to),
            "repeat some boxes under other ids instead of going back");
}

// The box repeated most is where an author gains most, though others may be repeated too.
void report(const TooManyCells& problem, const ChartSource& source, Diagnostics& found) {
  found.add(Code::tooManyCells, source[problem.mostRepeated].place,
            "the chart takes too many cells: " + source.nameOf(problem.mostRepeated) +
                " would stand there " + std::to_string(problem.times) + " times",
            "let fewer boxes lead to it, or put what follows into a chart of its own");
}

// A note alone: the chart can be walked all the same, but an author may prefer another shape.
void report(const Layout& layout, const ChartSource& source, Diagnostics& found) {
  for (const BoxNumber box : layout.repeated) {
    found.add(
        Code::repeated, source[box].place,
        "no line can be drawn to " + source.nameOf(box) + " from everywhere, so it is repeated",
        "");
  }
}

}  // namespace

std::optional<CompiledChart> compile(const SourceFile& file, const Catalogue& catalogue,
                                     Diagnostics& found) {
  std::optional<ChartSource> source = readSource(file, catalogue, found);
  if (!source) return std::nullopt;
  return compile(std::move(*source), found);
}

std::optional<CompiledChart> compile(ChartSource source, Diagnostics& found) {
  // The layout knows boxes by number, the source what people call them.
  auto outcome = layOut(source.graph());
  std::visit([&](const auto& each) { report(each, source, found); }, outcome);
  auto* const layout = std::get_if<Layout>(&outcome);
  if (layout == nullptr) return std::nullopt;
  std::string bytes = fvFile(source, layout->chart);
  return CompiledChart{std::move(source), std::move(layout->chart), std::move(bytes)};
}

void checkFileName(const ChartSource& source, const std::string& fileName, Diagnostics& found) {
  const std::filesystem::path path = fileName;
  if (path.stem() == source.chart) return;
  found.add(Code::wrongFileName, source.chartPlace,
            "the chart is " + source.chart + ", but the file is " + path.filename().string(),
            "name the file " + source.chart + ".yaml, or the output with -o FILE");
}

}  // namespace tavrel::authoring
