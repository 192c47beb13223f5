// The numbers behind an answer.

#include "hands/Reasons.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <variant>

#include "hands/AuctionText.h"
#include "hands/Deal.h"
#include "hands/HandText.h"
#include "hands/Names.h"

namespace tavrel::hands {
namespace {

// What is said of an expression for a hand after an auction.
std::string reasons(const std::string& expression, const std::string& hand,
                    const std::string& auction = "") {
  Evaluation evaluation;
  const Table table = {std::get<Auction>(readAuction(auction)), true, false};
  evaluation.setTable(table);
  evaluation.setHand(std::get<Hand>(readHand(hand)));
  return shown(reasonsOf(expression, evaluation));
}

TEST(Reasons, AreANumberAndHowItComesAbout) {
  EXPECT_EQ(reasons("hcp >= 15 && hcp <= 17", "AQ85.KJ7.KQ4.J62"), "16 (A4 Q2 K3 J1 K3 Q2 J1)");
  EXPECT_EQ(reasons("hcp >= 15", "T985.987.654.432"), "0");
}

TEST(Reasons, NameTheUnitWhereThereAreSeveral) {
  EXPECT_EQ(reasons("balanced && hcp >= 15", "AQ85.KJ7.KQ4.J62"),
            "balanced (4-3-3-3), 16 HCP (A4 Q2 K3 J1 K3 Q2 J1)");
  EXPECT_EQ(reasons("!semibalanced || spades > 4", "AQ853.KJ7.KQ42.2"),
            "not semibalanced (5-4-3-1), 5 spades (AQ853)");
}

TEST(Reasons, SayOnceHowSeveralInARowComeAbout) {
  EXPECT_EQ(reasons("hcp + longest + second >= 20", "AQ853.KJ7.KQ42.2"),
            "15 HCP (A4 Q2 K3 J1 K3 Q2), 5 cards in the longest suit, 4 cards in the second suit "
            "(5-4-3-1)");
}

struct Case {
  const char* expression;
  const char* said;
};

// AQ853 KJ7 KQ42 2 after 1♥ by left-hand opponent, 2♣ by partner, 2♥ by the right one.
TEST(Reasons, SayEveryNameAsPlayersDo) {
  for (const auto& [expression, said] : {
           Case{"points > 0", "16 (15 HCP, 1 for length)"},
           Case{"spades > 0", "5 (AQ853)"},
           Case{"clubs > 0 && hearts > 0", "1 club (2), 3 hearts (KJ7)"},
           Case{"diamonds > 0", "4 (KQ42)"},
           Case{"longest > 0", "5 (5-4-3-1)"},
           Case{"second > 0", "4 (5-4-3-1)"},
           Case{"longestSuit == S", "longest suit ♠"},
           Case{"secondSuit == S", "second suit ♦"},
           Case{"balanced", "not balanced (5-4-3-1)"},
           Case{"quick > 0", "3 (♠ 1½, ♥ ½, ♦ 1)"},
           Case{"losers > 0", "5 (♠ 1, ♥ 2, ♦ 1, ♣ 1)"},
           Case{"controls > 0", "4 (A2 K1 K1)"},
           Case{"aces > 0", "1 (♠)"},
           Case{"kings > 0 && aces > 0", "2 kings (♥ ♦), 1 ace (♠)"},
           Case{"voids > 0", "0"},
           Case{"singletons > 0", "1 (♣)"},
           Case{"doubletons > 0", "0"},
           Case{"support > 0", "1 (2)"},
           Case{"support > 0 && hcp > 0", "1 card in partner's ♣ (2), 15 HCP (A4 Q2 K3 J1 K3 Q2)"},
           Case{"theirs == H", "their suit ♥"},
           Case{"partners == C", "partner's suit ♣"},
           Case{"seat == 4", "1st seat"},
           Case{"vulnerable", "vulnerable"},
           Case{"theyVulnerable", "they are not vulnerable"},
           Case{"passedHand", "a passed hand"},
           Case{"length(theirs) > 2", "3 hearts (KJ7), their suit ♥"},
           Case{"length(C) > 2", "1 (2)"},
           Case{"shape(5,4,3,1)", "shape 5-4-3-1"},
           Case{"exact(5,3,4,1)", "shape 5=3=4=1"},
           Case{"stopper(H)", "♥ stopped (KJ7)"},
           Case{"stopper(C)", "♣ not stopped (2)"},
           Case{"tops(S,3) > 1", "2 of the top 3 (AQ853)"},
           Case{"partner(1) == c2C", "partner's 1st call 2♣"},
           Case{"left(1) == c1H", "left-hand opponent's 1st call 1♥"},
           Case{"right(2) == noCall", "no right-hand opponent's 2nd call"},
           Case{"own(1) == cP", "own 1st call Pass"},
           Case{"suitOf(partner(1)) == C", "partner's 1st call 2♣"},
           Case{"level(partner(1)) == 2", "partner's 1st call 2♣"},
           Case{"max(spades,hearts) > 4", "5 spades (AQ853), 3 hearts (KJ7)"},
       }) {
    EXPECT_EQ(reasons(expression, "AQ853.KJ7.KQ42.2", "P 1H 2C 2H"), said) << expression;
  }
}

TEST(Reasons, SayWhereThereIsNoSuit) {
  const std::string hand = "AQ853.KJ7.KQ432.-";
  EXPECT_EQ(reasons("support > 2", hand), "partner has bid no suit");
  EXPECT_EQ(reasons("theirs == H", hand), "no suit of theirs");
  EXPECT_EQ(reasons("partners == H", hand), "no suit of partner's");
  EXPECT_EQ(reasons("length(theirs) > 2", hand), "no suit to count, no suit of theirs");
  EXPECT_EQ(reasons("stopper(theirs)", hand), "no suit to stop, no suit of theirs");
  EXPECT_EQ(reasons("tops(theirs,2) > 1", hand), "no suit to look at, no suit of theirs");
  EXPECT_EQ(reasons("stopper(C)", hand), "♣ not stopped (void)");
  EXPECT_EQ(reasons("clubs > 2 && voids > 0", hand), "0 clubs, 1 void (♣)");
}

TEST(Reasons, SayAllThatIsNamedOnce) {
  EXPECT_EQ(reasons("spades > 4 || length(S) > 4 || spades == 3", "AQ85.KJ7.KQ4.J62"), "4 (AQ85)");
  EXPECT_EQ(reasons("1 > 0", "AQ85.KJ7.KQ4.J62"), "");
}

TEST(Reasons, HaveTheValueThatTheExpressionSees) {
  Evaluation evaluation;
  evaluation.setHand(std::get<Hand>(readHand("AQ85.KJ7.KQ4.J62")));
  const std::vector<Reason> found = reasonsOf("quick > 2 && length(H) == 3", evaluation);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].source, "quick");
  EXPECT_EQ(found[0].value, 3);
  EXPECT_EQ(found[1].source, "length(H)");
  EXPECT_EQ(found[1].value, 3);
}

// A name that nobody taught to speak would be silent, or say what another one says.
TEST(Reasons, AreSomethingElseForEachVariable) {
  Evaluation evaluation;
  const Table table = {std::get<Auction>(readAuction("1H P 2C P 2H P")), true, false};
  evaluation.setTable(table);
  evaluation.setHand(std::get<Hand>(readHand("AQ853.KJ7.KQ42.2")));
  std::set<std::string> said;
  for (const VariableName& name : variableNames()) {
    const std::string expression = std::string(name.name) + (name.type == Type::truth  ? ""
                                                             : name.type == Type::suit ? " == S"
                                                                                       : " > 1");
    const std::vector<Reason> found = reasonsOf(expression, evaluation);
    ASSERT_EQ(found.size(), 1U) << expression;
    EXPECT_FALSE(found[0].text.empty()) << expression;
    EXPECT_TRUE(said.insert(found[0].text).second) << expression << " says " << found[0].text;
  }
}

}  // namespace
}  // namespace tavrel::hands
