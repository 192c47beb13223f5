#include "hands/ExpressionCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "authoring/InShort.h"
#include "hands/Card.h"
#include "hands/ExpressionTree.h"
#include "hands/NameSearch.h"

namespace tavrel::hands {
namespace {

using authoring::Code;
using authoring::inShort;

constexpr std::size_t longestExpression = 10'000;  // in bytes

// nothing where a fault was found: no other is said to follow from it.
using KnownType = std::optional<Type>;

std::string_view kindOf(Type type) {
  constexpr std::array<std::string_view, 4> kinds = {"a number", "a condition", "a suit", "a call"};
  return kinds[static_cast<std::size_t>(type)];
}

// Conditions count 0 and 1.
bool isReckonedWith(Type type) { return type == Type::number || type == Type::truth; }

bool fits(Type type, Type wanted) {
  return type == wanted || (wanted == Type::number && type == Type::truth);
}

bool isWhole(double number) { return number == std::floor(number); }

bool isComparison(const ExpressionNode& node) {
  return node.kind == NodeKind::infix && node.sign >= Operator::less &&
         node.sign <= Operator::unequal;
}

// Of "spades", 'S'.
std::optional<char> letterOfLength(const ExpressionNode& node) {
  if (node.kind != NodeKind::variable) return std::nullopt;
  switch (node.variable->variable) {
    case Variable::spades:
      return 'S';
    case Variable::hearts:
      return 'H';
    case Variable::diamonds:
      return 'D';
    case Variable::clubs:
      return 'C';
    default:
      return std::nullopt;
  }
}

class TypeCheck {
 public:
  TypeCheck(std::string_view text, const ExpressionTree& tree, std::vector<Fault>& faults)
      : text_(text), tree_(tree), faults_(faults), outers_(tree.size()) {
    for (const ExpressionNode& node : tree) {
      for (const std::size_t each : node.operands) outers_[each] = &node;
    }
  }

  void check(Type wanted) {
    for (const ExpressionNode& node : tree_) types_.push_back(typeOf(node));
    checkOutcome(wanted);
  }

 private:
  std::string wordsOf(const ExpressionNode& node) const { return inShort(node.whole.in(text_)); }

  const ExpressionNode& operand(const ExpressionNode& node, std::size_t i) const {
    return tree_[node.operands[i]];
  }
  KnownType typeOfOperand(const ExpressionNode& node, std::size_t i) const {
    return types_[node.operands[i]];
  }

  void fault(std::size_t offset, Code code, std::string text, std::string cure) {
    faults_.push_back({code, offset, std::move(text), std::move(cure)});
  }

  KnownType typeOf(const ExpressionNode& node);
  KnownType typeOfCall(const ExpressionNode& node);
  KnownType typeOfPrefix(const ExpressionNode& node);
  KnownType typeOfInfix(const ExpressionNode& node);
  KnownType typeOfComparison(const ExpressionNode& node);
  KnownType typeOfChoice(const ExpressionNode& node);
  void checkOutcome(Type wanted);
  void faultInLooseChoice(const ExpressionNode& choice);
  void faultInNegation(const ExpressionNode& node);
  std::size_t oddOneOf(const ExpressionNode& comparison) const;
  void checkRange(const ExpressionNode& value, const ExpressionNode& range);
  void checkArguments(const ExpressionNode& node);
  void checkValues(const ExpressionNode& node);
  void checkSuit(const ExpressionNode& argument);
  void checkCount(const ExpressionNode& argument);
  void checkTurn(const ExpressionNode& argument);
  void checkLengths(const ExpressionNode& node);
  std::optional<double> constantOf(const ExpressionNode& node) const;
  void expect(const ExpressionNode& node, std::size_t i, Type wanted);
  void faultInType(const ExpressionNode& node, Type type, Type wanted);
  std::string cureOf(const ExpressionNode& node, Type type, Type wanted) const;
  std::string comparisonOf(const ExpressionNode& node, Type type) const;
  std::string suitOfLength(const ExpressionNode& node) const;
  const ExpressionNode* outerOf(const ExpressionNode& node) const;

  std::string_view text_;
  const ExpressionTree& tree_;
  std::vector<Fault>& faults_;
  std::vector<KnownType> types_;               // of the nodes
  std::vector<const ExpressionNode*> outers_;  // what they are operands of
};

KnownType TypeCheck::typeOf(const ExpressionNode& node) {
  switch (node.kind) {
    case NodeKind::number:
      return Type::number;
    case NodeKind::variable:
      return node.variable->type;
    case NodeKind::constant:
      return node.constant->type;
    case NodeKind::call:
      return typeOfCall(node);
    case NodeKind::prefix:
      return typeOfPrefix(node);
    case NodeKind::infix:
      return typeOfInfix(node);
    case NodeKind::choice:
      return typeOfChoice(node);
    default:
      return std::nullopt;
  }
}

// --- types ------------------------------------------------------------------------

// nullptr for the root.
const ExpressionNode* TypeCheck::outerOf(const ExpressionNode& node) const {
  return outers_[static_cast<std::size_t>(&node - tree_.data())];
}

void TypeCheck::expect(const ExpressionNode& node, std::size_t i, Type wanted) {
  const KnownType type = typeOfOperand(node, i);
  if (type && !fits(*type, wanted)) faultInType(operand(node, i), *type, wanted);
}

void TypeCheck::faultInType(const ExpressionNode& node, Type type, Type wanted) {
  fault(node.whole.offset, Code::wrongKind,
        wordsOf(node) + " is " + std::string(kindOf(type)) + " where " +
            std::string(kindOf(wanted)) + " belongs",
        cureOf(node, type, wanted));
}

std::string TypeCheck::cureOf(const ExpressionNode& node, Type type, Type wanted) const {
  const std::string words = wordsOf(node);
  if (wanted == Type::truth) return "compare it, as in " + comparisonOf(node, type);
  if (wanted == Type::call) return "calls are c1C to c7NT, cP, cX, cXX, noCall and partner(1)";
  if (type == Type::call) {
    return "write " + std::string(wanted == Type::suit ? "suitOf(" : "level(") + words + ")";
  }
  if (wanted == Type::number) return "write length(" + words + ") for the number of its cards";
  return suitOfLength(node);
}

// A comparison that an author may have had in mind.
std::string TypeCheck::comparisonOf(const ExpressionNode& node, Type type) const {
  const std::string words = wordsOf(node);
  if (type == Type::suit) return words + " == H";
  if (type == Type::call) return words + " == c1NT";
  const bool isPoints = words == "hcp" || words == "points";
  return words + (isPoints ? " >= 12" : " >= 3");
}

std::string TypeCheck::suitOfLength(const ExpressionNode& node) const {
  const std::optional<char> letter = letterOfLength(node);
  if (!letter) return "suits are C, D, H, S, theirs and partners";
  const std::string suit(1, *letter), length(node.own.in(text_));
  const ExpressionNode* const outer = outerOf(node);
  const bool isArgumentOfLength = outer != nullptr && outer->kind == NodeKind::call &&
                                  outer->function->function == Function::length;
  return isArgumentOfLength ? "write length(" + suit + "), or " + length + " alone"
                            : "write " + suit;
}

KnownType TypeCheck::typeOfPrefix(const ExpressionNode& node) {
  if (node.sign == Operator::minus) {
    expect(node, 0, Type::number);
    return Type::number;
  }
  if (typeOfOperand(node, 0) == Type::number) {
    faultInNegation(node);
  } else {
    expect(node, 0, Type::truth);
  }
  return Type::truth;
}

// "!hcp >= 12" would compare what came of !hcp.
void TypeCheck::faultInNegation(const ExpressionNode& node) {
  const ExpressionNode* const outer = outerOf(node);
  if (outer == nullptr || !isComparison(*outer) || &operand(*outer, 0) != &node) {
    return faultInType(operand(node, 0), Type::number, Type::truth);
  }
  const Span compared = {operand(node, 0).whole.offset, outer->own.end};
  fault(node.signPlace, Code::wrongKind,
        "! belongs to " + wordsOf(operand(node, 0)) + " alone, which is a number",
        "write !(" + inShort(compared.in(text_)) + ")");
}

KnownType TypeCheck::typeOfInfix(const ExpressionNode& node) {
  if (isComparison(node)) return typeOfComparison(node);
  const bool joinsTruths = node.sign == Operator::either || node.sign == Operator::both;
  const Type wanted = joinsTruths ? Type::truth : Type::number;
  expect(node, 0, wanted);
  expect(node, 1, wanted);
  return wanted;
}

KnownType TypeCheck::typeOfComparison(const ExpressionNode& node) {
  const KnownType left = typeOfOperand(node, 0), right = typeOfOperand(node, 1);
  if (!left || !right) return Type::truth;
  if (isReckonedWith(*left) && isReckonedWith(*right)) {
    checkRange(operand(node, 0), operand(node, 1));
    checkRange(operand(node, 1), operand(node, 0));
  } else if (*left != *right) {
    const std::size_t odd = oddOneOf(node);
    faultInType(operand(node, odd), *typeOfOperand(node, odd), *typeOfOperand(node, 1 - odd));
  }
  return Type::truth;
}

// Which of two operands that can't be compared is easier to make one that can.
std::size_t TypeCheck::oddOneOf(const ExpressionNode& comparison) const {
  const Type left = *typeOfOperand(comparison, 0), right = *typeOfOperand(comparison, 1);
  if (left == Type::call || right == Type::call) return left == Type::call ? 0 : 1;
  const std::size_t suit = left == Type::suit ? 0 : 1;
  return letterOfLength(operand(comparison, 1 - suit)) ? 1 - suit : suit;
}

// "hcp == 15-17" would compare with -2.
void TypeCheck::checkRange(const ExpressionNode& value, const ExpressionNode& range) {
  if (range.kind != NodeKind::infix || range.sign != Operator::minus) return;
  const ExpressionNode &from = operand(range, 0), &to = operand(range, 1);
  const bool hasNumbers = from.kind == NodeKind::number && to.kind == NodeKind::number;
  if (!hasNumbers || from.value >= to.value) return;
  const std::string words = wordsOf(value);
  fault(range.whole.offset, Code::rangeSpelledOtherwise,
        wordsOf(range) + " is a difference, and less than 0",
        "write " + words + " >= " + wordsOf(from) + " && " + words + " <= " + wordsOf(to));
}

KnownType TypeCheck::typeOfChoice(const ExpressionNode& node) {
  expect(node, 0, Type::truth);
  const KnownType yes = typeOfOperand(node, 1), no = typeOfOperand(node, 2);
  if (!yes || !no) return std::nullopt;
  if (*yes == *no) return yes;
  if (isReckonedWith(*yes) && isReckonedWith(*no)) return Type::number;
  expect(node, 2, *yes);
  return std::nullopt;
}

void TypeCheck::checkOutcome(Type wanted) {
  const ExpressionNode& root = tree_.back();
  const KnownType type = types_.back();
  if (!type || fits(*type, wanted)) return;
  const bool isLooseChoice = wanted == Type::truth && root.kind == NodeKind::choice &&
                             isComparison(operand(root, 0)) &&
                             operand(root, 0).own.offset == operand(root, 0).whole.offset;
  if (!isLooseChoice) return faultInType(root, *type, wanted);
  faultInLooseChoice(root);
}

// "hcp >= vulnerable ? 12 : 10" would ask whether hcp >= vulnerable.
void TypeCheck::faultInLooseChoice(const ExpressionNode& choice) {
  const ExpressionNode& comparison = operand(choice, 0);
  const Span meant = {operand(comparison, 1).whole.offset, choice.own.end};
  fault(choice.signPlace, Code::wrongKind,
        wordsOf(comparison) + " as a whole decides between the values, which are no conditions",
        "write " + wordsOf(operand(comparison, 0)) + " " +
            std::string(spellingOf(comparison.sign)) + " (" + inShort(meant.in(text_)) + ")");
}

// --- arguments --------------------------------------------------------------------

KnownType TypeCheck::typeOfCall(const ExpressionNode& node) {
  const std::size_t faultsBefore = faults_.size();
  checkArguments(node);
  if (faults_.size() == faultsBefore) checkValues(node);
  return node.function->result;
}

void TypeCheck::checkArguments(const ExpressionNode& node) {
  const FunctionName& function = *node.function;
  const std::size_t count = node.operands.size(), wanted = function.arguments.size();
  if (function.takesAnyNumber ? count == 0 : count != wanted) {
    const std::string most = function.takesAnyNumber ? "at least 1" : std::to_string(wanted);
    return fault(node.own.offset, Code::argumentCount,
                 std::string(function.name) + " takes " + most +
                     (wanted == 1 ? " argument, not " : " arguments, not ") + std::to_string(count),
                 "write it as in " + std::string(exampleOf(function.function)));
  }
  for (std::size_t i = 0; i < count; ++i) {
    expect(node, i, function.arguments[std::min(i, wanted - 1)]);
  }
}

// REQUIRES: arguments of the right types.
void TypeCheck::checkValues(const ExpressionNode& node) {
  switch (node.function->function) {
    case Function::tops:
      checkCount(operand(node, 1));
      return checkSuit(operand(node, 0));
    case Function::length:
    case Function::stopper:
      return checkSuit(operand(node, 0));
    case Function::partner:
    case Function::left:
    case Function::right:
    case Function::own:
      return checkTurn(operand(node, 0));
    case Function::shape:
    case Function::exact:
      return checkLengths(node);
    default:
      return;
  }
}

void TypeCheck::checkSuit(const ExpressionNode& argument) {
  if (argument.kind != NodeKind::constant) return;
  if (argument.constant->value >= 1 && argument.constant->value <= 4) return;
  fault(argument.own.offset, Code::wrongValue, wordsOf(argument) + " is no suit that has cards",
        "suits are C, D, H, S, theirs and partners");
}

// Of honours. Nobody needs one that is reckoned out.
void TypeCheck::checkCount(const ExpressionNode& argument) {
  const std::optional<double> count = constantOf(argument);
  if (count && isWhole(*count) && *count >= 1 && *count <= 5) return;
  fault(argument.whole.offset, Code::wrongValue,
        wordsOf(argument) + " is no number from 1 to 5, as many honours as there are",
        "write 3 for ace, king and queen, 5 for all down to the ten");
}

void TypeCheck::checkTurn(const ExpressionNode& argument) {
  const std::optional<double> turn = constantOf(argument);
  if (!turn || (isWhole(*turn) && *turn >= 1)) return;
  fault(argument.whole.offset, Code::wrongValue,
        "a player has no call with the number " + wordsOf(argument),
        "write 1 for the first call, 2 for the second");
}

void TypeCheck::checkLengths(const ExpressionNode& node) {
  double sum = 0;
  for (std::size_t i = 0; i < node.operands.size(); ++i) {
    const std::optional<double> length = constantOf(operand(node, i));
    if (!length) return;
    if (!isWhole(*length) || *length < 0) {
      return fault(operand(node, i).whole.offset, Code::wrongValue,
                   "no suit has " + wordsOf(operand(node, i)) + " cards",
                   "write whole numbers from 0 to 13");
    }
    sum += *length;
  }
  if (sum == cardsInHand) return;
  fault(node.own.offset, Code::wrongValue,
        "no hand is " + wordsOf(node) + ": its lengths add up to 13",
        "write it as in " + std::string(exampleOf(node.function->function)));
}

std::optional<double> TypeCheck::constantOf(const ExpressionNode& node) const {
  if (node.kind == NodeKind::number) return node.value;
  const bool isNegative = node.kind == NodeKind::prefix && node.sign == Operator::minus;
  if (!isNegative || operand(node, 0).kind != NodeKind::number) return std::nullopt;
  return -operand(node, 0).value;
}

// --- what it is about -------------------------------------------------------------

bool isOfTable(const ExpressionNode& node) {
  if (node.variable != nullptr) return node.variable->variable >= Variable::support;
  const Function function = node.function->function;
  return function >= Function::partner && function <= Function::own;
}

void addUses(const ExpressionTree& tree, CheckedExpression& checked) {
  for (const ExpressionNode& node : tree) {
    if (node.variable == nullptr && node.function == nullptr) continue;
    checked.uses.push_back(
        {node.own.offset, node.own.end - node.own.offset, node.variable, node.function});
    checked.basis |= node.variable != nullptr ? node.variable->basis : node.function->basis;
    checked.needsTable = checked.needsTable || isOfTable(node);
  }
  std::sort(checked.uses.begin(), checked.uses.end(),
            [](const NameUse& a, const NameUse& b) { return a.offset < b.offset; });
}

}  // namespace

CheckedExpression checkExpression(std::string_view text, Type wanted) {
  CheckedExpression checked;
  if (text.size() > longestExpression) {
    checked.faults.push_back({Code::expressionTooLarge, longestExpression,
                              "the expression is longer than 10,000 bytes",
                              "write it in simpler terms"});
    return checked;
  }
  const ExpressionTree tree = treeOf(text, checked.faults);
  if (!tree.empty()) TypeCheck(text, tree, checked.faults).check(wanted);
  addUses(tree, checked);
  std::stable_sort(checked.faults.begin(), checked.faults.end(),
                   [](const Fault& a, const Fault& b) { return a.offset < b.offset; });
  return checked;
}

}  // namespace tavrel::hands
