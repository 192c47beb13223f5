// Writes the file of a chart, as the engine reads it.

#ifndef TAVREL_AUTHORING_FVWRITER_H
#define TAVREL_AUTHORING_FVWRITER_H

#include <string>

#include "authoring/ChartSource.h"
#include "authoring/GridChart.h"

namespace tavrel::authoring {

/// The bytes of the file: a node for each box of the source, in its order, and the cells.
/// The same chart always gives the same bytes.
std::string fvFile(const ChartSource& source, const GridChart& chart);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FVWRITER_H
