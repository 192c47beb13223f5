// A chart on the grid, as it unfolds: its boxes where the tree puts them, and lines as long as
// there is a way for them.

#ifndef TAVREL_AUTHORING_SKETCH_H
#define TAVREL_AUTHORING_SKETCH_H

#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/Faces.h"
#include "authoring/GridChart.h"
#include "authoring/Router.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {

/// Charts with more nodes than that have shorter searches.
constexpr std::size_t fewNodes = 2000;

class Sketch {
 public:
  /// The boxes, and what hangs from them. Graph and tree must outlive the sketch; `stepsLeft`
  /// is what its searches may still cost, and goes down with them.
  Sketch(const ChartGraph& graph, const Unfolding& tree, std::size_t& stepsLeft);

  /// Draws the lines: those from the exits in `first` before all others, then those back, since
  /// nothing can take their place, and short ones before long ones. Returns those that have no
  /// way.
  std::vector<LineStart> drawLines(const std::set<Exit>& first);

  GridChart take() { return std::move(chart_); }

 private:
  Cell cellOf(NodeNumber node) const { return cells_[static_cast<std::size_t>(node)]; }
  Direction wantedOf(const LineStart& line) const;
  std::vector<Direction> exitsOf(const LineStart& line, NodeNumber to) const;
  std::int64_t distance(const LineStart& line, NodeNumber to) const;
  std::vector<NodeNumber> targetsOf(const LineStart& line) const;
  std::int64_t distanceOfNearest(const LineStart& line) const;
  std::vector<LineStart> inOrder(const std::set<Exit>& first) const;
  bool draw(const LineStart& line);
  void put(const LineStart& line, const Line& drawn);
  void drawTree();
  void prepareLines();

  const ChartGraph& graph_;
  const Unfolding& tree_;
  std::vector<LineStart> lines_;
  std::vector<Cell> cells_;
  Router router_;
  Faces faces_;
  GridChart chart_;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SKETCH_H
