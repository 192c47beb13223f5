// Words of a source or a file as messages show them.

#ifndef TAVREL_AUTHORING_INSHORT_H
#define TAVREL_AUTHORING_INSHORT_H

#include <string>
#include <string_view>

namespace tavrel::authoring {

/// A word fit to be printed: of a long one the first 40 characters, and "…" behind them.
std::string inShort(std::string_view word);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_INSHORT_H
