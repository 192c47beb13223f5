// Expressions are worked out as muParser works them out.

#include "hands/Expression.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hands/Deal.h"

namespace tavrel::hands {
namespace {

// All of an argument of a function is muParser's, whatever is in it.
std::string byMuParser(const std::string& text) { return "max(" + text + ")"; }

TEST(Expression, HasTheValueThatMuParserGivesIt) {
  const std::vector<std::string> texts = {
      "hcp",
      "hcp >= 12",
      "hcp > 11 && hcp < 15 || spades == 5",
      "hcp <= 9 || spades != 4 && hearts >= 3",
      "!balanced",
      "!(hcp >= 12) && !balanced || losers < 7",
      "hcp + longest + second >= 20",
      "hcp - 2 * losers + 7",
      "hcp - (losers - 3) >= 8",
      "-hcp + 40",
      "hcp / 2 >= 6",
      "hcp >= 10 ? spades : hearts",
      "(hcp >= 10 ? spades : hearts) >= 4 && quick > 1.5",
      "tops(longestSuit,3) >= 2 || tops(longestSuit,5) >= 3",
      "max(spades, hearts) >= 5 && max(spades, hearts) >= max(diamonds, clubs)",
      "min(spades, hearts) + max(1, min(clubs, 4)) >= max(hcp, 6, 8) - 3",
      "(balanced && hcp >= 15) == (losers < 7)",
      "1 + 1 == 2",
  };
  Evaluation evaluation;
  Random random(8);
  for (const std::string& text : texts) {
    const Expression own(text, evaluation), other(byMuParser(text), evaluation);
    for (int i = 0; i < 2'000; ++i) {
      evaluation.setHand(dealHand(random));
      ASSERT_EQ(own.value(), other.value()) << text << " with " << written(evaluation.hand());
      ASSERT_EQ(own.isTrue(), other.value() != 0) << text;
    }
  }
}

}  // namespace
}  // namespace tavrel::hands
