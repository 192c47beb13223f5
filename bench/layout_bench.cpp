// How long does the layout of a chart take, and how good is it? Charts of the tree, and
// generated ones: trees, and such in which one box in ten has a further exit, to any box behind.
//
//     layout_bench [SECONDS]   contests, as in the other programs
//     layout_bench --quality   a line for each chart: see printQuality
//     layout_bench --dot NAME  the chart for graphviz's dot, its boxes of the same size

#include <Tavrel/Tavrel.h>
#include <time.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include "authoring/CellSet.h"
#include "authoring/Layout.h"
#include "authoring/SourceReader.h"
#include "bench/Contest.h"
#include "bench/WholeFile.h"
#include "tests/authoring/RandomGraph.h"

namespace tavrel::bench {
namespace {

using namespace authoring;

constexpr double seconds = 1;
constexpr double mostForTree = 100e6, mostWithSharing = 1e9;  // nanoseconds, of 10,000 boxes

struct Input {
  std::string name;
  ChartGraph graph;
};

ChartGraph generated(std::size_t boxes, bool isShared) {
  return randomGraph(boxes, isShared ? 10 : 0, false, 20'240'229);
}

Catalogue catalogue() {
  Tavrel navigator("/dev/null");
  Catalogue names;
  for (std::size_t i = 0; i < navigator.flowchartTitles().size(); ++i) {
    navigator.resetToStartLocationForFlowchartAtIndex(static_cast<std::int64_t>(i));
    names.push_back(std::get<0>(navigator.currentLocation()));
  }
  return names;
}

std::vector<Input> chartsOfTheTree() {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(TAVREL_BENCH_SOURCES)) {
    if (entry.path().extension() == ".yaml") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  const Catalogue names = catalogue();
  std::vector<Input> charts;
  for (const auto& path : paths) {
    Diagnostics found;
    const WholeFile file = wholeFile(path.string());
    const auto source =
        readSource(SourceFile(path.string(), {file.begin(), file.end()}), names, found);
    if (!source) std::exit(2);
    charts.push_back({source->chart, source->graph()});
  }
  return charts;
}

std::vector<Input> inputs() {
  std::vector<Input> all = chartsOfTheTree();
  for (const std::size_t boxes : {60U, 360U, 1'000U, 10'000U}) {
    for (const bool isShared : {false, true}) {
      const std::string name = std::to_string(boxes) + (isShared ? "-shared" : "-tree");
      all.push_back({name, generated(boxes, isShared)});
    }
  }
  return all;
}

// What the picture of a chart measures whose boxes are all alike: 24 characters and 3 lines, a
// line as high as two characters are wide. A column is as wide as its boxes, and columns keep
// 7.5 characters between them; rows 1 line. All in widths of a character.
constexpr double boxWidth = 24, boxHeight = 6, columnGap = 7.5, rowGap = 2;

struct Measures {
  double width = 0, height = 0;  // in box widths and box heights
  double length = 0;             // of all lines, outside of boxes, in box widths
  std::size_t bends = 0;
  std::size_t emptyCells = 0;  // of the rectangle that holds the chart
  std::size_t crossings = 0;   // cells with a line in them and a box or another line
};

// The distance from one column or row to the next, by which of them hold boxes.
class Scale {
 public:
  Scale(double box, double gap) : box_(box), gap_(gap) {}

  void add(std::int32_t cell, bool isBox) { holdsBox_[cell] |= isBox; }

  double length() const {
    double sum = 0;
    for (const auto& [cell, isBox] : holdsBox_) sum += isBox ? box_ : 0;
    return sum + gap_ * static_cast<double>(holdsBox_.size() - 1);
  }

  double gap() const { return gap_; }

  std::size_t count() const { return holdsBox_.size(); }

  double sizeOf(std::int32_t cell) const {
    const auto found = holdsBox_.find(cell);
    return found != holdsBox_.end() && found->second ? box_ : 0;
  }

 private:
  double box_, gap_;
  std::map<std::int32_t, bool> holdsBox_;
};

bool isAcross(Direction way) { return way == Direction::right || way == Direction::left; }

// Lines go from cell to cell by their middles, so that two cross where they share a cell.
std::size_t crossings(const GridChart& chart) {
  CellSet taken;
  for (const PlacedBox& box : chart.boxes) taken.insert(box.cell);
  std::size_t count = 0;
  for (const PlacedConnector& each : chart.connectors) count += taken.insert(each.cell) ? 0U : 1U;
  return count;
}

Measures measured(const GridChart& chart) {
  Scale columns(boxWidth, columnGap), rows(boxHeight, rowGap);
  for (const PlacedBox& box : chart.boxes)
    columns.add(box.cell.x, true), rows.add(box.cell.y, true);
  for (const PlacedConnector& connector : chart.connectors) {
    columns.add(connector.cell.x, false);
    rows.add(connector.cell.y, false);
  }
  Measures all;
  const auto gapAlong = [&](Direction way) { return (isAcross(way) ? columns : rows).gap(); };
  const auto halfAlong = [&](Direction way, Cell cell) {
    return (isAcross(way) ? columns.sizeOf(cell.x) : rows.sizeOf(cell.y)) / 2;
  };
  for (const PlacedBox& box : chart.boxes) {
    for (const Answer answer : answers) {
      if (box.exits[answer] != Direction::none) all.length += gapAlong(box.exits[answer]);
    }
  }
  for (const PlacedConnector& each : chart.connectors) {
    all.length += halfAlong(each.into, each.cell) + halfAlong(each.outOf, each.cell);
    all.length += gapAlong(each.outOf);
    all.bends += each.into != each.outOf ? 1U : 0U;
  }
  all.width = columns.length() / boxWidth;
  all.height = rows.length() / boxHeight;
  all.length /= boxWidth;
  all.crossings = crossings(chart);
  all.emptyCells = columns.count() * rows.count() - chart.boxes.size() - chart.connectors.size();
  return all;
}

GridChart laidOut(const ChartGraph& graph) {
  auto outcome = layOut(graph);
  auto* const layout = std::get_if<Layout>(&outcome);
  if (layout == nullptr) std::exit(2);
  return layout->chart;
}

double processorMilliseconds() {
  timespec time;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

double millisecondsFor(const ChartGraph& graph) {
  constexpr std::size_t rounds = 9;
  std::vector<double> times;
  for (std::size_t round = 0; round < rounds; ++round) {
    const double start = processorMilliseconds();
    keep(laidOut(graph).boxes.data());
    times.push_back(processorMilliseconds() - start);
  }
  std::sort(times.begin(), times.end());
  return times[rounds / 2];
}

// Name, boxes, boxes drawn, width, height, length of lines, bends, empty cells, crossings,
// milliseconds.
void printQuality(const Input& input) {
  const GridChart chart = laidOut(input.graph);
  const Measures all = measured(chart);
  std::printf("%s\t%zu\t%zu\t%.1f\t%.1f\t%.1f\t%zu\t%zu\t%zu\t%.4f\n", input.name.c_str(),
              input.graph.boxes.size(), chart.boxes.size(), all.width, all.height, all.length,
              all.bends, all.emptyCells, all.crossings, millisecondsFor(input.graph));
}

// A character is a tenth of an inch wide.
void printDot(const Input& input) {
  std::printf("digraph chart {\nnode [shape=box fixedsize=true width=%g height=%g label=\"\"]\n",
              boxWidth / 10, boxHeight / 10);
  std::printf("nodesep=%g\nranksep=%g\n", columnGap / 10, rowGap / 10);
  for (std::size_t box = 0; box < input.graph.boxes.size(); ++box) {
    std::printf("%zu\n", box);
    for (const Answer answer : answers) {
      const BoxNumber next = input.graph.boxes[box].exits[answer];
      if (next != noBox) std::printf("%zu -> %d\n", box, next);
    }
  }
  std::printf("}\n");
}

void contest(std::size_t boxes, bool isShared, double time) {
  const ChartGraph graph = generated(boxes, isShared);
  const double bar = boxes != 10'000 ? noBar : isShared ? mostWithSharing : mostForTree;
  compete(
      {isShared ? "lay out, 10 % shared" : "lay out a tree", std::to_string(boxes) + " boxes", 1},
      {{"Tavrel", Rival::itself, bar, [&graph] { keep(laidOut(graph).boxes.data()); }}}, time);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const std::string asked = argc > 1 ? argv[1] : "";
  if (asked == "--quality") {
    for (const Input& input : inputs()) printQuality(input);
  } else if (asked == "--dot" && argc == 3) {
    for (const Input& input : inputs()) {
      if (input.name == argv[2]) printDot(input);
    }
  } else {
    const double time = secondsAsked(argc, argv, seconds);
    keepFreedMemory();
    for (const bool isShared : {false, true}) {
      for (const std::size_t boxes : {1'000U, 2'500U, 5'000U, 10'000U, 20'000U}) {
        contest(boxes, isShared, time);
      }
    }
  }
}
