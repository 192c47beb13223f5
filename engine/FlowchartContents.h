// What a file makes of a flowchart.

#ifndef TAVREL_ENGINE_FLOWCHARTCONTENTS_H
#define TAVREL_ENGINE_FLOWCHARTCONTENTS_H

#include <optional>
#include <string>
#include <vector>

#include "engine/CTavrel.h"
#include "engine/ChartFile.h"
#include "engine/Position.h"
#include "engine/RowIndex.h"

namespace tavrel::engine {

/// What is thrown once a flowchart has taken its contents over.
enum class Failure {
  none,
  outOfRange,  ///< a box cell named a node that isn't there
  length,      ///< a negative number of boxes, or more than can be indexed or laid out
};

/// The parts of a flowchart that a file replaces, made before anything is replaced.
/// A part that the file leaves alone is empty; the bounds are the old ones then.
struct FlowchartContents {
  std::optional<std::vector<std::string>> intro;
  std::optional<std::vector<sScreenElement>> elements;
  std::optional<RowIndex> rowIndex;
  Bounds bounds;
  Failure failure;
};

/// The contents that a file gives to a flowchart with the bounds `old`. A flowchart
/// that is too large replaces nothing; one with too many rows is found to be so before
/// anything is made. Linear in the file's bytes and the rows between the bounds; a
/// flowchart whose cells lie far apart adds a sort of them.
FlowchartContents contentsOf(ChartFile&& file, const Bounds& old);

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_FLOWCHARTCONTENTS_H
