// The files that a chart is compiled into.

#ifndef TAVREL_HOSTS_TAVREL_CHARTFILES_H
#define TAVREL_HOSTS_TAVREL_CHARTFILES_H

#include <filesystem>

#include "authoring/Compiler.h"

namespace tavrel {

/// Where the conditions of a flowchart file stand: NAME.when beside NAME.fv.
std::filesystem::path conditionsBeside(const std::filesystem::path& flowchart);

/// Writes a flowchart file and, beside it, the conditions of a chart that says anything of hands.
/// Those that an earlier compilation left of one that doesn't any more are removed. Standard
/// output, a device or a pipe gets the flowchart alone. Throws Failure as writeOutput() does, and
/// where the flowchart would have the name of its conditions.
void writeChart(const std::filesystem::path& flowchart, const authoring::CompiledChart& chart);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_CHARTFILES_H
