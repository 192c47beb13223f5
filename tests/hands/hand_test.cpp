// Hands as sets of cards.

#include "hands/Hand.h"

#include <gtest/gtest.h>

#include "tests/hands/Sample.h"

namespace tavrel::hands {
namespace {

TEST(Hand, HasTheCardsThatWereAdded) {
  Hand hand;
  EXPECT_EQ(hand.size(), 0U);
  hand.add({Suit::spades, ace});
  hand.add({Suit::clubs, 2});
  hand.add({Suit::clubs, 2});
  EXPECT_EQ(hand.size(), 2U);
  EXPECT_TRUE(hand.has({Suit::spades, ace}));
  EXPECT_TRUE(hand.has({Suit::clubs, 2}));
  EXPECT_FALSE(hand.has({Suit::hearts, ace}));
  EXPECT_FALSE(hand.has({Suit::spades, king}));
  hand.remove({Suit::spades, ace});
  hand.remove({Suit::spades, king});
  EXPECT_EQ(hand.size(), 1U);
  EXPECT_FALSE(hand.has({Suit::spades, ace}));
}

TEST(Hand, MayHoldTheWholePack) {
  Hand hand;
  for (const Suit suit : suits) {
    for (Rank rank = lowestRank; rank <= ace; ++rank) hand.add({suit, rank});
  }
  EXPECT_EQ(hand.size(), cardsInPack);
  for (const Suit suit : suits) EXPECT_EQ(hand.length(suit), cardsInSuit);
}

TEST(Hand, KnowsTheLengthOfEachSuit) {
  const Hand hand = handOf("AQ852.KJ74..J632");
  EXPECT_EQ(hand.length(Suit::spades), 5U);
  EXPECT_EQ(hand.length(Suit::hearts), 4U);
  EXPECT_EQ(hand.length(Suit::diamonds), 0U);
  EXPECT_EQ(hand.length(Suit::clubs), 4U);
}

TEST(Hand, TakesOtherCardsForASuit) {
  Hand hand = handOf("AQ85.KJ7.KQ4.J62");
  hand.setHolding(Suit::hearts, handOf(".AT").holding(Suit::hearts));
  EXPECT_EQ(written(hand), "AQ85.AT.KQ4.J62");
}

TEST(Hand, IsWrittenBySuitsAndRanks) {
  EXPECT_EQ(written(handOf("AKQJT98765432...")), "AKQJT98765432...");
  EXPECT_EQ(written(handOf("5Q8A.7JK.4QK.26J")), "AQ85.KJ7.KQ4.J62");
  EXPECT_EQ(written(Hand()), "...");
}

TEST(Hand, IsTheSameWithTheSameCards) {
  EXPECT_TRUE(handOf("AQ85.KJ7.KQ4.J62") == handOf("Q8A5.7KJ.KQ4.62J"));
  EXPECT_TRUE(handOf("AQ85.KJ7.KQ4.J62") != handOf("AQ86.KJ7.KQ4.J62"));
}

}  // namespace
}  // namespace tavrel::hands
