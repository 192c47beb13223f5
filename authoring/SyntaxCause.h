// Why YAML gives up: the slip of an author behind it, which often stands some lines above.

#ifndef TAVREL_AUTHORING_SYNTAXCAUSE_H
#define TAVREL_AUTHORING_SYNTAXCAUSE_H

#include <cstddef>
#include <optional>

#include "authoring/Cause.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// The first thing in a file that no chart can hold, not looked for behind a line, from 1. For
/// files that YAML can't read: it knows the form that charts have, and of YAML no more than
/// that. Nothing if it knows of nothing. Cost: one pass.
std::optional<Cause> causeOfSyntaxError(const SourceFile& file, std::size_t lastLine);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SYNTAXCAUSE_H
