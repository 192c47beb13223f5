// A part of a condition, worked out by muParser.

#ifndef TAVREL_HANDS_TERM_H
#define TAVREL_HANDS_TERM_H

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "hands/Evaluation.h"
#include "hands/ExpressionTree.h"

namespace mu {
class Parser;
}

namespace tavrel::hands {

/// What stands between && and ||, over the values of one Evaluation. Where a few small numbers
/// alone decide its truth, muParser is asked about all of them beforehand, and a look into a table
/// is all that is left.
class Term {
 public:
  /// The part of a tree that ends with the node `at`. REQUIRES: checkExpression() finds nothing
  /// wrong with the text, of which the tree is; `evaluation` outlives the term. Cost: some tens of
  /// microseconds.
  Term(std::string_view text, const ExpressionTree& tree, std::size_t at, Evaluation& evaluation);
  ~Term();
  Term(Term&&) noexcept;

  /// Its value for the hand and the table that the evaluation has now; true is 1. No allocation
  /// but at the first time.
  double value() const;

  bool isTrue() const;

 private:
  // A variable that decides, and how many values it may have.
  struct Axis {
    double* place;
    double parts;  // of one
    std::size_t count;
  };

  bool addAxes(const ExpressionTree& tree, std::size_t at, Evaluation& evaluation);
  bool addAxis(const VariableName& name, Evaluation& evaluation);
  void fill();

  std::unique_ptr<mu::Parser> program_;
  std::vector<Axis> axes_;
  std::vector<char> truths_;  // by the values on the axes, the last running fastest; or none
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_TERM_H
