// Calls: their order, how they are read and how they are written.

#include "hands/Call.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::hands {
namespace {

TEST(Call, IsNumberedInTheOrderOfRank) {
  EXPECT_EQ(static_cast<int>(Call::none), 0);
  EXPECT_EQ(static_cast<int>(Call::pass), 1);
  EXPECT_EQ(static_cast<int>(Call::doubled), 2);
  EXPECT_EQ(static_cast<int>(Call::redoubled), 3);
  EXPECT_EQ(static_cast<int>(bid(1, Strain::clubs)), 4);
  EXPECT_EQ(static_cast<int>(bid(1, Strain::notrump)), 8);
  EXPECT_EQ(static_cast<int>(bid(2, Strain::clubs)), 9);
  EXPECT_EQ(bid(7, Strain::notrump), Call::sevenNotrump);
}

TEST(Call, OfABidHasItsLevelAndStrain) {
  for (int level = 1; level <= highestLevel; ++level) {
    for (const Strain strain :
         {Strain::clubs, Strain::diamonds, Strain::hearts, Strain::spades, Strain::notrump}) {
      EXPECT_TRUE(isBid(bid(level, strain)));
      EXPECT_EQ(levelOf(bid(level, strain)), level);
      EXPECT_EQ(strainOf(bid(level, strain)), strain);
    }
  }
}

TEST(Call, ThatIsNoBidHasNeitherLevelNorStrain) {
  for (const Call call : {Call::none, Call::pass, Call::doubled, Call::redoubled}) {
    EXPECT_FALSE(isBid(call));
    EXPECT_EQ(levelOf(call), 0);
    EXPECT_EQ(strainOf(call), Strain::none);
  }
}

TEST(Call, IsReadAsPlayersTypeIt) {
  const Call notrump = bid(1, Strain::notrump), hearts = bid(2, Strain::hearts);
  for (const char* text : {"1NT", "1nt", "1N", "1n", "(1NT)"}) EXPECT_EQ(callIn(text), notrump);
  for (const char* text : {"2H", "2h", "2♥", "2♡", "(2h)"}) EXPECT_EQ(callIn(text), hearts);
  for (const char* text : {"P", "p", "pass", "Pass", "PASS", "(P)"}) {
    EXPECT_EQ(callIn(text), Call::pass);
  }
  for (const char* text : {"X", "x", "D", "dbl", "Double"}) EXPECT_EQ(callIn(text), Call::doubled);
  for (const char* text : {"XX", "xx", "R", "rdbl", "Redouble"}) {
    EXPECT_EQ(callIn(text), Call::redoubled);
  }
  EXPECT_EQ(callIn("3♣"), bid(3, Strain::clubs));
  EXPECT_EQ(callIn("3♦"), bid(3, Strain::diamonds));
  EXPECT_EQ(callIn("3♠"), bid(3, Strain::spades));
}

TEST(Call, IsNotReadFromOtherText) {
  for (const char* text : {"", "1", "0C", "8C", "1NTT", "C", "NT", "1 NT", "-", "()", "(", "(1NT",
                           "passs", "XXX", "1♥♥", "é"}) {
    EXPECT_EQ(callIn(text), std::nullopt) << text;
  }
}

TEST(Call, HasANameThatIsReadAgain) {
  EXPECT_EQ(nameOf(Call::none), "-");
  for (int number = 1; number <= 38; ++number) {
    const Call call = static_cast<Call>(number);
    EXPECT_EQ(callIn(nameOf(call)), call) << nameOf(call);
    EXPECT_EQ(callIn(shown(call, Charset::utf8)), call) << nameOf(call);
    EXPECT_EQ(callIn(shown(call, Charset::plain)), call) << nameOf(call);
  }
}

TEST(Call, IsShownAsPlayersReadIt) {
  EXPECT_EQ(shown(Call::pass, Charset::utf8), "Pass");
  EXPECT_EQ(shown(Call::doubled, Charset::utf8), "X");
  EXPECT_EQ(shown(Call::redoubled, Charset::plain), "XX");
  EXPECT_EQ(shown(bid(2, Strain::clubs), Charset::utf8), "2♣");
  EXPECT_EQ(shown(bid(2, Strain::clubs), Charset::plain), "2C");
  EXPECT_EQ(shown(bid(1, Strain::notrump), Charset::utf8), "1NT");
}

}  // namespace
}  // namespace tavrel::hands
