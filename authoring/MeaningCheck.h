// What a chart means to those who walk it.

#ifndef TAVREL_AUTHORING_MEANINGCHECK_H
#define TAVREL_AUTHORING_MEANINGCHECK_H

#include "authoring/Diagnostic.h"
#include "authoring/ReadChart.h"
#include "authoring/SourceReader.h"

namespace tavrel::authoring {

/// Warns of what is likely to be a mistake although the chart can be walked. What several boxes
/// share is warned of once.
///
/// Cost: linear, but for the questions that stand on one path twice: these are looked for in
/// steps along the exits, ten million at most, which is enough for any chart of 3,000 boxes.
void checkMeaning(const ReadChart& chart, const Catalogue& catalogue, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_MEANINGCHECK_H
