// The numbers behind an answer, as bridge players say them.

#ifndef TAVREL_HANDS_REASONS_H
#define TAVREL_HANDS_REASONS_H

#include <string>
#include <vector>

#include "hands/Evaluation.h"

namespace tavrel::hands {

/// One thing that an expression looks at, and what it is for a hand at a table.
struct Reason {
  std::string source;  ///< how the expression names it: "hcp", "length(theirs)"
  double value;        ///< as the expression sees it
  std::string text;    ///< "16 HCP", "not balanced", "4 hearts"
  std::string brief;   ///< the same where it is the only reason: "16"
  std::string detail;  ///< how it comes about, "A4 Q2 K3"; may be empty
};

/// What the hand and the table of the evaluation have of all that the expression names, each once,
/// in its order. Functions that only hand on what they are given (max, suitOf) are left out.
/// REQUIRES: checkExpression() finds nothing wrong with it. Cost: some tens of microseconds for
/// each function in it.
std::vector<Reason> reasonsOf(const std::string& expression, Evaluation& evaluation);

/// "16 (A4 Q2 K3 J1 K3 Q2 J1)" for one, "16 HCP (A4 …), balanced (4-3-3-3)" for several.
std::string shown(const std::vector<Reason>& reasons);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_REASONS_H
