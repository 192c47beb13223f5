// How a chart is to be laid out: what hangs where, which way boxes are turned, and which lines
// are drawn before others.

#ifndef TAVREL_AUTHORING_PLAN_H
#define TAVREL_AUTHORING_PLAN_H

#include <set>

#include "authoring/ChartGraph.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {

struct Plan {
  ChartGraph graph;  ///< the author's, some of its boxes turned
  Hanging hanging;
  std::set<Exit> first;  ///< lines that are drawn before others
};

/// The plan that leaves fewest lines without a way, of those that are tried. It starts from yes
/// to the right and no down, and goes another way only where that saves a line; boxes turned by
/// their author are left alone, and so is all that hangs in a tree without lines. The same graph
/// always has the same plan. Cost: at most as much as drawing a few thousand boxes a few times.
Plan bestPlan(const ChartGraph& graph);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_PLAN_H
