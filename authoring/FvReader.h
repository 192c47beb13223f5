// The strict reader of flowchart files.

#ifndef TAVREL_AUTHORING_FVREADER_H
#define TAVREL_AUTHORING_FVREADER_H

#include <optional>

#include "authoring/Diagnostic.h"
#include "authoring/FvFile.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Reads a file as docs/format.md describes it, and says everything in which it departs from
/// that. A fault in the introduction or in a node ends the reading, since nobody can tell where
/// the next one begins: nothing comes back then. Cells stand on a line each, and a fault in one
/// doesn't keep the others from being read; bytes that have no business in a file keep nothing
/// from being read.
///
/// Cost: one pass; memory in proportion to the lines, whatever counts they claim.
std::optional<FvFile> readFv(const SourceFile& file, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FVREADER_H
