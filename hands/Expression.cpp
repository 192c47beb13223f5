#include "hands/Expression.h"

#include "hands/ExpressionTree.h"

namespace tavrel::hands {

class Expression::Compiler {
 public:
  Compiler(const std::string& text, const ExpressionTree& tree, Evaluation& evaluation,
           std::vector<Step>& steps)
      : text_(text), tree_(tree), evaluation_(evaluation), steps_(steps) {}

  // The step that a part of the tree begins with. What comes behind it is known before it.
  std::size_t compile(std::size_t at, std::size_t ifTrue, std::size_t ifFalse) {
    const ExpressionNode& node = tree_[at];
    if (node.kind == NodeKind::prefix && node.sign == Operator::negation) {
      return compile(node.operands[0], ifFalse, ifTrue);
    }
    if (node.kind == NodeKind::infix && node.sign == Operator::both) {
      const std::size_t second = compile(node.operands[1], ifTrue, ifFalse);
      return compile(node.operands[0], second, ifFalse);
    }
    if (node.kind == NodeKind::infix && node.sign == Operator::either) {
      const std::size_t second = compile(node.operands[1], ifTrue, ifFalse);
      return compile(node.operands[0], ifTrue, second);
    }
    steps_.push_back({Term(text_, tree_, at, evaluation_), ifTrue, ifFalse});
    return steps_.size() - 1;
  }

 private:
  const std::string& text_;
  const ExpressionTree& tree_;
  Evaluation& evaluation_;
  std::vector<Step>& steps_;
};

Expression::Expression(const std::string& text, Evaluation& evaluation) {
  std::vector<Fault> none;
  const ExpressionTree tree = treeOf(text, none);
  start_ = Compiler(text, tree, evaluation, steps_).compile(tree.size() - 1, yes, no);
}

}  // namespace tavrel::hands
