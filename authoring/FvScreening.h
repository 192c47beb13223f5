// Bytes that have no business in a flowchart file.

#ifndef TAVREL_AUTHORING_FVSCREENING_H
#define TAVREL_AUTHORING_FVSCREENING_H

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Says which bytes are not UTF-8, which are byte order marks, carriage returns or control
/// characters. Tabs and other blanks of ASCII may stand between numbers, and are left to the
/// reader. False if the file is in UTF-16, and there is no use in reading it. Cost: a few passes.
bool mayFvBeRead(const SourceFile& file, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FVSCREENING_H
