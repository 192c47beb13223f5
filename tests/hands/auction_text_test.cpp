// Auctions as people type them.

#include "hands/AuctionText.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "hands/Deal.h"

namespace tavrel::hands {
namespace {

// The auction as it is written, or the fault behind "!".
std::string readAs(const std::string& text) {
  const auto read = readAuction(text);
  if (const auto* auction = std::get_if<Auction>(&read)) return written(*auction);
  return "! " + shown(std::get<Misreading>(read));
}

TEST(AuctionText, IsCallsWithBlanksCommasOrDashesBetween) {
  for (const char* text :
       {"1NT P 2C P", "1NT,P,2C,P", "1NT, P, 2C, P", "1NT-P-2C-P", "1NT – P – 2C – P",
        " 1NT\tP\n2C P ", "1N pass 2♣ Pass", "1nt (p) 2c (p)", "1NT P 2♧ P", "1NT;P;2C;P"}) {
    EXPECT_EQ(readAs(text), "1NT P 2C P") << text;
  }
}

TEST(AuctionText, HasDoublesAndRedoubles) {
  EXPECT_EQ(readAs("1H X XX 2D dbl rdbl P"), "1H X XX 2D X XX P");
  EXPECT_EQ(readAs("P (1♥) double"), "P 1H X");
}

TEST(AuctionText, MayBeEmpty) {
  EXPECT_EQ(readAs(""), "");
  EXPECT_EQ(readAs(" - "), "");
}

TEST(AuctionText, NamesWhatIsNoCall) {
  EXPECT_EQ(readAs("1NT P 2Z"),
            "! '2Z', call 3, is no call; calls are 1C to 7NT (1♣, 1N), P, X and XX");
  EXPECT_EQ(readAs("8NT"),
            "! '8NT', call 1, is no call; calls are 1C to 7NT (1♣, 1N), P, X and XX");
}

TEST(AuctionText, SaysWhyACallIsAgainstTheLaws) {
  EXPECT_EQ(readAs("1H P 1D"),
            "! 1D, call 3, isn't higher than 1H before it; the lowest bid now is 1S");
  EXPECT_EQ(readAs("1H 1H"),
            "! 1H, call 2, isn't higher than 1H, which has been bid; the lowest bid now is 1S");
  EXPECT_EQ(readAs("7NT P 7NT"),
            "! 7NT, call 3, isn't higher than 7NT, which has been bid; no bid is");
  EXPECT_EQ(readAs("P X"), "! X, call 2, has no bid to double; leave it out");
  EXPECT_EQ(readAs("1H P X"),
            "! X, call 3, would double a bid of the own side; write P, or leave out a call");
  EXPECT_EQ(readAs("1H X P X"), "! X, call 4, would double what is doubled already; write P or XX");
  EXPECT_EQ(
      readAs("1H XX"),
      "! XX, call 2, has no double of the opponents' to redouble; write P, or X for a double");
  EXPECT_EQ(readAs("1H P P P 1S"),
            "! 1S, call 5, comes after the auction is over; leave out what follows the last pass");
  EXPECT_EQ(readAs("P P P P P"),
            "! P, call 5, comes after the auction is over; leave out what follows the last pass");
}

TEST(AuctionText, NamesTheFirstFaultByItsPlace) {
  const auto read = readAuction("1♥ P 1♦ 2Z");
  EXPECT_EQ(std::get<Misreading>(read).offset, 7U);
}

// As many calls as an auction can have, and then one more.
TEST(AuctionText, EndsWithTheLongestAuction) {
  std::string text = "P P P";
  for (int bid = static_cast<int>(Call::oneClub); bid <= static_cast<int>(Call::sevenNotrump);
       ++bid) {
    text += " " + nameOf(static_cast<Call>(bid)) + " P P X P P XX P P";
  }
  EXPECT_EQ(std::get<Auction>(readAuction(text)).size(), Auction::longest - 1);
  EXPECT_EQ(std::get<Auction>(readAuction(text + " P")).size(), Auction::longest);
  EXPECT_TRUE(std::holds_alternative<Misreading>(readAuction(text + " P P")));
}

TEST(AuctionText, IsReadAgainAsItWasWritten) {
  Random random(1);
  for (int i = 0; i < 2'000; ++i) {
    Auction auction;
    while (!auction.isOver()) {
      const auto drawn = static_cast<Call>(random.below(39));
      auction.add(auction.allows(drawn) ? drawn : Call::pass);
    }
    EXPECT_EQ(readAs(written(auction)), written(auction));
  }
}

}  // namespace
}  // namespace tavrel::hands
