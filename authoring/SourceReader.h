// Reads a chart's source.

#ifndef TAVREL_AUTHORING_SOURCEREADER_H
#define TAVREL_AUTHORING_SOURCEREADER_H

#include <optional>
#include <string>
#include <vector>

#include "authoring/ChartSource.h"
#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// The file names of the catalogue.
using Catalogue = std::vector<std::string>;

/// Reads a source and says everything that is wrong with it. Lines may end as on Windows too.
/// Nothing comes back if there was an error; what does come back has a start and exits that lead
/// to boxes.
std::optional<ChartSource> readSource(const SourceFile& file, const Catalogue& catalogue,
                                      Diagnostics& found);

/// The same, but what could be read comes back although there are errors. Its start and exits may
/// be noBox then, its name empty, and texts left out: what isn't sure says so. Nothing comes back
/// of a source that couldn't be read to its end.
std::optional<ChartSource> readInPart(const SourceFile& file, const Catalogue& catalogue,
                                      Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCEREADER_H
