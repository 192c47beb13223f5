// What a hand is worth, against a second way of working it out: from the hand as it is written,
// suit by suit and letter by letter.

#include "hands/Evaluation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "hands/Deal.h"

namespace tavrel::hands {
namespace {

// The suits of a hand as it is written: spades, hearts, diamonds, clubs.
using Suits = std::array<std::string, 4>;

Suits suitsOf(Hand hand) {
  std::istringstream text(written(hand));
  Suits all;
  for (std::string& suit : all) std::getline(text, suit, '.');
  return all;
}

bool has(const std::string& suit, char rank) { return suit.find(rank) != std::string::npos; }

template <typename Worth>
double sum(const Suits& all, Worth worth) {
  double total = 0;
  for (const std::string& suit : all) total += worth(suit);
  return total;
}

double pointsOfHonours(const std::string& suit) {
  static const std::map<char, double> worth = {{'A', 4}, {'K', 3}, {'Q', 2}, {'J', 1}};
  double total = 0;
  for (const char rank : suit) {
    const auto found = worth.find(rank);
    if (found != worth.end()) total += found->second;
  }
  return total;
}

double pointsOfLength(const std::string& suit) {
  return std::max(0.0, static_cast<double>(suit.size()) - 4);
}

// By the holding that the suit begins with, as books list them.
double quickTricksOf(const std::string& suit) {
  const std::string top = suit.substr(0, 2);
  if (top == "AK") return 2;
  if (top == "AQ") return 1.5;
  if (top[0] == 'A' || top == "KQ") return 1;
  return top.size() == 2 && top[0] == 'K' ? 0.5 : 0;
}

double losersOf(const std::string& suit) {
  const std::string_view wanted = std::string_view("AKQ").substr(0, suit.size());
  return static_cast<double>(
      std::count_if(wanted.begin(), wanted.end(), [&](char rank) { return !has(suit, rank); }));
}

double controlsOf(const std::string& suit) {
  return (has(suit, 'A') ? 2.0 : 0.0) + (has(suit, 'K') ? 1.0 : 0.0);
}

bool isStopped(const std::string& suit) {
  return has(suit, 'A') || (has(suit, 'K') && suit.size() > 1) ||
         (has(suit, 'Q') && suit.size() > 2) || (has(suit, 'J') && suit.size() > 3);
}

std::string shapeOf(const Suits& all) {
  std::string shape;
  for (const std::string& suit : all) shape += static_cast<char>('a' + suit.size());
  std::sort(shape.begin(), shape.end(), std::greater<>());
  std::string digits;
  for (const char length : shape) digits += std::to_string(length - 'a') + "-";
  return digits.substr(0, digits.size() - 1);
}

// 1 for clubs to 4 for spades, of the suits in the order in which they are written.
double longestSuitOf(const Suits& all) {
  std::size_t longest = 0;
  for (std::size_t i = 1; i < all.size(); ++i) {
    if (all[i].size() > all[longest].size()) longest = i;
  }
  return 4 - static_cast<double>(longest);
}

double secondSuitOf(Suits all) {
  all[4 - static_cast<std::size_t>(longestSuitOf(all))].clear();
  return longestSuitOf(all);
}

std::size_t sizeOf(const Suits& all, double suit) {
  return all[4 - static_cast<std::size_t>(suit)].size();
}

class HandsOfAllKinds : public testing::Test {
 protected:
  // Calls a test with a million hands and their suits.
  template <typename Each>
  void forEachHand(Each each) {
    Random random(20);
    for (int i = 0; i < 1'000'000 && !HasFailure(); ++i) {
      evaluation.setHand(dealHand(random));
      each(suitsOf(evaluation.hand()));
      if (HasFailure()) ADD_FAILURE() << "with " << written(evaluation.hand());
    }
  }

  double countOf(const Suits& all, std::size_t length) {
    return static_cast<double>(std::count_if(
        all.begin(), all.end(), [&](const std::string& suit) { return suit.size() == length; }));
  }

  Evaluation evaluation;
};

TEST_F(HandsOfAllKinds, HaveTheirHonoursCounted) {
  forEachHand([&](const Suits& all) {
    const double points = sum(all, pointsOfHonours);
    EXPECT_EQ(evaluation[Variable::hcp], points);
    EXPECT_EQ(evaluation[Variable::points], points + sum(all, pointsOfLength));
    EXPECT_EQ(evaluation[Variable::quick], sum(all, quickTricksOf));
    EXPECT_EQ(evaluation[Variable::losers], sum(all, losersOf));
    EXPECT_EQ(evaluation[Variable::controls], sum(all, controlsOf));
    EXPECT_EQ(evaluation[Variable::aces], sum(all, [](auto& suit) { return has(suit, 'A'); }));
    EXPECT_EQ(evaluation[Variable::kings], sum(all, [](auto& suit) { return has(suit, 'K'); }));
  });
}

TEST_F(HandsOfAllKinds, HaveTheirCardsCounted) {
  forEachHand([&](const Suits& all) {
    EXPECT_EQ(evaluation[Variable::spades], all[0].size());
    EXPECT_EQ(evaluation[Variable::hearts], all[1].size());
    EXPECT_EQ(evaluation[Variable::diamonds], all[2].size());
    EXPECT_EQ(evaluation[Variable::clubs], all[3].size());
    EXPECT_EQ(evaluation[Variable::voids], countOf(all, 0));
    EXPECT_EQ(evaluation[Variable::singletons], countOf(all, 1));
    EXPECT_EQ(evaluation[Variable::doubletons], countOf(all, 2));
    EXPECT_EQ(evaluation[Variable::longestSuit], longestSuitOf(all));
    EXPECT_EQ(evaluation[Variable::secondSuit], secondSuitOf(all));
    EXPECT_EQ(evaluation[Variable::longest], sizeOf(all, longestSuitOf(all)));
    EXPECT_EQ(evaluation[Variable::second], sizeOf(all, secondSuitOf(all)));
    EXPECT_EQ(evaluation.length(1), all[3].size());
  });
}

TEST_F(HandsOfAllKinds, HaveAShape) {
  const std::vector<std::string> balanced = {"4-3-3-3", "4-4-3-2", "5-3-3-2"};
  const std::vector<std::string> shapelier = {"5-4-2-2", "6-3-2-2"};
  const auto isOne = [](const std::vector<std::string>& shapes, const std::string& shape) {
    return std::find(shapes.begin(), shapes.end(), shape) != shapes.end();
  };
  forEachHand([&](const Suits& all) {
    const std::string shape = shapeOf(all);
    EXPECT_EQ(evaluation[Variable::balanced], isOne(balanced, shape));
    EXPECT_EQ(evaluation[Variable::semibalanced],
              isOne(balanced, shape) || isOne(shapelier, shape));
    EXPECT_EQ(evaluation.shape(2, 5, 3, 3), shape == "5-3-3-2");
    const bool isExact = all[0].size() == 4 && all[1].size() == 3 && all[2].size() == 4;
    EXPECT_EQ(evaluation.exact(4, 3, 4, 2), isExact);
  });
}

TEST_F(HandsOfAllKinds, HaveStoppersAndTops) {
  const std::string honours = "AKQJT";
  forEachHand([&](const Suits& all) {
    for (std::size_t i = 0; i < all.size(); ++i) {
      const double suit = 4 - static_cast<double>(i);
      EXPECT_EQ(evaluation.stopper(suit), isStopped(all[i]));
      double tops = 0;
      for (std::size_t n = 1; n <= honours.size(); ++n) {
        if (has(all[i], honours[n - 1])) ++tops;
        EXPECT_EQ(evaluation.tops(suit, static_cast<double>(n)), tops);
      }
    }
  });
}

Table tableAfter(const std::vector<Call>& calls) {
  Table table;
  for (const Call call : calls) table.auction.add(call);
  return table;
}

constexpr Call oneHeart = bid(1, Strain::hearts), oneNotrump = bid(1, Strain::notrump),
               twoClubs = bid(2, Strain::clubs);

class ATable : public testing::Test {
 protected:
  void SetUp() override {
    Hand hand;
    for (Rank rank = lowestRank; rank <= ace; ++rank) {
      hand.add({rank > ten ? Suit::hearts : Suit::clubs, rank});
    }
    evaluation.setHand(hand);
  }

  double valueAfter(const std::vector<Call>& calls, Variable variable) {
    table = tableAfter(calls);
    evaluation.setTable(table);
    return evaluation[variable];
  }

  Table table;
  Evaluation evaluation;
};

TEST_F(ATable, GivesSupportForTheSuitThatPartnerBidLast) {
  EXPECT_EQ(valueAfter({}, Variable::support), 0);
  EXPECT_EQ(valueAfter({oneHeart, Call::pass}, Variable::support), 4);
  EXPECT_EQ(valueAfter({oneHeart, Call::pass}, Variable::partners), 3);
  EXPECT_EQ(valueAfter({oneNotrump, Call::pass}, Variable::support), 0);
  EXPECT_EQ(valueAfter({oneNotrump, Call::pass}, Variable::partners), 0);
}

TEST_F(ATable, KnowsTheSuitThatTheyBidLast) {
  EXPECT_EQ(valueAfter({oneHeart}, Variable::theirs), 3);
  EXPECT_EQ(valueAfter({oneHeart, Call::pass, twoClubs}, Variable::theirs), 1);
  EXPECT_EQ(valueAfter({oneHeart, Call::pass}, Variable::theirs), 0);
}

TEST_F(ATable, CountsSeatsFromTheDealer) {
  EXPECT_EQ(valueAfter({}, Variable::seat), 1);
  EXPECT_EQ(valueAfter({Call::pass, Call::pass, Call::pass}, Variable::seat), 4);
  EXPECT_EQ(valueAfter({Call::pass, oneHeart, Call::pass, twoClubs}, Variable::seat), 1);
}

TEST_F(ATable, RemembersAPassedHand) {
  EXPECT_EQ(valueAfter({Call::pass, oneHeart, Call::pass, Call::pass}, Variable::passedHand), 1);
  EXPECT_EQ(valueAfter({oneHeart, Call::pass, Call::pass, twoClubs}, Variable::passedHand), 0);
  EXPECT_EQ(valueAfter({}, Variable::passedHand), 0);
}

TEST_F(ATable, TellsWhoIsVulnerable) {
  table.isVulnerable = true;
  evaluation.setTable(table);
  EXPECT_EQ(evaluation[Variable::vulnerable], 1);
  EXPECT_EQ(evaluation[Variable::theyVulnerable], 0);
}

TEST_F(ATable, GivesTheCallsOfEachPlayer) {
  table = tableAfter({oneHeart, Call::pass, twoClubs, Call::doubled, Call::pass, Call::pass});
  evaluation.setTable(table);
  EXPECT_EQ(evaluation.callOf(Player::partner, 1), static_cast<double>(oneHeart));
  EXPECT_EQ(evaluation.callOf(Player::right, 2), static_cast<double>(Call::pass));
  EXPECT_EQ(evaluation.callOf(Player::self, 1), static_cast<double>(twoClubs));
  EXPECT_EQ(evaluation.callOf(Player::left, 1), static_cast<double>(Call::doubled));
  EXPECT_EQ(evaluation.callOf(Player::left, 2), static_cast<double>(Call::none));
  EXPECT_EQ(evaluation.callOf(Player::left, 0), static_cast<double>(Call::none));
  EXPECT_EQ(evaluation.callOf(Player::left, 1e300), static_cast<double>(Call::none));
}

TEST_F(ATable, TakesNumbersThatAreNoSuitsForNoCards) {
  for (const double suit : {-1.0, 0.0, 0.5, 5.0, 1e300, std::nan("")}) {
    EXPECT_EQ(evaluation.length(suit), 0);
    EXPECT_EQ(evaluation.tops(suit, 3), 0);
    EXPECT_EQ(evaluation.tops(3, suit), suit >= 1 ? 4 : 0);
    EXPECT_EQ(evaluation.stopper(suit), 0);
  }
}

TEST(CallsAsNumbers, HaveASuitAndALevel) {
  EXPECT_EQ(suitOf(static_cast<double>(twoClubs)), 1);
  EXPECT_EQ(level(static_cast<double>(twoClubs)), 2);
  EXPECT_EQ(suitOf(static_cast<double>(oneNotrump)), 5);
  EXPECT_EQ(suitOf(static_cast<double>(Call::pass)), 0);
  for (const double call : {-1.0, 39.0, 1e300, std::nan("")}) {
    EXPECT_EQ(suitOf(call), 0);
    EXPECT_EQ(level(call), 0);
  }
}

}  // namespace
}  // namespace tavrel::hands
