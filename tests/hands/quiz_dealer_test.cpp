// Hands for an end of a chart, be it as rare as it may.

#include "hands/QuizDealer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "tests/hands/TestChart.h"

namespace tavrel::hands {
namespace {

constexpr const char* opening = R"(chart: Opening
start: strong
applies:
  auction: P? P? P?
  hand: hcp <= 30
boxes:
  strong:
    text: 27+ HCP?
    when: hcp >= 27
    yes: two-clubs
    no: long
  two-clubs: {text: "Open 2♣", call: "2C"}
  long:
    text: Nine spades?
    when: spades >= 9
    yes: shortage
    no: feel
  shortage:
    text: Void in hearts, and diamonds AKQ?
    when: hearts == 0 && tops(D, 3) == 3
    yes: four-spades
    no: three
  four-spades: {text: "Open 4♠", call: "4S"}
  three: {text: "Open 3♠", call: "3S"}
  feel:
    text: 11 points?
    when: hcp == 11
    yes: judge
    no: bid
  judge:
    text: Do you like it?
    asks: judgement
    yes: bid
    no: pass
  bid:
    text: 12+ points?
    when: hcp >= 12
    yes: suit
    no: pass-out
  suit:
    text: Bid your long suit
    call:
      - {when: "longestSuit == S", call: "1S"}
      - {when: "longestSuit == H", call: "1H"}
      - {when: "longestSuit == D", call: "1D"}
      - {call: "1C"}
  pass: {text: "Pass for pleasure", call: "P"}
  pass-out:
    text: 30 points after all?
    when: hcp >= 30
    yes: never
    no: pass-weak
  never: {text: "Bid 7NT", call: "7NT"}
  pass-weak: {text: "Pass", call: "P"}
)";

class Dealt : public testing::Test {
 protected:
  std::size_t endOf(const std::string& name) const {
    const auto& ends = dealer_.ends();
    return static_cast<std::size_t>(std::find(ends.begin(), ends.end(), name) - ends.begin());
  }

  void expectHandsFor(const std::string& name, Call call) {
    const std::size_t end = endOf(name);
    ASSERT_LT(end, dealer_.ends().size()) << name;
    for (int i = 0; i < 20; ++i) {
      const auto question = dealer_.deal(end, random_);
      ASSERT_TRUE(question) << name;
      EXPECT_EQ(13U, question->hand.size());
      EXPECT_EQ(call, dealer_.walk(*question));
      EXPECT_TRUE(dealer_.walker().isForHand());
      EXPECT_EQ(name, chart_.chart().nameOf(dealer_.walker().end()));
    }
  }

  TestChart chart_{opening};
  QuizDealer dealer_{chart_.chart()};
  Random random_{1};
};

TEST_F(Dealt, AreHandsForEveryEndThatMakesACall) {
  const std::set<std::string> names(dealer_.ends().begin(), dealer_.ends().end());
  EXPECT_EQ((std::set<std::string>{"two-clubs", "four-spades", "three", "suit", "pass", "never",
                                   "pass-weak"}),
            names);
}

TEST_F(Dealt, AreHandsThatComeToTheEnd) { expectHandsFor("pass-weak", Call::pass); }

// One hand of 1,700 has 27 to 30 points.
TEST_F(Dealt, AreRareHands) { expectHandsFor("two-clubs", bid(2, Strain::clubs)); }

// One of 50,000 million, or so.
TEST_F(Dealt, AreHandsThatChanceWouldNeverDeal) {
  expectHandsFor("four-spades", bid(4, Strain::spades));
}

TEST_F(Dealt, AreNoHandsForAnEndThatNoneReaches) {
  EXPECT_FALSE(dealer_.deal(endOf("never"), random_));
}

TEST_F(Dealt, AreNoHandsThatTakeJudgement) {
  EXPECT_FALSE(dealer_.deal(endOf("pass"), random_));
  const std::size_t weak = endOf("pass-weak");
  for (int i = 0; i < 100; ++i) {
    dealer_.walk(*dealer_.deal(weak, random_));
    EXPECT_NE(11, dealer_.walker().evaluation()[Variable::hcp]);
  }
}

TEST_F(Dealt, ShowAllCallsOfAnEnd) {
  std::map<Call, int> calls;
  for (int i = 0; i < 100; ++i) ++calls[dealer_.walk(*dealer_.deal(endOf("suit"), random_))];
  EXPECT_EQ(4U, calls.size());
}

TEST_F(Dealt, SitInEverySeatAndAtEveryVulnerability) {
  std::map<std::pair<std::size_t, int>, int> tables;
  for (int i = 0; i < 800; ++i) {
    const Table table = dealer_.deal(endOf("pass-weak"), random_)->table;
    ++tables[{table.auction.size(), 2 * table.isVulnerable + table.areTheyVulnerable}];
  }
  EXPECT_EQ(16U, tables.size());
  for (const auto& [table, count] : tables) EXPECT_GT(count, 20);
}

TEST_F(Dealt, AreTheSameForTheSameNumbersWhateverWasDealtBefore) {
  QuizDealer other(chart_.chart());
  other.deal(endOf("suit"), random_);
  for (const char* end : {"four-spades", "pass-weak", "two-clubs"}) {
    Random one(7), same(7);
    const auto question = dealer_.deal(endOf(end), one), again = other.deal(endOf(end), same);
    EXPECT_EQ(question->hand, again->hand);
    EXPECT_EQ(question->table.auction, again->table.auction);
  }
}

// A hand that was sought card by card is no worse than others: here the spots of the long suit.
TEST_F(Dealt, DifferAlsoWhereTheyHadToBeSought) {
  std::set<std::string> hands;
  for (int i = 0; i < 20; ++i) {
    hands.insert(written(dealer_.deal(endOf("four-spades"), random_)->hand));
  }
  EXPECT_EQ(20U, hands.size());
}

TEST(ADealer, MakesNoQuestionOfACallThatTheLawsForbid) {
  const TestChart chart(R"(chart: Opening
start: raise
applies: {auction: "(1S|1D) P"}
boxes:
  raise: {text: "Three spades?", when: "spades >= 3", yes: two, no: one}
  two: {text: "Bid 2♠", call: "2S"}
  one: {text: "Bid 1♥", call: "1H"}
)");
  QuizDealer dealer(chart.chart());
  Random random(1);
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ("1D P", written(dealer.deal(1, random)->table.auction));
  }
}

TEST(ADealer, HasNothingToAskOfAChartThatIsForNoAuction) {
  const TestChart chart(R"(chart: Opening
start: raise
boxes:
  raise: {text: "Three spades?", when: "spades >= 3", yes: two, no: one}
  two: {text: "Bid 2♠", call: "2S"}
  one: {text: "Bid 1♥", call: "1H"}
)");
  EXPECT_TRUE(QuizDealer(chart.chart()).ends().empty());
}

TEST(ADealer, TakesAnEndThatStandsInSeveralCellsForOne) {
  const TestChart chart(R"(chart: Opening
start: spades
applies: {auction: ""}
boxes:
  spades: {text: "Five spades?", when: "spades >= 5", yes: weak, no: hearts}
  weak: {text: "Weak?", when: "hcp < 6", yes: pass, no: bid}
  hearts: {text: "Five hearts?", when: "hearts >= 5", yes: bid, no: pass}
  bid: {text: "Bid it", call: [{when: "spades >= 5", call: "1S"}, {call: "1H"}]}
  pass: {text: "Pass", call: "P"}
)");
  QuizDealer dealer(chart.chart());
  EXPECT_EQ(2U, dealer.ends().size());
  EXPECT_TRUE(chart.chart()[dealer.boxOf(0)].isEnd());
}

}  // namespace
}  // namespace tavrel::hands
