// Whether a flowchart file can be walked.

#ifndef TAVREL_AUTHORING_WALKCHECK_H
#define TAVREL_AUTHORING_WALKCHECK_H

#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/Diagnostic.h"
#include "authoring/FvFile.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Says everything that keeps a walk from going forward and back through the cells, and a
/// reader from drawing them. Returns where the exits of each box cell lead: to a box cell by
/// its number, or noBox where there is no exit or no whole line.
///
/// Cost: n log n in the cells.
/// REQUIRES: the file was read from `source`, with all its cells.
std::vector<ByAnswer<BoxNumber>> checkWalk(const FvFile& file, const SourceFile& source,
                                           Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_WALKCHECK_H
