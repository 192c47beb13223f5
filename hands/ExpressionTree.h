// How the parts of an expression hang together.

#ifndef TAVREL_HANDS_EXPRESSIONTREE_H
#define TAVREL_HANDS_EXPRESSIONTREE_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "hands/ExpressionCheck.h"
#include "hands/ExpressionTokens.h"
#include "hands/Names.h"

namespace tavrel::hands {

/// A part of a text, in bytes.
struct Span {
  std::size_t offset = 0, end = 0;

  std::string_view in(std::string_view text) const { return text.substr(offset, end - offset); }
};

enum class NodeKind : std::uint8_t {
  unknown,  ///< a fault was found in it
  number,
  variable,
  constant,
  call,    ///< of a function, with its arguments
  prefix,  ///< a sign before one operand
  infix,   ///< a sign between two
  choice,  ///< a condition ? one value : another
};

struct ExpressionNode {
  NodeKind kind = NodeKind::unknown;
  Span own;                   ///< without parentheses round it
  Span whole;                 ///< with them
  std::size_t signPlace = 0;  ///< of the operator
  Operator sign = Operator::both;
  double value = 0;  ///< of a number
  const VariableName* variable = nullptr;
  const ConstantName* constant = nullptr;
  const FunctionName* function = nullptr;
  std::vector<std::size_t> operands;  ///< by their places among the nodes
};

/// Operands stand before what is made of them: the root is the last. Without one there was no
/// expression.
using ExpressionTree = std::vector<ExpressionNode>;

/// Reads an expression. Faults in its spelling, its names and the way it is put together are
/// added to `faults`; if the last kind is among them, there is no tree. Types and arguments are
/// not looked at. Binding, from the loosest: ?: (to the right), ||, &&, one comparison, + and -,
/// * and /, one sign before a value.
ExpressionTree treeOf(std::string_view text, std::vector<Fault>& faults);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_EXPRESSIONTREE_H
