// Where the boxes of an unfolded chart stand: subtrees packed by their outlines.
//
// One child of a box stands beside it, in its row, the other below it, in its column, as far
// up as the outlines of the two subtrees let it. A subtree looks the same wherever it hangs.

#ifndef TAVREL_AUTHORING_TREELAYOUT_H
#define TAVREL_AUTHORING_TREELAYOUT_H

#include <cstdint>
#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/GridChart.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {

/// The least distances, in cells.
struct Spacing {
  std::int32_t beside;  ///< from a box to the one beside it
  std::int32_t below;   ///< from a box to the one that hangs below it
  std::int32_t apart;   ///< between boxes of one column that no line joins
};

/// For each node its cell, the root's (0, 0). Cost: n log n for n nodes.
std::vector<Cell> treeLayout(const Unfolding& tree, const ChartGraph& graph,
                             const Spacing& spacing);

/// In which direction the exit of a box leaves toward the box that hangs there.
Direction directionOf(Answer answer, Turn turn);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_TREELAYOUT_H
