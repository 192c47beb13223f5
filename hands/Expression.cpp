#include "hands/Expression.h"

#include <muParser.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "hands/ExpressionTree.h"

namespace tavrel::hands {
namespace {

const Evaluation& from(void* evaluation) { return *static_cast<const Evaluation*>(evaluation); }

double length(void* hand, double suit) { return from(hand).length(suit); }

double shape(void* hand, double a, double b, double c, double d) {
  return from(hand).shape(a, b, c, d);
}

double exact(void* hand, double spades, double hearts, double diamonds, double clubs) {
  return from(hand).exact(spades, hearts, diamonds, clubs);
}

double stopper(void* hand, double suit) { return from(hand).stopper(suit); }

double tops(void* hand, double suit, double count) { return from(hand).tops(suit, count); }

template <Player player>
double callOf(void* hand, double n) {
  return from(hand).callOf(player, n);
}

double largest(const double* values, int count) {
  return *std::max_element(values, values + count);
}

double smallest(const double* values, int count) {
  return *std::min_element(values, values + count);
}

double negation(double value) { return value == 0 ? 1 : 0; }

// A function whose value hangs on the hand or the table may not be worked out beforehand.
void define(mu::Parser& program, Function function, const std::string& name, void* evaluation) {
  constexpr bool isConstant = false;
  switch (function) {
    case Function::length:
      return program.DefineFunUserData(name, length, evaluation, isConstant);
    case Function::shape:
      return program.DefineFunUserData(name, shape, evaluation, isConstant);
    case Function::exact:
      return program.DefineFunUserData(name, exact, evaluation, isConstant);
    case Function::stopper:
      return program.DefineFunUserData(name, stopper, evaluation, isConstant);
    case Function::tops:
      return program.DefineFunUserData(name, tops, evaluation, isConstant);
    case Function::partner:
      return program.DefineFunUserData(name, callOf<Player::partner>, evaluation, isConstant);
    case Function::left:
      return program.DefineFunUserData(name, callOf<Player::left>, evaluation, isConstant);
    case Function::right:
      return program.DefineFunUserData(name, callOf<Player::right>, evaluation, isConstant);
    case Function::own:
      return program.DefineFunUserData(name, callOf<Player::self>, evaluation, isConstant);
    case Function::suitOf:
      return program.DefineFun(name, suitOf);
    case Function::level:
      return program.DefineFun(name, level);
    case Function::max:
      return program.DefineFun(name, largest);
    case Function::min:
      return program.DefineFun(name, smallest);
  }
}

std::unique_ptr<mu::Parser> parserOf(const std::string& text, Evaluation& evaluation) {
  auto parser = std::make_unique<mu::Parser>();
  parser->ClearFun();
  parser->ClearConst();
  parser->DefineInfixOprt("!", negation);
  for (const VariableName& name : variableNames()) {
    parser->DefineVar(std::string(name.name), evaluation.placeOf(name.variable));
  }
  for (const ConstantName& name : constantNames()) parser->DefineConst(name.name, name.value);
  for (const FunctionName& name : functionNames()) {
    define(*parser, name.function, std::string(name.name), &evaluation);
  }
  parser->SetExpr(text);
  return parser;
}

}  // namespace

// The nodes of the tree that are followed here; each of the others is a parser's.
class Expression::Program {
 public:
  Program(const std::string& text, Evaluation& evaluation) : text_(text), evaluation_(evaluation) {
    std::vector<Fault> none;
    const ExpressionTree tree = treeOf(text_, none);
    nodes_.reserve(tree.size());
    for (const ExpressionNode& node : tree) nodes_.push_back(nodeOf(node));
    for (Node& node : nodes_) {
      if (node.kind == Kind::value) node.place = &node.value;
      node.left = nodes_[node.first].place;
      node.right = nodes_[node.second].place;
    }
    addParsers(tree, tree.size() - 1);
  }

  double value() const { return number(nodes_.back()); }
  bool isTrue() const { return truth(nodes_.back()); }

 private:
  enum class Kind : std::uint8_t { place, value, sign, negation, larger, smaller, parsed };

  struct Node {
    Kind kind = Kind::parsed;
    Operator sign = Operator::both;
    std::uint32_t first = 0, second = 0;  // operands
    double value = 0;
    const double* place = nullptr;                   // of a variable, or of the value
    const double *left = nullptr, *right = nullptr;  // the operands' places, where they have some
    std::unique_ptr<mu::Parser> parser = nullptr;
  };

  Node nodeOf(const ExpressionNode& from) const {
    Node node;
    node.sign = from.sign;
    if (!from.operands.empty()) node.first = static_cast<std::uint32_t>(from.operands.front());
    if (!from.operands.empty()) node.second = static_cast<std::uint32_t>(from.operands.back());
    if (from.kind == NodeKind::variable) {
      node.kind = Kind::place;
      node.place = evaluation_.placeOf(from.variable->variable);
    } else if (from.kind == NodeKind::number || from.kind == NodeKind::constant) {
      node.kind = Kind::value;
      node.value = from.kind == NodeKind::number ? from.value : from.constant->value;
    } else if (from.kind == NodeKind::prefix && from.sign == Operator::negation) {
      node.kind = Kind::negation;
    } else if (from.kind == NodeKind::infix && from.sign != Operator::by) {
      node.kind = Kind::sign;
    } else if (from.kind == NodeKind::call && from.operands.size() == 2) {
      if (from.function->function == Function::max) node.kind = Kind::larger;
      if (from.function->function == Function::min) node.kind = Kind::smaller;
    }
    return node;
  }

  // From the root down: what lies within a parser's part needs none of its own.
  void addParsers(const ExpressionTree& tree, std::size_t at) {
    Node& node = nodes_[at];
    if (node.kind == Kind::parsed) {
      node.parser = parserOf(std::string(tree[at].whole.in(text_)), evaluation_);
      return;
    }
    for (const std::size_t operand : tree[at].operands) addParsers(tree, operand);
  }

  double number(const Node& node) const {
    switch (node.kind) {
      case Kind::place:
      case Kind::value:
        return *node.place;
      case Kind::larger:
        return std::max(left(node), right(node));
      case Kind::smaller:
        return std::min(left(node), right(node));
      case Kind::parsed:
        return node.parser->Eval();
      default:
        break;
    }
    if (node.kind == Kind::sign) {
      if (node.sign == Operator::plus) return left(node) + right(node);
      if (node.sign == Operator::minus) return left(node) - right(node);
      if (node.sign == Operator::times) return left(node) * right(node);
    }
    return truth(node) ? 1 : 0;
  }

  double left(const Node& node) const {
    return node.left != nullptr ? *node.left : number(nodes_[node.first]);
  }
  double right(const Node& node) const {
    return node.right != nullptr ? *node.right : number(nodes_[node.second]);
  }

  bool truth(const Node& node) const {
    if (node.kind == Kind::negation) return !truth(nodes_[node.first]);
    if (node.kind != Kind::sign) return number(node) != 0;
    switch (node.sign) {
      case Operator::either:
        return truth(nodes_[node.first]) || truth(nodes_[node.second]);
      case Operator::both:
        return truth(nodes_[node.first]) && truth(nodes_[node.second]);
      case Operator::less:
        return left(node) < right(node);
      case Operator::atMost:
        return left(node) <= right(node);
      case Operator::greater:
        return left(node) > right(node);
      case Operator::atLeast:
        return left(node) >= right(node);
      case Operator::equal:
        return left(node) == right(node);
      case Operator::unequal:
        return left(node) != right(node);
      default:
        return number(node) != 0;
    }
  }

  const std::string text_;
  Evaluation& evaluation_;
  std::vector<Node> nodes_;  // as those of the tree
};

Expression::Expression(const std::string& text, Evaluation& evaluation)
    : program_(std::make_unique<const Program>(text, evaluation)) {}

Expression::~Expression() = default;
Expression::Expression(Expression&&) noexcept = default;
Expression& Expression::operator=(Expression&&) noexcept = default;

double Expression::value() const { return program_->value(); }

bool Expression::isTrue() const { return program_->isTrue(); }

}  // namespace tavrel::hands
