// Tallies are equal where all of them is.

#include "hands/Tally.h"

#include <gtest/gtest.h>

#include "tests/hands/TestChart.h"

namespace tavrel::hands {
namespace {

Position positionWith(Rank rank, std::uint32_t table = 0) {
  Position position;
  position.hand.add({Suit::spades, rank});
  position.table = table;
  return position;
}

Seen seenIn(std::uint64_t deal, Position position) {
  Seen seen;
  seen.note(deal, position);
  return seen;
}

TEST(Positions, AreEqualWithTheSameHandAtTheSameTable) {
  EXPECT_TRUE(positionWith(ace) == positionWith(ace));
  EXPECT_FALSE(positionWith(ace) == positionWith(king));
  EXPECT_FALSE(positionWith(ace) == positionWith(ace, 1));
}

TEST(WhatWasSeen, IsEqualWithTheSameCountAndTheSameFirstDeal) {
  const Seen seen = seenIn(3, positionWith(ace));
  EXPECT_TRUE(Seen() == Seen());
  EXPECT_TRUE(seen == seenIn(3, positionWith(ace)));
  EXPECT_FALSE(seen == Seen());
  EXPECT_FALSE(seen == seenIn(4, positionWith(ace)));
  EXPECT_FALSE(seen == seenIn(3, positionWith(king)));
}

TEST(WhatWasSeen, KeepsTheFirstDealInWhateverOrderTheyCome) {
  Seen seen = seenIn(7, positionWith(king));
  seen.note(2, positionWith(ace));
  seen.note(9, positionWith(queen));
  EXPECT_EQ(seen.count, 3U);
  EXPECT_EQ(seen.deal, 2U);
  EXPECT_TRUE(seen.position == positionWith(ace));
}

TEST(Extents, AreEqualWithBothBounds) {
  Extent extent, other;
  extent.note(5);
  other.note(5);
  EXPECT_TRUE(extent == other);
  other.note(6);
  EXPECT_FALSE(extent == other);
  extent.note(6);
  extent.note(4);
  EXPECT_FALSE(extent == other);
}

// One part of a box's tally changed, and nothing else.
TEST(TalliesOfBoxes, AreEqualInAllTheirParts) {
  const Seen seen = seenIn(1, positionWith(ace));
  std::vector<BoxTally> different(6);
  different[0].reached = seen;
  different[1].answers.yes = seen;
  different[2].answers.no = seen;
  different[3].calls.push_back(seen);
  different[4][Fall::loop] = seen;
  different[5].extents[0].note(12);
  for (const BoxTally& each : different) {
    EXPECT_FALSE(each == BoxTally());
    EXPECT_TRUE(each == BoxTally(each));
  }
}

TEST(Tallies, AreEqualInAllTheirParts) {
  Tally deals, undealt, boxes;
  deals.deals = 1;
  undealt.undealt = 1;
  boxes.boxes.emplace_back();
  for (const Tally& each : {deals, undealt, boxes}) EXPECT_FALSE(each == Tally());
  EXPECT_TRUE(Tally() == Tally());
}

// Nothing is said of the second box.
TEST(Tallies, HaveAPlaceForEachCallOfAnEnd) {
  const TestChart test(R"(
chart: Opening
start: strong
boxes:
  strong: {text: "12+ HCP?", when: "hcp >= 12", yes: choice, no: silent}
  choice: {text: "Bid", call: [{when: "spades > 4", call: 1S}, {call: 1C}]}
  silent: {text: "Whatever"}
)");
  const Tally tally(test.chart());
  EXPECT_EQ(tally.boxes[test.box("choice")].calls.size(), 2U);
  EXPECT_EQ(tally.boxes.size(), 3U);
}

}  // namespace
}  // namespace tavrel::hands
