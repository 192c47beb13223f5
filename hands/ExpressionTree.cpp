#include "hands/ExpressionTree.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "authoring/InShort.h"
#include "hands/Call.h"
#include "hands/NameSearch.h"

namespace tavrel::hands {
namespace {

using authoring::Code;
using authoring::inShort;

constexpr int deepest = 100;
constexpr std::size_t mostUnknown = 10;  // names of which something is said: looking takes time

// How firmly an operator binds; a prefix binds most firmly of all.
enum Binding : int { choices, eithers, boths, comparisons, sums, products, prefixes };

Binding bindingOf(Operator sign) {
  switch (sign) {
    case Operator::either:
      return eithers;
    case Operator::both:
      return boths;
    case Operator::plus:
    case Operator::minus:
      return sums;
    case Operator::times:
    case Operator::by:
      return products;
    case Operator::negation:
      return prefixes;
    default:
      return comparisons;
  }
}

class Parser {
 public:
  Parser(std::string_view text, std::vector<Fault>& faults)
      : text_(text), faults_(faults), tokens_(tokensOf(text, faults)) {
    hasUnknown_ = std::any_of(tokens_.begin(), tokens_.end(),
                              [](const Token& token) { return token.kind == TokenKind::unknown; });
  }

  ExpressionTree tree() {
    if (token().kind == TokenKind::end) {
      fail(0, "there is no expression here", "write a condition, as in hcp >= 12");
    } else {
      readValue(choices);
      expectEnd();
    }
    return hasFailed_ ? ExpressionTree() : std::move(nodes_);
  }

 private:
  const Token& token() const { return tokens_[at_]; }
  std::string_view textOf(const Token& token) const {
    return text_.substr(token.offset, token.size);
  }
  bool isAt(TokenKind kind) const { return token().kind == kind; }

  // Nothing is said of what follows a fault in the way it is put together. Nor is it where there
  // are characters of which nobody knows what they were to be.
  void fail(std::size_t offset, std::string text, std::string cure,
            Code code = Code::badExpression) {
    if (!hasFailed_ && !hasUnknown_) fault(offset, code, std::move(text), std::move(cure));
    hasFailed_ = true;
    at_ = tokens_.size() - 1;
  }

  void fault(std::size_t offset, Code code, std::string text, std::string cure) {
    faults_.push_back({code, offset, std::move(text), std::move(cure)});
  }

  std::size_t put(ExpressionNode node) {
    node.whole = node.own;
    nodes_.push_back(std::move(node));
    return nodes_.size() - 1;
  }

  std::size_t readValue(Binding loosest);
  std::size_t readOperand();
  std::size_t readPrefix();
  std::size_t readParentheses();
  std::size_t readName();
  std::size_t readCall(const FunctionName& function);
  std::size_t readChoice(std::size_t condition);
  std::size_t readInfix(std::size_t left);
  std::size_t failAtOperand();
  void faultInChain(std::size_t left, const Token& sign, std::size_t right);
  void closeParenthesis(const Token& open);
  void expectEnd();

  std::string_view text_;
  std::vector<Fault>& faults_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
  std::size_t unknownNames_ = 0;
  bool hasUnknown_ = false, hasFailed_ = false;
  ExpressionTree nodes_;
};

// Reads as much as binds at least as firmly as said.
std::size_t Parser::readValue(Binding loosest) {
  if (++depth_ > deepest) {
    fail(token().offset, "this is nested deeper than 100 levels", "write it in simpler terms",
         Code::expressionTooLarge);
  }
  std::size_t value = readOperand();
  while (isAt(TokenKind::sign) && token().sign != Operator::negation &&
         bindingOf(token().sign) >= loosest) {
    value = readInfix(value);
  }
  if (loosest == choices && isAt(TokenKind::question)) value = readChoice(value);
  --depth_;
  return value;
}

std::size_t Parser::readInfix(std::size_t left) {
  const Token sign = token();
  ++at_;
  const std::size_t right = readValue(static_cast<Binding>(bindingOf(sign.sign) + 1));
  if (hasFailed_) return left;
  const ExpressionNode& before = nodes_[left];
  const bool isChained = bindingOf(sign.sign) == comparisons && before.kind == NodeKind::infix &&
                         bindingOf(before.sign) == comparisons &&
                         before.own.offset == before.whole.offset;
  if (isChained) faultInChain(left, sign, right);
  ExpressionNode node;
  node.kind = isChained ? NodeKind::unknown : NodeKind::infix;
  node.own = {before.whole.offset, nodes_[right].whole.end};
  node.signPlace = sign.offset;
  node.sign = sign.sign;
  node.operands = {left, right};
  return put(std::move(node));
}

// "15 <= hcp <= 17" would be (15 <= hcp) <= 17.
void Parser::faultInChain(std::size_t left, const Token& sign, std::size_t right) {
  const ExpressionNode& first = nodes_[left];
  const auto words = [this](std::size_t node) { return inShort(nodes_[node].whole.in(text_)); };
  const std::string middle = words(first.operands[1]);
  const std::string cure = "write " + words(first.operands[0]) + " " +
                           std::string(spellingOf(first.sign)) + " " + middle + " && " + middle +
                           " " + std::string(spellingOf(sign.sign)) + " " + words(right);
  fault(sign.offset, Code::rangeSpelledOtherwise,
        "a second comparison would compare what came of the first", cure);
}

std::size_t Parser::readChoice(std::size_t condition) {
  const Token question = token();
  ++at_;
  const std::size_t yes = readValue(choices);
  if (hasFailed_) return condition;
  if (!isAt(TokenKind::colon)) {
    fail(question.offset, "there is no : for this ?", "write condition ? value : other value");
    return condition;
  }
  ++at_;
  const std::size_t no = readValue(choices);
  if (hasFailed_) return condition;
  ExpressionNode node;
  node.kind = NodeKind::choice;
  node.own = {nodes_[condition].whole.offset, nodes_[no].whole.end};
  node.signPlace = question.offset;
  node.operands = {condition, yes, no};
  return put(std::move(node));
}

std::size_t Parser::readOperand() {
  const Token& here = token();
  switch (here.kind) {
    case TokenKind::number: {
      ExpressionNode node;
      node.kind = NodeKind::number;
      node.own = {here.offset, here.end()};
      node.value = std::strtod(std::string(textOf(here)).c_str(), nullptr);
      ++at_;
      return put(std::move(node));
    }
    case TokenKind::unknown: {
      ExpressionNode node;
      node.own = {here.offset, here.end()};
      ++at_;
      return put(std::move(node));
    }
    case TokenKind::name:
      return readName();
    case TokenKind::open:
      return readParentheses();
    case TokenKind::sign:
      return readPrefix();
    default:
      return failAtOperand();
  }
}

std::size_t Parser::failAtOperand() {
  const Token& here = token();
  const std::string before = at_ == 0 ? "" : std::string(textOf(tokens_[at_ - 1]));
  if (isAt(TokenKind::end)) {
    fail(here.offset, "something is missing behind " + inShort(before), "write what belongs there");
  } else {
    const std::string words(textOf(here));
    fail(here.offset, "something is missing before " + inShort(words),
         "write what belongs there, or take " + inShort(words) + " away");
  }
  return 0;
}

std::size_t Parser::readPrefix() {
  const Token sign = token();
  const bool isPrefix = sign.sign == Operator::negation || sign.sign == Operator::minus;
  if (!isPrefix) return failAtOperand();
  ++at_;
  if (isAt(TokenKind::sign) &&
      (token().sign == Operator::negation || token().sign == Operator::minus)) {
    fail(token().offset, "two signs stand here in a row",
         "leave them out, or put parentheses behind the first");
  }
  const std::size_t operand = readValue(prefixes);
  if (hasFailed_) return 0;
  ExpressionNode node;
  node.kind = NodeKind::prefix;
  node.own = {sign.offset, nodes_[operand].whole.end};
  node.signPlace = sign.offset;
  node.sign = sign.sign;
  node.operands = {operand};
  return put(std::move(node));
}

std::size_t Parser::readParentheses() {
  const Token open = token();
  ++at_;
  const std::size_t value = readValue(choices);
  if (hasFailed_) return value;
  closeParenthesis(open);
  if (!hasFailed_) nodes_[value].whole = {open.offset, tokens_[at_ - 1].end()};
  return value;
}

void Parser::closeParenthesis(const Token& open) {
  if (isAt(TokenKind::close)) {
    ++at_;
  } else if (isAt(TokenKind::comma)) {
    fail(token().offset, "a comma stands between arguments alone",
         "join conditions with && or ||, and write 1.5 with a point", Code::commaOutside);
  } else if (isAt(TokenKind::end)) {
    fail(open.offset, "this parenthesis is not closed", "write a ) where it ends");
  } else {
    expectEnd();
  }
}

std::size_t Parser::readName() {
  const Token here = token();
  ++at_;
  ExpressionNode node;
  node.own = {here.offset, here.end()};
  const std::string_view word = textOf(here);
  const KnownName known = nameOf(word);
  const bool isCalled = isAt(TokenKind::open);
  if (known.function != nullptr && isCalled) {
    if (token().offset > here.end()) {
      fault(here.end(), Code::badExpression,
            "there is a blank between " + std::string(word) + " and its parenthesis",
            "write " + std::string(word) + "(");
    }
    return readCall(*known.function);
  }
  if (known.variable != nullptr) node.kind = NodeKind::variable;
  if (known.constant != nullptr) node.kind = NodeKind::constant;
  node.variable = known.variable;
  node.constant = known.constant;
  if (known.function != nullptr) {
    fault(here.offset, Code::argumentCount, std::string(word) + " has no arguments here",
          "write it as in " + std::string(exampleOf(known.function->function)));
  } else if (node.kind == NodeKind::unknown && ++unknownNames_ <= mostUnknown) {
    fault(here.offset, Code::unknownName, "there is no name " + inShort(word), cureOfUnknown(word));
  }
  if (!isCalled) return put(std::move(node));
  if (node.kind != NodeKind::unknown) {
    fault(token().offset, Code::argumentCount, std::string(word) + " takes no arguments",
          "write " + std::string(word) + " alone");
  }
  // Its arguments may have faults of their own.
  static const FunctionName anyFunction = {"", Function::max, {}, true, Type::number, noCards};
  const std::size_t call = readCall(anyFunction);
  if (!hasFailed_) {
    nodes_[call].kind = NodeKind::unknown;
    nodes_[call].function = nullptr;
  }
  return call;
}

// A name before the parenthesis where the arguments begin.
std::size_t Parser::readCall(const FunctionName& function) {
  const Token name = tokens_[at_ - 1], open = token();
  ++at_;
  ExpressionNode node;
  node.kind = NodeKind::call;
  node.function = &function;
  if (!isAt(TokenKind::close)) node.operands.push_back(readValue(choices));
  while (isAt(TokenKind::comma)) {
    ++at_;
    node.operands.push_back(readValue(choices));
  }
  if (hasFailed_) return 0;
  closeParenthesis(open);
  if (hasFailed_) return 0;
  node.own = {name.offset, tokens_[at_ - 1].end()};
  return put(std::move(node));
}

// What stands behind a value that is complete.
void Parser::expectEnd() {
  const Token& here = token();
  const std::string words = inShort(textOf(here));
  switch (here.kind) {
    case TokenKind::end:
      return;
    case TokenKind::comma:
      return fail(here.offset, "a comma stands between arguments alone",
                  "join conditions with && or ||, and write 1.5 with a point", Code::commaOutside);
    case TokenKind::close:
      return fail(here.offset, "no parenthesis is open here", "take the ) away");
    case TokenKind::colon:
      return fail(here.offset, "no ? belongs to this :", "write condition ? value : other value");
    default:
      return fail(here.offset, "an operator is missing before " + words,
                  "join conditions with && or ||, and compare with ==");
  }
}

}  // namespace

ExpressionTree treeOf(std::string_view text, std::vector<Fault>& faults) {
  return Parser(text, faults).tree();
}

}  // namespace tavrel::hands
