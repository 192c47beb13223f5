// The text that stands before a flowchart.

#ifndef TAVREL_HOSTS_TAVREL_INTRODUCTION_H
#define TAVREL_HOSTS_TAVREL_INTRODUCTION_H

#include <string>
#include <vector>

#include "hosts/tavrel/Library.h"
#include "text/Text.h"

namespace tavrel {

/// The printable lines of a flowchart's introduction, read from its file at each
/// call. Throws Failure when the file can't be opened or holds none.
std::vector<std::string> introductionOf(const Library& library, const CatalogueEntry& chart,
                                        Charset charset);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_INTRODUCTION_H
