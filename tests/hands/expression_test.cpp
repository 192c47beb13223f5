// Expressions as programs: what they are worth, and that they are what checkExpression() takes
// them for.

#include "hands/Expression.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "hands/Deal.h"
#include "hands/ExpressionCheck.h"
#include "tests/hands/PlainEvaluation.h"
#include "tests/hands/Sample.h"

namespace tavrel::hands {
namespace {

double valueOf(const std::string& text, const std::string& hand = "AQ85.KJ7.KQ4.J62",
               const std::string& auction = "") {
  const Table table = {auctionOf(auction), false, true};
  Evaluation evaluation;
  evaluation.setHand(handOf(hand));
  evaluation.setTable(table);
  return Expression(text, evaluation).value();
}

TEST(Expression, IsWorthWhatItSays) {
  EXPECT_EQ(valueOf("hcp"), 16);
  EXPECT_EQ(valueOf("hcp >= 15 && hcp <= 17 && balanced"), 1);
  EXPECT_EQ(valueOf("2 + 3 * 4 - 6 / 4"), 12.5);
  EXPECT_EQ(valueOf("-hcp + 1"), -15);
  EXPECT_EQ(valueOf("!balanced || hcp < 12"), 0);
  EXPECT_EQ(valueOf("balanced ? vulnerable ? 1 : 2 : 3"), 2);
  EXPECT_EQ(valueOf("hcp + 2*(hearts>=3 && spades>=4)"), 18);
}

TEST(Expression, KnowsSuitsCallsAndTheTable) {
  EXPECT_EQ(valueOf("longestSuit == S"), 1);
  EXPECT_EQ(valueOf("suitOf(partner(1)) == H && support == 3", "AQ85.KJ7.KQ4.J62", "1H P"), 1);
  EXPECT_EQ(valueOf("partner(1) == c1NT && right(1) == cP", "AQ85.KJ7.KQ4.J62", "1NT P"), 1);
  EXPECT_EQ(valueOf("partner(2) == noCall && own(1) == noCall", "AQ85.KJ7.KQ4.J62", "1NT P"), 1);
  EXPECT_EQ(valueOf("theyVulnerable && !vulnerable && seat == 1"), 1);
}

TEST(Expression, FollowsItsEvaluationFromHandToHand) {
  Evaluation evaluation;
  const Expression expression("hcp >= 12", evaluation);
  EXPECT_FALSE(expression.isTrue());
  evaluation.setHand(handOf("AQ85.KJ7.KQ4.J62"));
  EXPECT_TRUE(expression.isTrue());
  evaluation.setHand(handOf("8765.432.432.432"));
  EXPECT_FALSE(expression.isTrue());
}

TEST(Expression, MayBeMoved) {
  Evaluation evaluation;
  Expression expression("hcp == 0", evaluation);
  Expression other("hcp == 1", evaluation);
  other = std::move(expression);
  const Expression third(std::move(other));
  EXPECT_TRUE(third.isTrue());
}

// What few numbers decide is looked up, and all their values have a place.
TEST(Expression, KnowsTheTruthOfAllHands) {
  Evaluation evaluation;
  const std::vector<std::string> texts = {"hcp >= 12",
                                          "points > 13",
                                          "quick >= 1.5",
                                          "spades >= hearts",
                                          "losers != 7",
                                          "longestSuit == S",
                                          "balanced",
                                          "hcp + longest + second >= 20",
                                          "voids > 0",
                                          "max(clubs, 4) == 5",
                                          "seat == 4",
                                          "secondSuit < longestSuit",
                                          "controls < aces * 3",
                                          "kings + singletons - doubletons == 1",
                                          "support == 0"};
  Random random(3);
  for (const std::string& text : texts) {
    ASSERT_TRUE(checkExpression(text, Type::truth).faults.empty()) << text;
    const Expression expression(text, evaluation);
    std::size_t trues = 0;
    for (int i = 0; i < 20'000; ++i) {
      evaluation.setHand(dealHand(random));
      const bool isTrue = expression.isTrue();
      ASSERT_EQ(isTrue, expression.value() != 0) << text << " of " << written(evaluation.hand());
      trues += isTrue ? 1 : 0;
    }
    EXPECT_EQ(trues == 0, text == "seat == 4") << text;
  }
}

// Other numbers of cards than thirteen have values that no hand has.
TEST(Expression, KnowsTheTruthOfAnyCards) {
  Evaluation evaluation;
  const Expression expression("voids >= 4", evaluation), pack("hcp >= 38", evaluation);
  EXPECT_TRUE(expression.isTrue());
  EXPECT_FALSE(pack.isTrue());
  Hand all;
  for (const Suit suit : suits) all.setHolding(suit, holdingCount - 1);
  evaluation.setHand(all);
  EXPECT_FALSE(expression.isTrue());
  EXPECT_TRUE(pack.isTrue());
}

// --- the same as the tree ---------------------------------------------------------

// Hands and auctions that differ in what expressions ask of them.
class Tables {
 public:
  Tables() {
    for (const char* text : {"", "1NT P", "P P P", "1H X 2H P", "P 1S 2C P P X", "1C P 1H P 1NT"}) {
      tables_.push_back({auctionOf(text), tables_.size() % 2 == 0, tables_.size() % 3 == 0});
    }
  }

  void pick(Random& random, Evaluation& evaluation) const {
    evaluation.setHand(dealHand(random));
    evaluation.setTable(tables_[random.below(static_cast<std::uint32_t>(tables_.size()))]);
  }

 private:
  std::vector<Table> tables_;
};

bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// Whether the text is taken, and then is worth the same in both ways.
bool agrees(const std::string& text, Random& random, int hands) {
  static const Tables tables;
  Evaluation evaluation;
  const PlainEvaluation plain(evaluation);
  const Expression program(text, evaluation);
  for (int i = 0; i < hands; ++i) {
    tables.pick(random, evaluation);
    const double value = program.value(), expected = plain.valueOf(text);
    EXPECT_PRED2(isSame, value, expected) << text;
    if (!isSame(value, expected)) return false;
    // A truth may have been looked up where the value is worked out.
    const bool isTrue = expected != 0;
    EXPECT_EQ(program.isTrue(), isTrue) << text << " of " << written(evaluation.hand());
    if (program.isTrue() != isTrue) return false;
  }
  return true;
}

bool isTaken(const std::string& text) {
  return checkExpression(text, Type::number).faults.empty() ||
         checkExpression(text, Type::suit).faults.empty() ||
         checkExpression(text, Type::call).faults.empty();
}

// All sequences of so many of these words.
template <std::size_t size>
std::size_t compareAll(const std::array<const char*, size>& words, std::size_t length) {
  Random random(1);
  std::size_t taken = 0, count = 1;
  for (std::size_t i = 0; i < length; ++i) count *= size;
  for (std::size_t number = 0; number < count; ++number) {
    std::string text;
    for (std::size_t i = 0, rest = number; i < length; ++i, rest /= size) {
      text += (i == 0 ? "" : " ") + std::string(words[rest % size]);
    }
    if (!isTaken(text)) continue;
    ++taken;
    if (!agrees(text, random, 3)) break;
  }
  return taken;
}

TEST(ExpressionAgreement, HoldsForAllShortSequencesOfWords) {
  constexpr std::array words = {"hcp", "balanced", "2", "-", "!", "<", "==", "&&",
                                "||",  "?",        ":", "(", ")", "*", "+",  "/"};
  EXPECT_EQ(compareAll(words, 1), 3U);
  EXPECT_GT(compareAll(words, 3), 50U);
  EXPECT_GT(compareAll(words, 4), 150U);
}

TEST(ExpressionAgreement, HoldsForAllSequencesOfOperatorsBetweenValues) {
  constexpr std::array words = {"3", "-balanced", "<", "&&", "||", "?", ":", "!", "-"};
  EXPECT_GT(compareAll(words, 5), 60U);
}

// Random texts of the grammar, with parentheses now and then.
class RandomText {
 public:
  explicit RandomText(Random& random) : random_(random) {}

  std::string of(Type type, int depth) {
    const std::string text = plain(type, depth);
    return oneIn(4) ? "(" + blank() + text + blank() + ")" : text;
  }

 private:
  bool oneIn(std::uint32_t n) { return random_.below(n) == 0; }

  std::string blank() { return oneIn(3) ? " " : ""; }

  template <std::size_t size>
  std::string oneOf(const std::array<const char*, size>& words) {
    return words[random_.below(size)];
  }

  std::string joined(Type left, const std::string& sign, Type right, int depth) {
    const std::string before = of(left, depth - 1) + blank();
    return before + sign + blank() + of(right, depth - 1);
  }

  std::string plain(Type type, int depth) {
    if (depth > 0 && oneIn(8)) {
      const std::string condition = of(Type::truth, depth - 1) + blank() + "?" + blank();
      return condition + of(type, depth - 1) + " :" + blank() + of(type, depth - 1);
    }
    switch (type) {
      case Type::number:
        return number(depth);
      case Type::truth:
        return truth(depth);
      case Type::suit:
        return oneOf(std::array{"C", "D", "H", "S", "theirs", "partners", "longestSuit",
                                "suitOf(partner(1))", "suitOf( right(1) )"});
      default:
        return oneOf(std::array{"partner(1)", "left(1)", "right(2)", "own(1)", "c1NT", "noCall",
                                "cX", "c2H", "partner(seat)"});
    }
  }

  std::string number(int depth) {
    if (depth == 0 || oneIn(4)) {
      return oneOf(std::array{"hcp", "spades", "longest", "quick", "losers", "0", "1", "12", "2.5",
                              "support", "tops(S,3)", "second", "level(partner(1))"});
    }
    switch (random_.below(7)) {
      case 0:
        return "-" + blank() + oneOf(std::array{"hcp", "2", "(3)", "clubs", "length(H)"});
      case 1:
        return "max(" + of(Type::number, depth - 1) + "," + of(Type::number, depth - 1) + ")";
      case 2:
        return "length(" + blank() + of(Type::suit, depth - 1) + ")";
      case 3:
        return of(Type::truth, depth - 1);
      default:
        return sumOrProduct(depth);
    }
  }

  // Quotients by powers of two are exact: others are rounded, and muParser may divide later.
  std::string sumOrProduct(int depth) {
    if (oneIn(5)) return of(Type::number, depth - 1) + "/" + blank() + (oneIn(2) ? "2" : "4");
    return joined(Type::number, oneOf(std::array{"+", "-", "*"}), Type::number, depth);
  }

  std::string truth(int depth) {
    if (depth == 0 || oneIn(6)) {
      return oneOf(std::array{"balanced", "vulnerable", "passedHand", "stopper(theirs)",
                              "shape(5,3,3,2)", "exact(4,4,3,2)"});
    }
    const std::string comparison = oneOf(std::array{"<", "<=", ">", ">=", "==", "!="});
    switch (random_.below(7)) {
      case 0:
        return "!" + blank() + oneOf(std::array{"balanced", "(hcp < 9)", "stopper(H)"});
      case 1:
        return joined(Type::suit, comparison, Type::suit, depth);
      case 2:
        return joined(Type::call, comparison, Type::call, depth);
      case 3:
      case 4:
        return joined(Type::truth, oneOf(std::array{"&&", "||"}), Type::truth, depth);
      default:
        return joined(Type::number, comparison, Type::number, depth);
    }
  }

  Random& random_;
};

TEST(ExpressionAgreement, HoldsForRandomTexts) {
  Random random(6);
  std::size_t taken = 0;
  for (int i = 0; i < 5'000; ++i) {
    const std::string text = RandomText(random).of(i % 2 == 0 ? Type::truth : Type::number, 4);
    if (!isTaken(text)) continue;
    ++taken;
    ASSERT_TRUE(agrees(text, random, 5));
  }
  EXPECT_GT(taken, 2'500U);
}

TEST(ExpressionAgreement, HoldsForAsMuchAsAnExpressionMayHold) {
  Random random(2);
  std::string sum = "hcp", largest = "max(hcp", nested = "hcp";
  for (int i = 0; i < 2'000; ++i) sum += "+1";
  for (int i = 0; i < 2'000; ++i) largest += ",1";
  for (int i = 0; i < 98; ++i) nested = "(" + nested + ")";
  for (const std::string& text : {sum, largest + ")", nested}) {
    ASSERT_TRUE(isTaken(text));
    EXPECT_TRUE(agrees(text, random, 3));
  }
}

}  // namespace
}  // namespace tavrel::hands
