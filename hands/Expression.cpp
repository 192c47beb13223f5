#include "hands/Expression.h"

#include <muParser.h>

#include <algorithm>

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

}  // namespace

Expression::Expression(const std::string& text, Evaluation& evaluation)
    : program_(std::make_unique<mu::Parser>()) {
  program_->ClearFun();
  program_->ClearConst();
  program_->DefineInfixOprt("!", negation);
  for (const VariableName& name : variableNames()) {
    program_->DefineVar(std::string(name.name), evaluation.placeOf(name.variable));
  }
  for (const ConstantName& name : constantNames()) program_->DefineConst(name.name, name.value);
  for (const FunctionName& name : functionNames()) {
    define(*program_, name.function, std::string(name.name), &evaluation);
  }
  program_->SetExpr(text);
}

Expression::~Expression() = default;
Expression::Expression(Expression&&) noexcept = default;
Expression& Expression::operator=(Expression&&) noexcept = default;

double Expression::value() const { return program_->Eval(); }

}  // namespace tavrel::hands
