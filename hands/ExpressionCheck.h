// What is wrong with an expression, and what it is about.

#ifndef TAVREL_HANDS_EXPRESSIONCHECK_H
#define TAVREL_HANDS_EXPRESSIONCHECK_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Diagnostic.h"
#include "hands/Names.h"

namespace tavrel::hands {

/// One thing that is wrong with a text, and how to mend it.
struct Fault {
  authoring::Code code;
  std::size_t offset;  ///< in the text, in bytes
  std::string text;
  std::string cure;
};

/// A variable or a function that an expression names; constants are none.
struct NameUse {
  std::size_t offset, size;      ///< of what the use is in the text: a function with its arguments
  const VariableName* variable;  ///< nullptr for a function
  const FunctionName* function;  ///< nullptr for a variable
};

struct CheckedExpression {
  std::vector<Fault> faults;  ///< none: the expression can be compiled
  std::vector<NameUse> uses;  ///< in their order; an inner one follows the one around it
  unsigned basis = noCards;   ///< of all of them together: see Basis
  bool needsTable = false;    ///< whether the auction or vulnerability matters
};

/// Checks that a text is an expression of a type. Cost: linear in the text; what is nested deeper
/// than 100 levels is a fault.
CheckedExpression checkExpression(std::string_view text, Type wanted);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_EXPRESSIONCHECK_H
