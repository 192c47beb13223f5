// From what a source says of hands to the conditions of its chart.

#ifndef TAVREL_HANDS_CONDITIONCOMPILER_H
#define TAVREL_HANDS_CONDITIONCOMPILER_H

#include <optional>

#include "authoring/ChartSource.h"
#include "authoring/Compiler.h"
#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"
#include "hands/Conditions.h"

namespace tavrel::hands {

/// Whether the source says anything of hands.
bool hasConditions(const authoring::ChartSource& source);

/// Says what is wrong with the expressions, calls and patterns of a source, which may have been
/// read in part.
void checkConditions(const authoring::ChartSource& source, const authoring::SourceFile& file,
                     authoring::Diagnostics& found);

/// Compiles a source as authoring::compile() does, with everything in `found` that
/// checkConditions() has to say too.
std::optional<authoring::CompiledChart> compileWithConditions(const authoring::SourceFile& file,
                                                              const authoring::Catalogue& catalogue,
                                                              authoring::Diagnostics& found);

/// The conditions of a compiled chart. REQUIRES: checkConditions() found no error in its source.
Conditions conditionsOf(const authoring::CompiledChart& chart);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_CONDITIONCOMPILER_H
