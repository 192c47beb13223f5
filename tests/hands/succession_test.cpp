// How the auction goes on in the chart that an end leads into.

#include "hands/Succession.h"

#include <gtest/gtest.h>

#include <string>

#include "hands/AuctionPattern.h"
#include "hands/AuctionText.h"

namespace tavrel::hands {
namespace {

Conditions conditionsFor(const std::string& pattern) {
  Conditions conditions;
  conditions.auctions = std::get<std::vector<Auction>>(auctionsOf(pattern));
  return conditions;
}

// The auction that follows, and whose turn it is; "-" for none.
std::string after(const Conditions& next, const std::string& auction, const std::string& call,
                  std::optional<Next> turn = std::nullopt) {
  const Call made = call.empty() ? Call::none : *callIn(call);
  const auto found = Succession(next).after(std::get<Auction>(readAuction(auction)), made, turn);
  if (!found) return "-";
  return written(found->auction) + (found->turn == Next::self ? ": self" : ": partner");
}

TEST(Succession, GoesOnWithPartnerWhoHasNotYetCalled) {
  const Conditions next = conditionsFor("P? P? P? 1NT P");
  EXPECT_EQ(after(next, "", "1NT"), "1NT P: partner");
  EXPECT_EQ(after(next, "P P", "1NT", Next::partner), "P P 1NT P: partner");
  EXPECT_EQ(after(next, "P P", "1NT", Next::self), "-");
  EXPECT_EQ(after(next, "", "2NT"), "-");
  EXPECT_EQ(after(next, "1C", "1NT"), "-");
}

TEST(Succession, GoesOnWithOneselfAfterTheOthers) {
  const Conditions next = conditionsFor("1NT P 2C P (2D|2H|2S) P");
  EXPECT_EQ(after(next, "1NT P", "2C"), "1NT P 2C P 2D P: self");
  EXPECT_EQ(after(next, "1NT P", "2C", Next::partner), "-");
  EXPECT_EQ(after(next, "1NT P 2C P", "2H"), "1NT P 2C P 2H P: partner");
}

TEST(Succession, GoesOnAtOnceWhereNothingIsCalled) {
  const Conditions next = conditionsFor("1NT P");
  EXPECT_EQ(after(next, "1NT P", ""), "1NT P: self");
  EXPECT_EQ(after(next, "1NT P", "", Next::partner), "-");
  EXPECT_EQ(after(next, "1NT", ""), "-");
}

// The opponent's turn is nobody's who could go on.
TEST(Succession, DoesNotGoOnWithOpponents) {
  EXPECT_EQ(after(conditionsFor("1NT"), "", "1NT"), "-");
  EXPECT_EQ(after(conditionsFor("1NT P P"), "", "1NT"), "-");
}

}  // namespace
}  // namespace tavrel::hands
