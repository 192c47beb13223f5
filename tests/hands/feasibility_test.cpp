// Whether there is a hand for some conditions, and which of them contradict one another.

#include "hands/Feasibility.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "hands/AuctionText.h"
#include "hands/Contradiction.h"
#include "hands/Deal.h"
#include "hands/Dealer.h"
#include "hands/HandKinds.h"

namespace tavrel::hands {
namespace {

std::vector<Table> tablesFor(const std::vector<std::string>& auctions) {
  Conditions conditions;
  for (const std::string& text : auctions) {
    conditions.auctions.push_back(std::get<Auction>(readAuction(text)));
  }
  return tablesOf(conditions);
}

// Conditions of all kinds, on cards, suits named in every way, and the table.
const std::vector<std::string> expressions = {
    "hcp >= 12",
    "hcp <= 10",
    "hcp == 37",
    "hcp + longest + second >= 20",
    "longest >= 7",
    "balanced",
    "spades >= hearts",
    "exact(5,5,2,1)",
    "shape(4,4,4,1)",
    "losers <= 3",
    "quick >= 4",
    "controls == 0",
    "aces == 4",
    "tops(longestSuit,3) >= 2 || tops(longestSuit,5) >= 3",
    "tops(S,1) == 1",
    "stopper(theirs)",
    "support >= 3",
    "partner(1) == c1NT",
    "seat == 4",
    "vulnerable",
    "kings + aces >= 5",
    "points >= 15",
    "voids == 0 && singletons == 1",
};

Verdict verdictOf(const std::vector<Wanted>& all, const std::vector<std::string>& auctions) {
  const std::vector<Table> tables = tablesFor(auctions);
  return Feasibility(tables).find(all).verdict;
}

// The call that is asked for may hang on the hand.
TEST(Feasibility, AsksForTheCallsOfAllPlayers) {
  const std::vector<std::string> auctions = {"1C 1D 1H 1S", "P P P"};
  for (const char* asked :
       {"own(1) == c1C", "left(1) == c1D", "partner(1) == c1H", "right(1) == c1S",
        "partner(min(aces, 1)) == c1H", "right(max(1, min(1, aces))) == c1S"}) {
    EXPECT_EQ(verdictOf({{asked, true}}, auctions), Verdict::found) << asked;
    EXPECT_EQ(verdictOf({{asked, true}, {"seat == 4", true}}, auctions), Verdict::none) << asked;
  }
}

TEST(Feasibility, LooksAtTheHonoursOfSuitsThatExpressionsWorkOut) {
  const std::vector<std::string> auctions = {"1H P", "1NT P"};
  const std::string tops = "tops(suitOf(partner(1)), 3) == 3";
  EXPECT_EQ(verdictOf({{tops, true}, {"hcp == 9", true}}, auctions), Verdict::found);
  EXPECT_EQ(verdictOf({{tops, true}, {"hearts == 2", true}}, auctions), Verdict::none);
}

TEST(Feasibility, LooksAtAllHonoursWherePointsDecideWhichSuitItIs) {
  for (const bool isStopped : {true, false}) {
    const std::vector<Wanted> all = {
        {"stopper(hcp >= 4 ? S : C)", isStopped}, {"exact(1, 6, 6, 0)", true}, {"hcp == 4", true}};
    EXPECT_EQ(verdictOf(all, {""}), Verdict::found);
  }
}

TEST(Feasibility, SaysThatNothingIsSettledWhereItMayTryNothing) {
  const std::vector<Table> tables = tablesFor({""});
  Feasibility feasibility(tables, 0);
  EXPECT_EQ(feasibility.find({{"hcp == 37", true}}).verdict, Verdict::unsettled);
}

// So few kinds may be tried that the hand has to be found by changing another one.
TEST(Feasibility, FindsHandsByChangingOthersWhereThereAreTooManyKinds) {
  const std::vector<Table> tables = tablesFor({""});
  Feasibility feasibility(tables, 1);
  const Search found = feasibility.find({{"hcp >= 12", true}, {"spades >= 5", true}});
  ASSERT_EQ(found.verdict, Verdict::found);
  EXPECT_GE(found.position.hand.length(Suit::spades), 5U);
  EXPECT_EQ(feasibility.find({{"hcp >= 38", true}}).verdict, Verdict::unsettled);
}

class FeasibilityOfSets : public testing::Test {
 protected:
  std::vector<Wanted> drawn(std::size_t count) {
    std::vector<Wanted> all;
    for (std::size_t i = 0; i < count; ++i) {
      const auto which = random_.below(static_cast<std::uint32_t>(expressions.size()));
      all.push_back({expressions[which], random_.below(2) == 0});
    }
    return all;
  }

  bool areAll(const std::vector<bool>& fulfilled) {
    return std::find(fulfilled.begin(), fulfilled.end(), false) == fulfilled.end();
  }

  const std::vector<Table> tables_ = tablesFor({"", "P P P", "1NT P", "1H 1S", "1S X 2S P"});
  Feasibility feasibility_{tables_};
  Random random_{4};
};

TEST_F(FeasibilityOfSets, FindsOnlyHandsThatFulfilAll) {
  int found = 0;
  for (int i = 0; i < 300; ++i) {
    const std::vector<Wanted> all = drawn(1 + random_.below(5));
    const Search search = feasibility_.find(all);
    if (search.verdict != Verdict::found) continue;
    ++found;
    EXPECT_EQ(search.position.hand.size(), 13U);
    EXPECT_TRUE(areAll(feasibility_.fulfilled(all, search.position)));
  }
  EXPECT_GT(found, 100);
}

TEST_F(FeasibilityOfSets, NeverDeniesAHandThatCanBeDealt) {
  for (int i = 0; i < 300; ++i) {
    const auto table = random_.below(static_cast<std::uint32_t>(tables_.size()));
    const Position position = {dealHand(random_), table};
    std::vector<Wanted> all = drawn(6);
    const std::vector<bool> fulfilled = feasibility_.fulfilled(all, position);
    for (std::size_t each = 0; each < all.size(); ++each) {
      if (!fulfilled[each]) all[each].isTrue = !all[each].isTrue;
    }
    EXPECT_EQ(feasibility_.find(all).verdict, Verdict::found);
  }
}

TEST_F(FeasibilityOfSets, KnowsWhatNoHandHas) {
  const auto isFeasible = [this](const std::vector<Wanted>& all) {
    return feasibility_.find(all).verdict;
  };
  EXPECT_EQ(isFeasible({{"hcp == 38", true}}), Verdict::none);
  EXPECT_EQ(isFeasible({{"hcp == 37", true}}), Verdict::found);
  EXPECT_EQ(isFeasible({{"hcp == 37", true}, {"longest >= 5", true}}), Verdict::none);
  EXPECT_EQ(isFeasible({{"quick >= 4", true}, {"aces == 0", true}, {"hcp <= 19", true}}),
            Verdict::none);
  EXPECT_EQ(isFeasible({{"tops(S,3) == 3", true}, {"hcp <= 8", true}}), Verdict::none);
  EXPECT_EQ(isFeasible({{"partner(1) == c1NT", true}, {"seat == 4", true}}), Verdict::none);
  EXPECT_EQ(isFeasible({{"stopper(theirs)", true}, {"hcp == 0", true}}), Verdict::none);
}

TEST_F(FeasibilityOfSets, SaysWhenItHasNotSettledIt) {
  Feasibility short_(tables_, 10);
  const std::vector<Wanted> all = {{"hcp == 37", true}, {"longest >= 5", true}};
  EXPECT_EQ(short_.find(all).verdict, Verdict::unsettled);
}

// Every subset is tried, the smaller ones first.
std::size_t smallestByForce(Feasibility& feasibility, const std::vector<Wanted>& all) {
  std::size_t best = all.size() + 1;
  for (unsigned subset = 1; subset < 1U << all.size(); ++subset) {
    std::vector<Wanted> chosen;
    for (std::size_t i = 0; i < all.size(); ++i) {
      if ((subset >> i & 1U) != 0) chosen.push_back(all[i]);
    }
    if (chosen.size() >= best) continue;
    if (feasibility.find(chosen).verdict == Verdict::none) best = chosen.size();
  }
  return best;
}

TEST_F(FeasibilityOfSets, GivesTheSmallestContradiction) {
  int contradictions = 0;
  for (int i = 0; contradictions < 40 && i < 2'000; ++i) {
    const std::vector<Wanted> all = drawn(6);
    if (feasibility_.find(all).verdict != Verdict::none) continue;
    ++contradictions;
    const Contradiction found = smallestContradiction(feasibility_, all);
    EXPECT_TRUE(found.isSmallest);
    EXPECT_EQ(found.conditions.size(), smallestByForce(feasibility_, all));
    std::vector<Wanted> chosen;
    for (const std::size_t number : found.conditions) chosen.push_back(all[number]);
    EXPECT_EQ(feasibility_.find(chosen).verdict, Verdict::none);
  }
  EXPECT_EQ(contradictions, 40);
}

// --- kinds of hands ------------------------------------------------------------------

TEST(HandKinds, AreAllThatADealtHandCanBe) {
  HandKinds kinds;
  Random random(9);
  for (int i = 0; i < 200; ++i) {
    const Hand hand = dealHand(random);
    Evaluation dealt, kind;
    dealt.setHand(hand);
    Lengths lengths = {};
    for (const Suit suit : suits) {
      lengths[static_cast<std::size_t>(suit)] = static_cast<unsigned char>(hand.length(suit));
    }
    const auto* all = kinds.of(lengths, {highCardPoints | loserCount | quickTricks, 0});
    ASSERT_NE(all, nullptr);
    const bool isThere = std::any_of(all->begin(), all->end(), [&](Hand each) {
      kind.setHand(each);
      return kind[Variable::hcp] == dealt[Variable::hcp] &&
             kind[Variable::losers] == dealt[Variable::losers] &&
             kind[Variable::quick] == dealt[Variable::quick];
    });
    EXPECT_TRUE(isThere) << written(hand);
  }
}

TEST(HandKinds, TellApartWhatTheyAreAskedForAlone) {
  HandKinds kinds;
  const Lengths lengths = {4, 3, 3, 3};
  EXPECT_EQ(allLengths().size(), 560U);
  EXPECT_EQ(kinds.of(lengths, {noCards, 0})->size(), 1U);
  EXPECT_EQ(kinds.of(lengths, {highCardPoints, 0})->size(), 38U);  // 0 to 37
  EXPECT_EQ(kinds.of(lengths, {topHonours, 1})->size(), 31U);      // four cards can't be five
}

TEST(HandKinds, AreNotHeldWhereThereAreTooMany) {
  HandKinds kinds;
  constexpr unsigned allSuits = 15;
  EXPECT_EQ(kinds.of({4, 3, 3, 3}, {topHonours, allSuits}), nullptr);
  EXPECT_EQ(kinds.of({4, 3, 3, 3}, {topHonours, allSuits}), nullptr);
}

TEST(HandKinds, AreTheSameAgainWhenTheyHadToBeForgotten) {
  HandKinds kinds;
  constexpr unsigned allSuits = 15;
  constexpr std::size_t enoughToForget = 4'000'000;
  const Lengths first = {5, 4, 3, 1};
  const std::vector<Hand> before = *kinds.of(first, {topHonours, allSuits});
  std::size_t sum = 0;
  for (const Lengths& lengths : allLengths()) {
    const auto* all = kinds.of(lengths, {topHonours, allSuits});
    sum += all == nullptr ? 0 : all->size();
    if (sum > enoughToForget) break;
  }
  EXPECT_GT(sum, enoughToForget);
  EXPECT_EQ(*kinds.of(first, {topHonours, allSuits}), before);
}

}  // namespace
}  // namespace tavrel::hands
