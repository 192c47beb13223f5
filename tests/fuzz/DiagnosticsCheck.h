// What must be true of everything that is said of a file, whatever the file holds.

#ifndef TAVREL_TESTS_FUZZ_DIAGNOSTICSCHECK_H
#define TAVREL_TESTS_FUZZ_DIAGNOSTICSCHECK_H

#include <cstddef>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::fuzz {

/// Each has a code with a section and names a place that the file has; the first of each code
/// can be shown on a few lines without a control character.
void checkDiagnostics(const authoring::Diagnostics& found, const authoring::SourceFile& file);

/// The memory that they take, texts included.
std::size_t sizeOf(const authoring::Diagnostics& found);

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_DIAGNOSTICSCHECK_H
