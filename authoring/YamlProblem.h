// What yaml-cpp says when it gives up, in an author's words.

#ifndef TAVREL_AUTHORING_YAMLPROBLEM_H
#define TAVREL_AUTHORING_YAMLPROBLEM_H

#include <yaml-cpp/exceptions.h>

#include <cstddef>
#include <optional>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// What is said of a text that begins with *.
constexpr const char* aliasText = "YAML keeps * at the beginning of a text for itself";

/// The offset of an alias that yaml-cpp can't resolve, which ends its reading; nothing for another
/// problem.
std::optional<std::size_t> aliasIn(const YAML::ParserException& problem, const SourceFile& file);

/// Adds the diagnostic for the problem, and takes back those from its line on: yaml-cpp says what
/// it looked for in vain, which tells an author little. Returns the line from which on nothing is
/// sure.
std::size_t reportSyntax(const YAML::ParserException& problem, const SourceFile& file,
                         Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_YAMLPROBLEM_H
