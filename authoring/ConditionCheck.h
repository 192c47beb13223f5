// Whether a hand can answer all of a chart.

#ifndef TAVREL_AUTHORING_CONDITIONCHECK_H
#define TAVREL_AUTHORING_CONDITIONCHECK_H

#include "authoring/ChartSource.h"
#include "authoring/Diagnostic.h"

namespace tavrel::authoring {

/// Warns of questions that have no condition and aren't said to need judgement, and of ends that
/// make no call, in a chart that says anything about hands. An end whose `next` is self may leave
/// the call to the chart that it leads into. Boxes that aren't sure are left out. Cost: linear.
void checkConditions(const ChartSource& source, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CONDITIONCHECK_H
