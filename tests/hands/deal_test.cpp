// The cards are shuffled well: a million deals against what is known of all deals.

#include "hands/Deal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>

#include "hands/Dealer.h"

namespace tavrel::hands {
namespace {

constexpr int deals = 1'000'000;

using Shape = std::array<int, 4>;  // the longest suit first

Shape shapeOf(Hand hand) {
  Shape shape = {};
  for (const Suit suit : suits) {
    shape[static_cast<std::size_t>(suit)] = static_cast<int>(hand.length(suit));
  }
  std::sort(shape.begin(), shape.end(), std::greater<>());
  return shape;
}

double choose(int n, int k) {
  double ways = 1;
  for (int i = 0; i < k; ++i) ways = ways * (n - i) / (i + 1);
  return ways;
}

// The share of all hands with that shape: the table that books have, worked out.
double shareOf(Shape shape) {
  double hands = 1;
  for (const int length : shape) hands *= choose(13, length);
  double orders = 0;
  Shape order = shape;
  std::sort(order.begin(), order.end());
  do ++orders;
  while (std::next_permutation(order.begin(), order.end()));
  return hands * orders / choose(52, 13);
}

// How far chi-squared may be from its mean, in standard deviations: once in some thousand times it
// is further.
void expectLikely(double chiSquared, double degrees) {
  EXPECT_LT(std::abs(chiSquared - degrees), 3.5 * std::sqrt(2 * degrees));
}

TEST(Deal, HasTheShapesOfTheKnownTable) {
  EXPECT_NEAR(shareOf({4, 4, 3, 2}), 0.2155, 0.00005);  // as in books
  EXPECT_NEAR(shareOf({5, 3, 3, 2}), 0.1552, 0.00005);
  EXPECT_NEAR(shareOf({7, 2, 2, 2}), 0.0051, 0.00005);
  std::map<Shape, int> counts;
  for (std::uint64_t i = 0; i < deals; ++i) {
    Random random(11, i);
    ++counts[shapeOf(dealHand(random))];
  }
  double chiSquared = 0, degrees = -1, rareExpected = deals;
  int rare = deals;
  for (const auto& [shape, count] : counts) {
    const double expected = shareOf(shape) * deals;
    if (expected < 20) continue;
    chiSquared += (count - expected) * (count - expected) / expected;
    rareExpected -= expected;
    rare -= count;
    ++degrees;
  }
  chiSquared += (rare - rareExpected) * (rare - rareExpected) / rareExpected;
  expectLikely(chiSquared, degrees + 1);
}

// Rows and columns of the table of 52 cards by four seats all have fixed sums.
TEST(Deal, GivesEveryCardToEverySeatAlike) {
  std::array<std::array<int, playerCount>, cardsInPack> counts = {};
  for (std::uint64_t i = 0; i < deals; ++i) {
    Random random(12, i);
    const Deal hands = deal(random);
    for (std::size_t seat = 0; seat < playerCount; ++seat) {
      for (std::size_t card = 0; card < cardsInPack; ++card) {
        const Card each = {static_cast<Suit>(card / cardsInSuit),
                           static_cast<Rank>(card % cardsInSuit) + lowestRank};
        counts[card][seat] += hands[seat].has(each) ? 1 : 0;
      }
    }
  }
  const double expected = deals / 4.0;
  double chiSquared = 0;
  for (const auto& row : counts) {
    for (const int count : row) chiSquared += (count - expected) * (count - expected) / expected;
  }
  // As every seat has thirteen cards, chi-squared is 52/51 of that with 51 x 3 degrees.
  expectLikely(chiSquared * 51 / 52, 51 * 3);
}

// A third of what is drawn has to be drawn again here.
TEST(Random, IsAsLikelyToBeAnyNumberBelowALargeBound) {
  constexpr std::uint32_t bound = 3'000'000'000U;
  constexpr int draws = 100'000;
  Random random(6);
  std::array<int, 3> counts = {};  // of the thirds
  for (int i = 0; i < draws; ++i) ++counts.at(random.below(bound) / 1'000'000'000U);
  for (const int count : counts) EXPECT_NEAR(count, draws / 3, 1'000);
}

TEST(Deal, OfASeedAndANumberIsAlwaysTheSame) {
  Random one(5, 77), again(5, 77), other(5, 78);
  const Hand hand = dealHand(one);
  EXPECT_EQ(hand, dealHand(again));
  EXPECT_NE(hand, dealHand(other));
}

TEST(Deal, KeepsThirteenCardsWhereOneIsExchanged) {
  Random random(3);
  Hand hand = dealHand(random);
  for (int i = 0; i < 100; ++i) {
    const Hand other = withAnotherCard(hand, random);
    EXPECT_EQ(other.size(), 13U);
    EXPECT_NE(other, hand);
    hand = other;
  }
}

}  // namespace
}  // namespace tavrel::hands
