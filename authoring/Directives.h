// Lines that tell a reader of YAML how to read.

#ifndef TAVREL_AUTHORING_DIRECTIVES_H
#define TAVREL_AUTHORING_DIRECTIVES_H

#include <cstddef>
#include <vector>

#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// The offsets of the lines such as "%YAML 1.2" that stand before anything else but remarks.
std::vector<std::size_t> directivesIn(const SourceFile& file);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_DIRECTIVES_H
