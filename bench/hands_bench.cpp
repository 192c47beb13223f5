// How long does a hand take, dealt, evaluated and walked through "Opening"? Beside the same
// conditions written by hand.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "authoring/Compiler.h"
#include "bench/Checksum.h"
#include "bench/Contest.h"
#include "facade/Tavrel.h"
#include "hands/ConditionCompiler.h"
#include "hands/Dealer.h"
#include "hands/HoldingValues.h"
#include "hands/Walker.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::bench {
namespace {

using namespace hands;

constexpr double seconds = 3;
constexpr double mostNanoseconds = 3333;  // 300,000 hands a second
constexpr double timesByHand = 2;
constexpr std::size_t handCount = 10'000;

// What a program for this chart alone would look at.
struct Features {
  Features(Hand hand, int seatOfCaller) : seat(seatOfCaller) {
    HoldingValues sum;
    for (const Suit suit : suits) {
      const HoldingValues& values = valuesOf(hand.holding(suit));
      sum = sum + values;
      const int length = static_cast<int>(values[HoldingValues::length]);
      lengths[static_cast<std::size_t>(suit)] = length;
      if (length >= longest) {
        second = longest;
        longest = length;
        longestHolding = hand.holding(suit);
        longestSuit = static_cast<int>(suit) + 1;
      } else {
        second = std::max(second, length);
      }
      shortSuits += length < 2 ? 2 : (length == 2 ? 1 : 0);
      hasVoid = hasVoid || length == 0;
    }
    hcp = static_cast<int>(sum[HoldingValues::hcp]);
    losers = static_cast<int>(sum[HoldingValues::losers]);
    halfQuick = static_cast<int>(sum[HoldingValues::halfQuickTricks]);
  }

  bool isBalanced() const { return shortSuits <= 1 && longest <= 5; }
  bool isNearlyGame() const {
    return losers <= 3 && halfQuick >= 8 && (longest >= 6 || second >= 5);
  }
  bool hasGoodSuit() const {
    return topsOf(longestHolding, 3) >= 2 || topsOf(longestHolding, 5) >= 3;
  }
  bool hasSidePlace() const {
    return hasVoid || (lengths[3] >= 4 && longestSuit != 4) ||
           (lengths[2] >= 4 && longestSuit != 3);
  }

  int seat;
  std::array<int, 4> lengths = {};
  int hcp = 0, losers = 0, halfQuick = 0, longest = 0, second = 0, longestSuit = 0, shortSuits = 0;
  bool hasVoid = false;
  Holding longestHolding = 0;
};

Call suitBid(int level, int suit) { return bid(level, static_cast<Strain>(suit)); }

Call openingInASuit(const Features& hand) {
  const auto [clubs, diamonds, hearts, spades] = hand.lengths;
  const int major = std::max(hearts, spades);
  if (major >= 5 && major >= std::max(clubs, diamonds)) return suitBid(1, spades >= hearts ? 4 : 3);
  return suitBid(1, diamonds > clubs || (diamonds == clubs && diamonds >= 4) ? 2 : 1);
}

Call preempt(const Features& hand) {
  if (hand.longest >= 7) {
    if (!hand.hasGoodSuit()) return Call::pass;
    return suitBid(hand.longest >= 8 ? 4 : 3, hand.longestSuit);
  }
  const bool isWeakTwo = hand.longest == 6 && hand.longestSuit != 1 && hand.hcp >= 6 &&
                         hand.hcp <= 10 && hand.hasGoodSuit() && !hand.hasSidePlace();
  return isWeakTwo ? suitBid(2, hand.longestSuit) : Call::pass;
}

Call openingByHand(const Features& hand) {
  if (hand.hcp >= 22 || hand.isNearlyGame()) return suitBid(2, 1);
  if (hand.isBalanced() && hand.hcp >= 15 && hand.hcp <= 17) return suitBid(1, 5);
  if (hand.isBalanced() && hand.hcp >= 20 && hand.hcp <= 21) return suitBid(2, 5);
  const bool isRuleOf20 = hand.hcp >= 10 && hand.hcp + hand.longest + hand.second >= 20 &&
                          (hand.seat < 4 || hand.hcp + hand.lengths[3] >= 15);
  if (hand.hcp >= 12 || isRuleOf20) return openingInASuit(hand);
  return hand.seat == 4 ? Call::pass : preempt(hand);
}

HandChart chartOf(const authoring::CompiledChart& compiled) {
  const TemporaryDirectory folder;
  writeFile(folder.chart("Opening"), compiled.bytes);
  Tavrel navigator(folder.path());
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  return std::get<HandChart>(HandChart::of(navigator.allElements(), conditionsOf(compiled)));
}

HandChart benchChart() {
  const std::string path = TAVREL_BENCH_SOURCES "/Opening.yaml";
  const authoring::SourceFile file(path, readFile(path));
  authoring::Diagnostics found;
  const auto compiled = compileWithConditions(file, {"Opening", "RespNT"}, found);
  if (compiled) return chartOf(*compiled);
  for (const auto& each : found.sorted()) std::cerr << shown(each, file);
  std::exit(2);
}

// Deals the same hands to everyone, and takes their calls.
template <typename Bid>
std::uint64_t checksumOf(Bid bid) {
  Checksum sum;
  for (std::uint64_t i = 0; i < handCount; ++i) {
    Random random(1, i);
    sum.add(static_cast<std::int64_t>(bid(random)));
  }
  return sum.value();
}

template <typename Bid>
void work(Bid bid) {
  for (std::uint64_t i = 0; i < handCount; ++i) {
    Random random(1, i);
    keep(bid(random));
  }
}

void contests(double time) {
  const HandChart chart = benchChart();
  const std::vector<Table> tables = tablesOf(chart.conditions());
  const auto walker = std::make_shared<Walker>(chart);
  const auto dealer = std::make_shared<Dealer>(*walker, tables, std::nullopt);
  const auto walked = [walker, dealer](Random& random) {
    dealer->deal(random);
    walker->walk([](BoxIndex) { return std::nullopt; });
    return walker->callAt(walker->end());
  };
  const auto byHand = [&tables](Random& random) {
    const auto table = random.below(static_cast<std::uint32_t>(tables.size()));
    return openingByHand({dealHand(random), tables[table].auction.seat()});
  };
  const auto dealt = [&tables](Random& random) {
    keep(random.below(static_cast<std::uint32_t>(tables.size())));
    return dealHand(random);
  };
  compete({"deal a hand and bid it", "15 questions", handCount},
          {{"Tavrel", Rival::itself, mostNanoseconds, [walked] { work(walked); },
            [walked] { return checksumOf(walked); }},
           {"conditions written by hand", Rival::floor, timesByHand, [byHand] { work(byHand); },
            [byHand] { return checksumOf(byHand); }},
           {"the deal alone", Rival::floor, noBar, [dealt] { work(dealt); }}},
          time);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contests(time);
}
