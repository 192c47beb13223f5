// The names that expressions have for what is known of a hand and of the table. docs/hands.md
// defines each; Evaluation says what it is.

#ifndef TAVREL_HANDS_NAMES_H
#define TAVREL_HANDS_NAMES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::hands {

/// What a value is; numbers alone can be reckoned with.
enum class Type : std::uint8_t { number, truth, suit, call };

/// The variables, in the order of variableNames().
enum class Variable : std::uint8_t {
  hcp,
  points,
  spades,
  hearts,
  diamonds,
  clubs,
  longest,
  second,
  longestSuit,
  secondSuit,
  balanced,
  semibalanced,
  quick,
  losers,
  controls,
  aces,
  kings,
  voids,
  singletons,
  doubletons,
  support,
  theirs,
  partners,
  seat,
  vulnerable,
  theyVulnerable,
  passedHand,
};
inline constexpr std::size_t variableCount = static_cast<std::size_t>(Variable::passedHand) + 1;

/// What about each suit decides a name's value, as bits: hands that agree in it for every suit
/// have the same value, at the same table.
enum Basis : unsigned {
  noCards = 0,
  lengths = 1U << 0,
  highCardPoints = 1U << 1,
  controlCount = 1U << 2,
  quickTricks = 1U << 3,
  loserCount = 1U << 4,
  aceCount = 1U << 5,
  kingCount = 1U << 6,
  topHonours = 1U << 7,  ///< which of A, K, Q, J, 10
};

struct VariableName {
  std::string_view name;
  Variable variable;
  Type type;
  unsigned basis;
  int most;       ///< of any hand
  int parts = 1;  ///< the value is a whole number of so many parts of one
};

struct ConstantName {
  std::string name;
  double value;
  Type type;
};

enum class Function : std::uint8_t {
  length,
  shape,
  exact,
  stopper,
  tops,
  partner,
  left,
  right,
  own,
  suitOf,
  level,
  max,
  min,
};

struct FunctionName {
  std::string_view name;
  Function function;
  std::vector<Type> arguments;  ///< of max and min, the type of each
  bool takesAnyNumber;          ///< of arguments, one at least
  Type result;
  unsigned basis;
};

const std::vector<VariableName>& variableNames();

/// C D H S, noCall, cP, cX, cXX, and c1C to c7NT.
const std::vector<ConstantName>& constantNames();

const std::vector<FunctionName>& functionNames();

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_NAMES_H
