#include "hands/Term.h"

#include <muParser.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace tavrel::hands {
namespace {

// More would take longer to fill than most charts' hands take to walk.
constexpr std::size_t mostTruths = 4096;

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

bool isDecidedByArguments(Function function) {
  return function == Function::max || function == Function::min || function == Function::suitOf ||
         function == Function::level;
}

}  // namespace

Term::Term(std::string_view text, const ExpressionTree& tree, std::size_t at,
           Evaluation& evaluation)
    : program_(parserOf(std::string(tree[at].whole.in(text)), evaluation)), truths_(1) {
  if (addAxes(tree, at, evaluation)) {
    fill();
  } else {
    truths_.clear();
  }
}

Term::~Term() = default;
Term::Term(Term&&) noexcept = default;

// Whether its variables alone decide the part of the tree, and have few values together.
bool Term::addAxes(const ExpressionTree& tree, std::size_t at, Evaluation& evaluation) {
  const ExpressionNode& node = tree[at];
  if (node.kind == NodeKind::variable) return addAxis(*node.variable, evaluation);
  if (node.kind == NodeKind::call && !isDecidedByArguments(node.function->function)) return false;
  return std::all_of(node.operands.begin(), node.operands.end(),
                     [&](std::size_t operand) { return addAxes(tree, operand, evaluation); });
}

bool Term::addAxis(const VariableName& name, Evaluation& evaluation) {
  double* const place = evaluation.placeOf(name.variable);
  const bool isThere = std::any_of(axes_.begin(), axes_.end(),
                                   [place](const Axis& axis) { return axis.place == place; });
  if (isThere) return true;
  const auto count = static_cast<std::size_t>(name.most * name.parts) + 1;
  axes_.push_back({place, static_cast<double>(name.parts), count});
  truths_.resize(truths_.size() * count);
  return truths_.size() <= mostTruths;
}

// Gives the variables all their values, one after another, and then those that they had.
void Term::fill() {
  std::vector<double> before;
  for (const Axis& axis : axes_) before.push_back(*axis.place);
  for (std::size_t i = 0; i < truths_.size(); ++i) {
    std::size_t rest = i;
    for (auto axis = axes_.rbegin(); axis != axes_.rend(); rest /= axis->count, ++axis) {
      *axis->place = static_cast<double>(rest % axis->count) / axis->parts;
    }
    truths_[i] = program_->Eval() != 0;
  }
  for (std::size_t i = 0; i < axes_.size(); ++i) *axes_[i].place = before[i];
}

double Term::value() const { return program_->Eval(); }

// No thirteen cards have a value beyond its axis, but other numbers of cards may.
bool Term::isTrue() const {
  if (truths_.empty()) return program_->Eval() != 0;
  std::size_t at = 0;
  for (const Axis& axis : axes_) {
    // By way of an int, which processors convert at once.
    const auto value = static_cast<std::size_t>(static_cast<int>(*axis.place * axis.parts));
    if (value >= axis.count) return program_->Eval() != 0;
    at = at * axis.count + value;
  }
  return truths_[at] != 0;
}

}  // namespace tavrel::hands
