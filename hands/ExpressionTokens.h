// The words, numbers and signs of an expression.

#ifndef TAVREL_HANDS_EXPRESSIONTOKENS_H
#define TAVREL_HANDS_EXPRESSIONTOKENS_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "hands/ExpressionCheck.h"

namespace tavrel::hands {

enum class Operator : std::uint8_t {
  either,  ///< ||
  both,    ///< &&
  less,
  atMost,
  greater,
  atLeast,
  equal,
  unequal,
  plus,
  minus,
  times,
  by,  ///< divided
  negation,
};

enum class TokenKind : std::uint8_t {
  number,
  name,
  sign,  ///< an operator
  open,
  close,
  comma,
  question,
  colon,
  unknown,  ///< a fault was found in it; it may be a value
  end,
};

struct Token {
  TokenKind kind = TokenKind::end;
  std::size_t offset = 0, size = 0;
  Operator sign = Operator::both;  ///< of a sign

  std::size_t end() const { return offset + size; }
};

/// The tokens of an expression, with one of the kind `end` behind the last. What is spelled as
/// elsewhere ("and", "≥", a single "=") is a fault, and a token as if it were spelled right.
std::vector<Token> tokensOf(std::string_view text, std::vector<Fault>& faults);

/// "&&", ">=" …
std::string_view spellingOf(Operator sign);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_EXPRESSIONTOKENS_H
