// What a chart means to those who walk it.

#ifndef TAVREL_AUTHORING_MEANINGCHECK_H
#define TAVREL_AUTHORING_MEANINGCHECK_H

#include "authoring/Diagnostic.h"
#include "authoring/ReadChart.h"
#include "authoring/SourceReader.h"

namespace tavrel::authoring {

/// Warns of what is likely to be a mistake in the introduction and the contents of the boxes,
/// whatever ways lead through the chart. What several boxes share is warned of once. Cost: linear.
void checkTexts(const ReadChart& chart, const Catalogue& catalogue, Diagnostics& found);

/// Warns of what is likely to be a mistake in a box: its exits, and whether it asks. What isn't
/// sure is left out, here as in checkTexts(). checkWays() does it too. Cost: linear.
void checkBoxes(const ReadChart& chart, Diagnostics& found);

/// Warns of what is likely to be a mistake in the ways through the chart.
///
/// Cost: linear, but for the questions that stand on one path twice: these are found in linear
/// time for each 256 questions that several boxes ask. Beyond 50,000 such questions a note says
/// that they aren't looked for; a file of 2 MB has no room for so many.
void checkWays(const ReadChart& chart, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_MEANINGCHECK_H
