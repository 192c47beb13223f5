// Where somebody's call leaves the hand's way.

#include "hands/Parting.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/hands/TestChart.h"

namespace tavrel::hands {
namespace {

constexpr const char* raising = R"(chart: Opening
start: fit
applies: {auction: "1S P"}
boxes:
  fit: {text: "Three spades?", when: "spades >= 3", yes: game, no: suit}
  game: {text: "13 points?", when: "hcp >= 13", yes: shape, no: invite}
  shape: {text: "A singleton?", when: "singletons > 0", yes: splinter, no: force}
  splinter: {text: "Bid the singleton", call: [{when: "hearts == 1", call: "4H"}, {call: "4D"}]}
  force: {text: "Bid 2NT", call: "2NT"}
  invite: {text: "10 points?", when: "hcp >= 10", yes: three, no: weak}
  weak: {text: "6 points?", when: "hcp >= 6", yes: two, no: pass}
  three: {text: "Bid 3♠", call: "3S"}
  two: {text: "Bid 2♠", call: "2S"}
  pass: {text: "Pass", call: "P"}
  suit: {text: "12 points?", when: "hcp >= 12", yes: long, no: one-nt}
  long: {text: "Bid a suit", call: [{when: "longestSuit == H", call: "2H"}, {call: "2D"}]}
  one-nt: {text: "6 points?", when: "hcp >= 6", yes: notrump, no: pass}
  notrump: {text: "Bid 1NT", call: "1NT"}
)";

class Parted : public testing::Test {
 protected:
  Parted() { table_.auction = auction(); }

  // The box where the ways part; "" if none of them has the call.
  std::string at(Hand hand, Call call) {
    walker_.evaluation().setTable(table_);
    walker_.evaluation().setHand(hand);
    EXPECT_EQ(Ending::end, walker_.walk([](BoxIndex) { return std::optional<Answer>(); }));
    const auto parting = partingOf(walker_, call);
    if (!parting) return "";
    end_ = chart_.chart().nameOf(parting->end);
    const bool isAtEnd = parting->step == walker_.steps().size();
    return chart_.chart().nameOf(isAtEnd ? walker_.end() : walker_.steps()[parting->step].box);
  }

  // A hand of these spades, hearts, diamonds and clubs, by their ranks.
  static Hand hand(const std::string& spades, const std::string& hearts,
                   const std::string& diamonds, const std::string& clubs) {
    Hand hand;
    add(hand, Suit::spades, spades);
    add(hand, Suit::hearts, hearts);
    add(hand, Suit::diamonds, diamonds);
    add(hand, Suit::clubs, clubs);
    EXPECT_EQ(13U, hand.size());
    return hand;
  }

  std::string end_;

 private:
  static Auction auction() {
    Auction auction;
    auction.add(bid(1, Strain::spades));
    auction.add(Call::pass);
    return auction;
  }

  static void add(Hand& hand, Suit suit, const std::string& ranks) {
    const std::string all = "23456789TJQKA";
    for (const char rank : ranks) {
      hand.add({suit, static_cast<Rank>(all.find(rank)) + lowestRank});
    }
  }

  const TestChart chart_{raising};
  Table table_;
  Walker walker_{chart_.chart()};
};

const Call twoSpades = bid(2, Strain::spades), threeSpades = bid(3, Strain::spades);

TEST_F(Parted, IsTheLastQuestionFromWhichAnotherAnswerLeadsToTheCall) {
  const Hand limit = hand("K762", "A87", "KJ83", "42");  // 11: bids 3♠
  EXPECT_EQ("invite", at(limit, twoSpades));
  EXPECT_EQ("two", end_);
  EXPECT_EQ("game", at(limit, bid(2, Strain::notrump)));
  EXPECT_EQ("fit", at(limit, bid(1, Strain::notrump)));
}

// Passing is near for a weak hand with a fit, and nearer than for one without.
TEST_F(Parted, IsAsLateAsCanBeWhereSeveralEndsMakeTheCall) {
  EXPECT_EQ("weak", at(hand("K762", "Q87", "QJ83", "42"), Call::pass));
  EXPECT_EQ("pass", end_);
  EXPECT_EQ("invite", at(hand("K762", "A87", "KJ83", "42"), Call::pass));
}

TEST_F(Parted, IsNotLedAstrayByEndsOfTheOtherAnswerThatTheHandGave) {
  EXPECT_EQ("game", at(hand("K762", "A87", "KQJ3", "42"), threeSpades));
}

TEST_F(Parted, IsTheEndItselfWhereItChoosesBetweenCalls) {
  EXPECT_EQ("splinter", at(hand("K762", "7", "AQ83", "AJ42"), bid(4, Strain::diamonds)));
  EXPECT_EQ("splinter", end_);
}

TEST_F(Parted, IsAlsoWhereAnotherHandWouldMakeTheCall) {
  EXPECT_EQ("suit", at(hand("62", "A87", "KJ83", "9842"), bid(2, Strain::hearts)));
  EXPECT_EQ("long", end_);
}

TEST_F(Parted, IsNowhereIfNoEndMakesTheCall) {
  EXPECT_EQ("", at(hand("62", "A87", "KJ83", "9842"), bid(7, Strain::clubs)));
  EXPECT_EQ("", at(hand("62", "A87", "KJ83", "9842"), Call::doubled));
}

}  // namespace
}  // namespace tavrel::hands
