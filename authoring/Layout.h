// From what an author says of a chart to its cells on the grid.
//
// The root stands at (0, 0); yes goes right and no goes down, unless a box is turned. A chart
// that is a tree puts boxes side by side without a connector cell between them, and at least
// one between a box and the one below it. Where boxes are reached from several places, every
// second row and column is kept free for the lines.

#ifndef TAVREL_AUTHORING_LAYOUT_H
#define TAVREL_AUTHORING_LAYOUT_H

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/GridChart.h"

namespace tavrel::authoring {

struct Layout {
  GridChart chart;
  /// Boxes with exits that stand more than once, each once. Those within a repeated part, which
  /// stand more than once with it, are left out.
  std::vector<BoxNumber> repeated;
};

/// A line back to an earlier box for which there is no way.
struct NoWayBack {
  BoxNumber from, to;
};

/// More boxes than a chart may have on the grid.
struct TooManyCells {
  BoxNumber mostRepeated;
  std::size_t times;
};

/// The same graph always has the same layout. Cost: n log n for a tree of n boxes, and for
/// each further line a search of bounded length.
std::variant<Layout, NoWayBack, TooManyCells> layOut(const ChartGraph& graph);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_LAYOUT_H
