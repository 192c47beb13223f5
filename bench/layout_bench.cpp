// How good is the layout of a chart, and how long does it take? Generated charts, trees and
// such with shared boxes.
//
//     layout_bench             a line for each chart: see print
//     layout_bench --dot NAME  the chart for graphviz's dot, its boxes of the same size

#include <time.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "authoring/Layout.h"
#include "tests/authoring/RandomGraph.h"

namespace tavrel::bench {
namespace {

using namespace authoring;

struct Input {
  std::string name;
  std::size_t boxes;
  std::size_t shareEvery;
};

const std::vector<Input> inputs = {{"tree-60", 60, 0},        {"shared-60", 60, 10},
                                   {"tree-360", 360, 0},      {"shared-360", 360, 10},
                                   {"tree-1000", 1000, 0},    {"shared-1000", 1000, 10},
                                   {"tree-10000", 10'000, 0}, {"shared-10000", 10'000, 10}};

ChartGraph graphOf(const Input& input) {
  return randomGraph(input.boxes, input.shareEvery, false, 20'240'229);
}

// What the picture of a chart measures whose boxes are all alike: 24 characters and 3 lines.
// A column is as wide as its boxes, and columns keep 7.5 characters between them; rows 1 line.
constexpr double boxWidth = 24, boxHeight = 3, columnGap = 7.5, rowGap = 1;

struct Measures {
  double width = 0, height = 0;  // in boxes
  double length = 0;             // of all lines, in box widths
  std::size_t bends = 0;
  std::size_t cells = 0, emptyCells = 0;
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

  // From the middle of a cell to that of a neighbour.
  double step(std::int32_t from, std::int32_t to) const {
    return (sizeOf(from) + sizeOf(to)) / 2 + gap_;
  }

  std::size_t count() const { return holdsBox_.size(); }

 private:
  double sizeOf(std::int32_t cell) const {
    const auto found = holdsBox_.find(cell);
    return found != holdsBox_.end() && found->second ? box_ : 0;
  }

  double box_, gap_;
  std::map<std::int32_t, bool> holdsBox_;
};

Measures measured(const GridChart& chart) {
  Scale columns(boxWidth, columnGap), rows(boxHeight, rowGap);
  for (const PlacedBox& box : chart.boxes)
    columns.add(box.cell.x, true), rows.add(box.cell.y, true);
  for (const PlacedConnector& connector : chart.connectors) {
    columns.add(connector.cell.x, false);
    rows.add(connector.cell.y, false);
  }
  Measures all;
  const auto addStep = [&](Cell from, Direction direction) {
    const Cell to = moved(from, direction);
    all.length += from.y == to.y ? columns.step(from.x, to.x) : rows.step(from.y, to.y);
  };
  for (const PlacedBox& box : chart.boxes) {
    for (const Answer answer : answers) {
      if (box.exits[answer] != Direction::none) addStep(box.cell, box.exits[answer]);
    }
  }
  for (const PlacedConnector& connector : chart.connectors) {
    addStep(connector.cell, connector.outOf);
    all.bends += connector.into != connector.outOf ? 1U : 0U;
  }
  all.width = columns.length() / boxWidth;
  all.height = rows.length() / boxHeight;
  all.length /= boxWidth;
  all.cells = chart.boxes.size() + chart.connectors.size();
  all.emptyCells = columns.count() * rows.count() - all.cells;
  return all;
}

double processorMilliseconds() {
  timespec time;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

// Name, boxes drawn, width, height, length, bends, cells, empty cells, milliseconds (median).
void print(const Input& input) {
  constexpr std::size_t rounds = 9;
  const ChartGraph graph = graphOf(input);
  std::vector<double> times;
  GridChart chart;
  for (std::size_t round = 0; round < rounds; ++round) {
    const double start = processorMilliseconds();
    auto outcome = layOut(graph);
    times.push_back(processorMilliseconds() - start);
    auto* const layout = std::get_if<Layout>(&outcome);
    if (layout == nullptr) std::exit(2);
    chart = std::move(layout->chart);
  }
  std::sort(times.begin(), times.end());
  const Measures all = measured(chart);
  std::printf("%s\t%zu\t%.1f\t%.1f\t%.1f\t%zu\t%zu\t%zu\t%.3f\n", input.name.c_str(),
              chart.boxes.size(), all.width, all.height, all.length, all.bends, all.cells,
              all.emptyCells, times[rounds / 2]);
}

// A character is a tenth of an inch wide, a line a fifth high.
void printDot(const Input& input) {
  const ChartGraph graph = graphOf(input);
  std::printf("digraph chart {\nnode [shape=box fixedsize=true width=%g height=%g label=\"\"]\n",
              boxWidth / 10, boxHeight / 5);
  std::printf("nodesep=%g\nranksep=%g\n", columnGap / 10, rowGap / 5);
  for (std::size_t box = 0; box < graph.boxes.size(); ++box) {
    for (const Answer answer : answers) {
      const BoxNumber next = graph.boxes[box].exits[answer];
      if (next != noBox) std::printf("%zu -> %d\n", box, next);
    }
  }
  std::printf("}\n");
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const std::string wanted = argc == 3 && std::string(argv[1]) == "--dot" ? argv[2] : "";
  for (const Input& input : inputs) {
    if (argc == 1) print(input);
    if (input.name == wanted) printDot(input);
  }
}
