// A condition as a program.

#ifndef TAVREL_HANDS_EXPRESSION_H
#define TAVREL_HANDS_EXPRESSION_H

#include <cstddef>
#include <string>
#include <vector>

#include "hands/Evaluation.h"
#include "hands/Term.h"

namespace tavrel::hands {

/// An expression over the values of one Evaluation, compiled once: its terms are muParser's, and
/// && and || are followed no further than they matter.
class Expression {
 public:
  /// REQUIRES: checkExpression() finds nothing wrong with the text; `evaluation` outlives the
  /// expression. Cost: some tens of microseconds for each term.
  Expression(const std::string& text, Evaluation& evaluation);

  /// Its value for the hand and the table that the evaluation has now; true is 1. Cost: some
  /// nanoseconds for each name and operator; no allocation but at the first time.
  double value() const { return isOneTerm() ? steps_[0].term.value() : (isTrue() ? 1 : 0); }

  bool isTrue() const {
    std::size_t at = start_;
    while (at < no) at = steps_[at].term.isTrue() ? steps_[at].ifTrue : steps_[at].ifFalse;
    return at == yes;
  }

 private:
  static constexpr std::size_t yes = static_cast<std::size_t>(-1), no = yes - 1;

  struct Step {
    Term term;
    std::size_t ifTrue, ifFalse;  // the next step, or the answer
  };

  bool isOneTerm() const { return steps_.size() == 1 && steps_[0].ifTrue == yes; }

  class Compiler;

  std::vector<Step> steps_;
  std::size_t start_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_EXPRESSION_H
