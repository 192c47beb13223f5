// What is looked at before a source is given to the reader of YAML.

#ifndef TAVREL_AUTHORING_SOURCESCREENING_H
#define TAVREL_AUTHORING_SOURCESCREENING_H

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Whether the file may be read: of bearable size, UTF-8 without a byte order mark, without
/// tabs and other control characters but for the line ends of Windows and Unix, and without
/// brackets within brackets without end, which cost a reader more than they are worth. Each that is
/// not so is a diagnostic, with the first place. Cost: one pass.
bool mayBeRead(const SourceFile& file, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCESCREENING_H
