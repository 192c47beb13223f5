// A condition as a program.

#ifndef TAVREL_HANDS_EXPRESSION_H
#define TAVREL_HANDS_EXPRESSION_H

#include <memory>
#include <string>

#include "hands/Evaluation.h"

namespace tavrel::hands {

/// An expression over the values of one Evaluation, compiled once. Its comparisons, sums and
/// signs between truths are followed here, no further than they matter; muParser works out the
/// rest.
class Expression {
 public:
  /// REQUIRES: checkExpression() finds nothing wrong with the text; `evaluation` outlives the
  /// expression. Cost: some tens of microseconds.
  Expression(const std::string& text, Evaluation& evaluation);
  ~Expression();
  Expression(Expression&&) noexcept;
  Expression& operator=(Expression&&) noexcept;

  /// Its value for the hand and the table that the evaluation has now; true is 1. Cost: some
  /// nanoseconds for each name and operator; no allocation but at the first time.
  double value() const;

  bool isTrue() const;

 private:
  class Program;

  std::unique_ptr<const Program> program_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_EXPRESSION_H
