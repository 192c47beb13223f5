// From a source to the file of a chart.

#ifndef TAVREL_AUTHORING_COMPILER_H
#define TAVREL_AUTHORING_COMPILER_H

#include <optional>
#include <string>

#include "authoring/ChartSource.h"
#include "authoring/Diagnostic.h"
#include "authoring/GridChart.h"
#include "authoring/SourceFile.h"
#include "authoring/SourceReader.h"

namespace tavrel::authoring {

struct CompiledChart {
  ChartSource source;
  GridChart grid;     ///< where the boxes of the source stand
  std::string bytes;  ///< of the .fv file
};

/// Reads a source, lays it out and writes the file. Everything that was found is in `found`;
/// nothing comes back if there was an error. The same source always gives the same bytes.
std::optional<CompiledChart> compile(const SourceFile& file, const Catalogue& catalogue,
                                     Diagnostics& found);

/// The same for a source that was read without an error.
std::optional<CompiledChart> compile(ChartSource source, Diagnostics& found);

/// Says that a chart has another name than its file, if it has.
void checkFileName(const ChartSource& source, const std::string& fileName, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_COMPILER_H
