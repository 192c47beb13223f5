// Auctions: which calls the laws allow, when they are over, and who has called what.

#include "hands/Auction.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/hands/Sample.h"

namespace tavrel::hands {
namespace {

Call call(const char* text) { return callIn(text).value(); }

TEST(Auction, EndsAfterFourPassesAtItsBeginning) {
  EXPECT_FALSE(auctionOf("").isOver());
  EXPECT_FALSE(auctionOf("P P P").isOver());
  EXPECT_TRUE(auctionOf("P P P P").isOver());
}

TEST(Auction, EndsAfterThreePassesOnceSomebodyHasBid) {
  EXPECT_FALSE(auctionOf("1C P P").isOver());
  EXPECT_TRUE(auctionOf("1C P P P").isOver());
  EXPECT_TRUE(auctionOf("P P P 1C P P P").isOver());
  EXPECT_FALSE(auctionOf("1C X P P").isOver());
  EXPECT_TRUE(auctionOf("1C X P P P").isOver());
  EXPECT_FALSE(auctionOf("P P 1C P P").isOver());
}

TEST(Auction, AllowsNothingOnceItIsOver) {
  for (const char* text : {"P P P P", "1C P P P", "1C X XX P P P"}) {
    for (int number = 0; number <= 38; ++number) {
      EXPECT_FALSE(auctionOf(text).allows(static_cast<Call>(number))) << text;
    }
  }
}

TEST(Auction, AllowsAPassAtAnyTime) {
  for (const char* text : {"", "P P P", "1C", "7NT X XX"}) {
    EXPECT_TRUE(auctionOf(text).allows(Call::pass)) << text;
  }
}

TEST(Auction, AllowsNoCallThatIsNone) { EXPECT_FALSE(auctionOf("").allows(Call::none)); }

TEST(Auction, AllowsBidsAboveTheLastOne) {
  EXPECT_TRUE(auctionOf("").allows(call("1C")));
  const Auction auction = auctionOf("1H P");
  EXPECT_FALSE(auction.allows(call("1D")));
  EXPECT_FALSE(auction.allows(call("1H")));
  EXPECT_TRUE(auction.allows(call("1S")));
  EXPECT_TRUE(auction.allows(call("2C")));
  EXPECT_TRUE(auctionOf("1H X").allows(call("1S")));
  EXPECT_FALSE(auctionOf("7NT").allows(call("7NT")));
}

TEST(Auction, AllowsADoubleOfTheOpponentsBidAlone) {
  EXPECT_FALSE(auctionOf("").allows(Call::doubled));
  EXPECT_FALSE(auctionOf("P").allows(Call::doubled));
  EXPECT_TRUE(auctionOf("1C").allows(Call::doubled));
  EXPECT_FALSE(auctionOf("1C P").allows(Call::doubled));
  EXPECT_TRUE(auctionOf("1C P P").allows(Call::doubled));
  EXPECT_FALSE(auctionOf("1C X").allows(Call::doubled));
  EXPECT_FALSE(auctionOf("1C X XX").allows(Call::doubled));
  EXPECT_TRUE(auctionOf("1C X 1D").allows(Call::doubled));
}

TEST(Auction, AllowsARedoubleOfTheirDoubleAlone) {
  EXPECT_FALSE(auctionOf("").allows(Call::redoubled));
  EXPECT_FALSE(auctionOf("1C").allows(Call::redoubled));
  EXPECT_TRUE(auctionOf("1C X").allows(Call::redoubled));
  EXPECT_FALSE(auctionOf("1C X P").allows(Call::redoubled));
  EXPECT_TRUE(auctionOf("1C X P P").allows(Call::redoubled));
  EXPECT_FALSE(auctionOf("1C X XX").allows(Call::redoubled));
  EXPECT_FALSE(auctionOf("1C X 1D").allows(Call::redoubled));
}

// After three passes each call but the last three: pass, pass, pass, 1C, then X and XX round after
// round with two passes between.
TEST(Auction, IsNeverLongerThanTheLongest) {
  Auction auction = auctionOf("P P P");
  for (int number = static_cast<int>(Call::oneClub); number <= 38; ++number) {
    auction.add(static_cast<Call>(number));
    for (const Call each : {Call::pass, Call::pass, Call::doubled, Call::pass, Call::pass,
                            Call::redoubled, Call::pass, Call::pass}) {
      ASSERT_TRUE(auction.allows(each));
      auction.add(each);
    }
  }
  auction.add(Call::pass);
  EXPECT_TRUE(auction.isOver());
  EXPECT_EQ(auction.size(), Auction::longest);
}

TEST(Auction, NumbersSeatsFromTheDealer) {
  EXPECT_EQ(auctionOf("").seat(), 1);
  EXPECT_EQ(auctionOf("P P P").seat(), 4);
  EXPECT_EQ(auctionOf("1C P 1H P").seat(), 1);
}

TEST(Auction, KnowsTheCallsOfEachPlayerFromTheFirst) {
  const Auction auction = auctionOf("1C X 1H P 2H P");  // the dealer's partner calls next
  EXPECT_EQ(auction.callOf(Player::partner, 1), call("1C"));
  EXPECT_EQ(auction.callOf(Player::partner, 2), call("2H"));
  EXPECT_EQ(auction.callOf(Player::partner, 3), Call::none);
  EXPECT_EQ(auction.callOf(Player::right, 1), Call::doubled);
  EXPECT_EQ(auction.callOf(Player::right, 2), Call::pass);
  EXPECT_EQ(auction.callOf(Player::self, 1), call("1H"));
  EXPECT_EQ(auction.callOf(Player::self, 2), Call::none);
  EXPECT_EQ(auction.callOf(Player::left, 1), Call::pass);
  EXPECT_EQ(auction.callOf(Player::left, 0), Call::none);
  EXPECT_EQ(auction.callOf(Player::left, -1), Call::none);
}

TEST(Auction, KnowsTheLastBidOfEachPlayer) {
  const Auction auction = auctionOf("1C 1D 1H 2D X P");
  EXPECT_EQ(auction.lastBidOf(Player::self), call("1H"));
  EXPECT_EQ(auction.lastBidOf(Player::partner), call("1C"));  // who has doubled since
  EXPECT_EQ(auction.lastBidOf(Player::left), call("2D"));
  EXPECT_EQ(auction.lastBidOf(Player::right), call("1D"));
  EXPECT_EQ(auction.lastBidOfThem(), call("2D"));
  EXPECT_EQ(auctionOf("1C P 1H P").lastBidOfThem(), Call::none);
}

TEST(Auction, HasAsItsFirstPartTheCallsSoFar) {
  EXPECT_EQ(auctionOf("1C X 1H").first(2), auctionOf("1C X"));
  EXPECT_EQ(auctionOf("1C").first(0), Auction());
}

TEST(Auction, IsWrittenAsItIsRead) {
  EXPECT_EQ(written(auctionOf("")), "");
  EXPECT_EQ(written(auctionOf("1nt x (xx) pass 2♣")), "1NT X XX P 2C");
}

TEST(Auction, IsShownWithTheOpponentsInParentheses) {
  EXPECT_EQ(shown(auctionOf("1NT P 2C P"), Charset::utf8), "1NT (Pass) 2♣ (Pass)");
  EXPECT_EQ(shown(auctionOf("1H"), Charset::plain), "(1H)");
  EXPECT_EQ(shown(auctionOf(""), Charset::utf8), "");
}

}  // namespace
}  // namespace tavrel::hands
