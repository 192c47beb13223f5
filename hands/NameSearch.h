// Looks for the names of expressions, and for what a person may have meant by others.

#ifndef TAVREL_HANDS_NAMESEARCH_H
#define TAVREL_HANDS_NAMESEARCH_H

#include <string>
#include <string_view>

#include "hands/Names.h"

namespace tavrel::hands {

/// What a name stands for: one of these, or none.
struct KnownName {
  const VariableName* variable = nullptr;
  const ConstantName* constant = nullptr;
  const FunctionName* function = nullptr;
};

/// Capitals matter.
KnownName nameOf(std::string_view word);

/// What to do about a word that is no name.
std::string cureOfUnknown(std::string_view word);

/// "length(S)", "shape(5, 3, 3, 2)" …
std::string_view exampleOf(Function function);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_NAMESEARCH_H
