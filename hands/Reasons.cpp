#include "hands/Reasons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "hands/Call.h"
#include "hands/Expression.h"
#include "hands/ExpressionCheck.h"
#include "hands/HoldingValues.h"

namespace tavrel::hands {
namespace {

// What is said of a value.
struct Words {
  std::string text, brief, detail;
};

Words saying(const std::string& text, const std::string& detail = "") {
  return {text, text, detail};
}

// "16 HCP", or "16" alone. Quick tricks come in halves.
std::string number(double value) {
  const auto whole = static_cast<long long>(std::floor(value));
  const bool hasHalf = value - std::floor(value) >= 0.25;
  if (!hasHalf) return std::to_string(whole);
  return (whole == 0 ? "" : std::to_string(whole)) + "½";
}

Words counting(double value, const std::string& one, const std::string& many,
               const std::string& detail) {
  return {number(value) + " " + (value == 1 ? one : many), number(value), detail};
}

std::string ordinal(double n) {
  constexpr std::array endings = {"th", "st", "nd", "rd"};
  const auto whole = static_cast<long long>(n);
  const bool isPlain = whole % 10 > 3 || (whole / 10) % 10 == 1 || whole < 0;
  return std::to_string(whole) + endings[isPlain ? 0 : static_cast<std::size_t>(whole % 10)];
}

void append(std::string& list, const std::string& item, const char* between = " ") {
  list += (list.empty() ? "" : between) + item;
}

std::optional<Suit> suitIn(double strain) {
  for (const Suit suit : suits) {
    if (strain == static_cast<double>(suit) + 1) return suit;
  }
  return std::nullopt;
}

// --- how a number comes about -------------------------------------------------------

// "A4 Q2 K3": the cards of those ranks, each with what it counts.
std::string honours(Hand hand, const std::vector<std::pair<Rank, int>>& worth) {
  std::string all;
  for (const Suit suit : suitsAsWritten) {
    for (const auto& [rank, points] : worth) {
      if (hand.has({suit, rank})) append(all, letterOf(rank) + std::to_string(points));
    }
  }
  return all;
}

std::string highCards(Hand hand) {
  return honours(hand, {{ace, 4}, {king, 3}, {queen, 2}, {jack, 1}});
}

// "♠ ♥": the suits of which it is true.
template <typename Condition>
std::string suitsWhere(Condition isSo) {
  std::string all;
  for (const Suit suit : suitsAsWritten) {
    if (isSo(suit)) append(all, symbolOf(suit));
  }
  return all;
}

std::string suitsOfLength(Hand hand, std::size_t length) {
  return suitsWhere([&](Suit suit) { return hand.length(suit) == length; });
}

std::string suitsWith(Hand hand, Rank rank) {
  return suitsWhere([&](Suit suit) { return hand.has({suit, rank}); });
}

// "♠ 1½, ♥ ½": what the suits have of a number.
std::string bySuit(Hand hand, HoldingValues::Field field, double unit) {
  std::string all;
  for (const Suit suit : suitsAsWritten) {
    const double value = valuesOf(hand.holding(suit))[field] * unit;
    if (value > 0) append(all, std::string(symbolOf(suit)) + " " + number(value), ", ");
  }
  return all;
}

// "5-3-3-2"; in the order of the suits, "2=5=3=3".
std::string shapeOf(Hand hand, bool isSorted) {
  std::array<std::size_t, suits.size()> lengths = {};
  std::transform(suitsAsWritten.begin(), suitsAsWritten.end(), lengths.begin(),
                 [&](Suit suit) { return hand.length(suit); });
  if (isSorted) std::sort(lengths.rbegin(), lengths.rend());
  std::string shape;
  for (const std::size_t length : lengths) {
    append(shape, std::to_string(length), isSorted ? "-" : "=");
  }
  return shape;
}

std::string cardsIn(Hand hand, Suit suit) { return ranksOf(hand.holding(suit)); }

// --- variables ----------------------------------------------------------------------

Words points(const Evaluation& evaluation, double value) {
  const double forHonours = evaluation[Variable::hcp];
  const std::string detail =
      number(forHonours) + " HCP, " + number(value - forHonours) + " for length";
  return counting(value, "point", "points", detail);
}

Words lengthOf(Hand hand, std::optional<Suit> suit) {
  if (!suit) return saying("no suit to count");
  const std::string many = nameOf(*suit);
  const auto length = static_cast<double>(hand.length(*suit));
  return counting(length, many.substr(0, many.size() - 1), many, cardsIn(hand, *suit));
}

Words suitNamed(const std::string& whose, double strain, const std::string& otherwise) {
  const std::optional<Suit> suit = suitIn(strain);
  return saying(suit ? whose + " " + symbolOf(*suit) : otherwise);
}

Words support(const Evaluation& evaluation, double value) {
  const std::optional<Suit> suit = suitIn(evaluation[Variable::partners]);
  if (!suit) return saying("partner has bid no suit");
  const std::string symbol = symbolOf(*suit);
  return counting(value, "card in partner's " + symbol, "cards in partner's " + symbol,
                  cardsIn(evaluation.hand(), *suit));
}

Words either(double value, const std::string& yes, const std::string& no,
             const std::string& detail = "") {
  return saying(value != 0 ? yes : no, detail);
}

Words ofTable(const Evaluation& evaluation, Variable variable, double value) {
  switch (variable) {
    case Variable::support:
      return support(evaluation, value);
    case Variable::theirs:
      return suitNamed("their suit", value, "no suit of theirs");
    case Variable::partners:
      return suitNamed("partner's suit", value, "no suit of partner's");
    case Variable::seat:
      return saying(ordinal(value) + " seat");
    case Variable::vulnerable:
      return either(value, "vulnerable", "not vulnerable");
    case Variable::theyVulnerable:
      return either(value, "they are vulnerable", "they are not vulnerable");
    default:
      return either(value, "a passed hand", "not a passed hand");
  }
}

Words ofShape(Hand hand, Variable variable, double value) {
  const std::string shape = shapeOf(hand, true);
  switch (variable) {
    case Variable::spades:
      return lengthOf(hand, Suit::spades);
    case Variable::hearts:
      return lengthOf(hand, Suit::hearts);
    case Variable::diamonds:
      return lengthOf(hand, Suit::diamonds);
    case Variable::clubs:
      return lengthOf(hand, Suit::clubs);
    case Variable::longest:
      return counting(value, "card in the longest suit", "cards in the longest suit", shape);
    case Variable::second:
      return counting(value, "card in the second suit", "cards in the second suit", shape);
    case Variable::longestSuit:
      return suitNamed("longest suit", value, "");
    case Variable::secondSuit:
      return suitNamed("second suit", value, "");
    case Variable::balanced:
      return either(value, "balanced", "not balanced", shape);
    case Variable::semibalanced:
      return either(value, "semibalanced", "not semibalanced", shape);
    case Variable::voids:
      return counting(value, "void", "voids", suitsOfLength(hand, 0));
    case Variable::singletons:
      return counting(value, "singleton", "singletons", suitsOfLength(hand, 1));
    default:
      return counting(value, "doubleton", "doubletons", suitsOfLength(hand, 2));
  }
}

Words of(const Evaluation& evaluation, Variable variable, double value) {
  const Hand hand = evaluation.hand();
  switch (variable) {
    case Variable::hcp:
      return counting(value, "HCP", "HCP", highCards(hand));
    case Variable::points:
      return points(evaluation, value);
    case Variable::quick:
      return counting(value, "quick trick", "quick tricks",
                      bySuit(hand, HoldingValues::halfQuickTricks, 0.5));
    case Variable::losers:
      return counting(value, "loser", "losers", bySuit(hand, HoldingValues::losers, 1));
    case Variable::controls:
      return counting(value, "control", "controls", honours(hand, {{ace, 2}, {king, 1}}));
    case Variable::aces:
      return counting(value, "ace", "aces", suitsWith(hand, ace));
    case Variable::kings:
      return counting(value, "king", "kings", suitsWith(hand, king));
    default:
      return variable < Variable::support ? ofShape(hand, variable, value)
                                          : ofTable(evaluation, variable, value);
  }
}

// --- functions ----------------------------------------------------------------------

using Values = std::vector<double>;

Words stopper(Hand hand, std::optional<Suit> suit, double value) {
  if (!suit) return saying("no suit to stop");
  const std::string cards = cardsIn(hand, *suit);
  const std::string symbol = symbolOf(*suit);
  return either(value, symbol + " stopped", symbol + " not stopped",
                cards.empty() ? "void" : cards);
}

Words tops(Hand hand, const Values& arguments, double value) {
  const std::optional<Suit> suit = suitIn(arguments[0]);
  if (!suit) return saying("no suit to look at");
  const std::string all = number(value) + " of the top " + number(arguments[1]);
  return {all + " in " + symbolOf(*suit), all, cardsIn(hand, *suit)};
}

Words call(const char* whose, const Values& arguments, double value) {
  const auto made = static_cast<Call>(value);
  const std::string which = std::string(whose) + " " + ordinal(arguments[0]) + " call";
  return saying(made == Call::none ? "no " + which : which + " " + shown(made, Charset::utf8));
}

Words of(const Evaluation& evaluation, Function function, const Values& arguments, double value) {
  const Hand hand = evaluation.hand();
  switch (function) {
    case Function::length:
      return lengthOf(hand, suitIn(arguments[0]));
    case Function::shape:
      return saying("shape " + shapeOf(hand, true));
    case Function::exact:
      return saying("shape " + shapeOf(hand, false));
    case Function::stopper:
      return stopper(hand, suitIn(arguments[0]), value);
    case Function::tops:
      return tops(hand, arguments, value);
    case Function::partner:
      return call("partner's", arguments, value);
    case Function::left:
      return call("left-hand opponent's", arguments, value);
    case Function::right:
      return call("right-hand opponent's", arguments, value);
    default:
      return call("own", arguments, value);
  }
}

bool handsOn(Function function) {
  return function == Function::suitOf || function == Function::level || function == Function::max ||
         function == Function::min;
}

// The arguments between a function's parentheses.
std::vector<std::string> argumentsOf(std::string_view use) {
  std::vector<std::string> arguments(1);
  int depth = 0;
  for (const char each : use.substr(use.find('(') + 1)) {
    if (each == '(') ++depth;
    if (each == ')' && --depth < 0) break;
    if (each == ',' && depth == 0) {
      arguments.emplace_back();
    } else {
      arguments.back() += each;
    }
  }
  return arguments;
}

double valueOf(const std::string& text, Evaluation& evaluation) {
  return Expression(text, evaluation).value();
}

Reason reasonOf(const NameUse& use, const std::string& source, Evaluation& evaluation) {
  if (use.variable != nullptr) {
    const double value = evaluation[use.variable->variable];
    const Words words = of(evaluation, use.variable->variable, value);
    return {source, value, words.text, words.brief, words.detail};
  }
  Values arguments;
  for (const std::string& each : argumentsOf(source)) {
    arguments.push_back(valueOf(each, evaluation));
  }
  const double value = valueOf(source, evaluation);
  const Words words = of(evaluation, use.function->function, arguments, value);
  return {source, value, words.text, words.brief, words.detail};
}

}  // namespace

std::vector<Reason> reasonsOf(const std::string& expression, Evaluation& evaluation) {
  std::vector<Reason> reasons;
  for (const NameUse& use : checkExpression(expression, Type::truth).uses) {
    if (use.function != nullptr && handsOn(use.function->function)) continue;
    Reason reason = reasonOf(use, expression.substr(use.offset, use.size), evaluation);
    const bool isSaid = std::any_of(reasons.begin(), reasons.end(),
                                    [&](const Reason& each) { return each.text == reason.text; });
    if (!isSaid) reasons.push_back(std::move(reason));
  }
  return reasons;
}

std::string shown(const std::vector<Reason>& reasons) {
  std::string all;
  for (const Reason& reason : reasons) {
    append(all, reasons.size() == 1 ? reason.brief : reason.text, ", ");
    if (!reason.detail.empty()) all += " (" + reason.detail + ")";
  }
  return all;
}

}  // namespace tavrel::hands
