// Whether a flowchart file is small enough to be drawn.

#ifndef TAVREL_AUTHORING_SIZECHECK_H
#define TAVREL_AUTHORING_SIZECHECK_H

#include "authoring/Diagnostic.h"
#include "authoring/FvFile.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Says where a chart has more rows than readers take, or a cell whose offset, as
/// docs/format.md computes it, doesn't fit into 32 bits. Cost: n log n in the cells, and one
/// pass over the file. False if it said anything. REQUIRES: the file was read from `source`, with
/// all its cells.
bool checkSize(const FvFile& file, const SourceFile& source, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SIZECHECK_H
