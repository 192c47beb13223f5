// The value of an expression, worked out step by step as its tree says: slow, and simple enough
// to be believed.

#ifndef TAVREL_TESTS_HANDS_PLAINEVALUATION_H
#define TAVREL_TESTS_HANDS_PLAINEVALUATION_H

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "hands/Evaluation.h"
#include "hands/ExpressionTree.h"

namespace tavrel::hands {

class PlainEvaluation {
 public:
  explicit PlainEvaluation(const Evaluation& evaluation) : evaluation_(evaluation) {}

  /// REQUIRES: checkExpression() finds nothing wrong with the text.
  double valueOf(std::string_view text) const {
    std::vector<Fault> faults;
    const ExpressionTree tree = treeOf(text, faults);
    return valueOf(tree, tree.back());
  }

 private:
  double valueOf(const ExpressionTree& tree, const ExpressionNode& node) const {
    const auto operand = [&](std::size_t i) { return valueOf(tree, tree[node.operands[i]]); };
    switch (node.kind) {
      case NodeKind::number:
        return node.value;
      case NodeKind::variable:
        return evaluation_[node.variable->variable];
      case NodeKind::constant:
        return node.constant->value;
      case NodeKind::prefix:
        return node.sign == Operator::minus ? -operand(0) : (operand(0) == 0 ? 1 : 0);
      case NodeKind::infix:
        return outcome(node.sign, operand(0), operand(1));
      case NodeKind::choice:
        return operand(0) != 0 ? operand(1) : operand(2);
      case NodeKind::call: {
        std::vector<double> arguments;
        for (std::size_t i = 0; i < node.operands.size(); ++i) arguments.push_back(operand(i));
        return called(node.function->function, arguments);
      }
      default:
        throw std::logic_error("a node that is a fault");
    }
  }

  static double outcome(Operator sign, double a, double b) {
    switch (sign) {
      case Operator::either:
        return a != 0 || b != 0;
      case Operator::both:
        return a != 0 && b != 0;
      case Operator::less:
        return a < b;
      case Operator::atMost:
        return a <= b;
      case Operator::greater:
        return a > b;
      case Operator::atLeast:
        return a >= b;
      case Operator::equal:
        return a == b;
      case Operator::unequal:
        return a != b;
      case Operator::plus:
        return a + b;
      case Operator::minus:
        return a - b;
      case Operator::times:
        return a * b;
      default:
        return a / b;
    }
  }

  double called(Function function, const std::vector<double>& a) const {
    switch (function) {
      case Function::length:
        return evaluation_.length(a[0]);
      case Function::shape:
        return evaluation_.shape(a[0], a[1], a[2], a[3]);
      case Function::exact:
        return evaluation_.exact(a[0], a[1], a[2], a[3]);
      case Function::stopper:
        return evaluation_.stopper(a[0]);
      case Function::tops:
        return evaluation_.tops(a[0], a[1]);
      case Function::partner:
        return evaluation_.callOf(Player::partner, a[0]);
      case Function::left:
        return evaluation_.callOf(Player::left, a[0]);
      case Function::right:
        return evaluation_.callOf(Player::right, a[0]);
      case Function::own:
        return evaluation_.callOf(Player::self, a[0]);
      case Function::suitOf:
        return suitOf(a[0]);
      case Function::level:
        return level(a[0]);
      case Function::max:
        return *std::max_element(a.begin(), a.end());
      default:
        return *std::min_element(a.begin(), a.end());
    }
  }

  const Evaluation& evaluation_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_TESTS_HANDS_PLAINEVALUATION_H
