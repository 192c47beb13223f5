// How long does a hand take, dealt, evaluated and walked through a chart? Beside the same
// questions written by hand.

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

// As many questions as "Opening" has, of the same kinds.
constexpr const char* source = R"yaml(
chart: Opening
start: strong
applies: {auction: "P? P? P?"}
boxes:
  strong: {text: "a?", when: "hcp >= 22 || losers <= 3 && quick >= 4", yes: open-2c, no: notrump}
  open-2c: {text: "b", call: 2C}
  notrump:
    {text: "c?", when: "balanced && hcp >= 15 && hcp <= 17", yes: open-1nt, no: strong-notrump}
  open-1nt: {text: "d", call: 1NT}
  strong-notrump:
    {text: "e?", when: "balanced && hcp >= 20 && hcp <= 21", yes: open-2nt, no: opening}
  open-2nt: {text: "f", call: 2NT}
  opening: {text: "g?", when: "hcp >= 12", yes: major, no: rule-of-20}
  major:
    text: h?
    when: max(spades, hearts) >= 5 && max(spades, hearts) >= max(diamonds, clubs)
    yes: spades
    no: diamonds
  spades: {text: "i?", when: "spades >= hearts", yes: open-1s, no: open-1h}
  open-1s: {text: "j", call: 1S}
  open-1h: {text: "k", call: 1H}
  diamonds:
    text: l?
    when: diamonds > clubs || diamonds == clubs && diamonds >= 4
    yes: open-1d
    no: open-1c
  open-1d: {text: "m", call: 1D}
  open-1c: {text: "n", call: 1C}
  rule-of-20:
    text: o?
    when: hcp >= 10 && hcp + longest + second >= 20 && (seat < 4 || hcp + spades >= 15)
    yes: major
    no: fourth-seat
  fourth-seat: {text: "p?", when: "seat == 4", yes: pass-out, no: long-suit}
  pass-out: {text: "q", call: P}
  long-suit: {text: "r?", when: "longest >= 7", yes: good-suit, no: six-cards}
  good-suit:
    text: s?
    when: tops(longestSuit,3) >= 2 || tops(longestSuit,5) >= 3
    yes: eight-cards
    no: pass
  eight-cards: {text: "t?", when: "longest >= 8", yes: open-4, no: open-3}
  open-4:
    text: u
    call: [{when: "longestSuit == C", call: 4C}, {when: "longestSuit == D", call: 4D},
           {when: "longestSuit == H", call: 4H}, {when: "longestSuit == S", call: 4S}]
  open-3:
    text: v
    call: [{when: "longestSuit == C", call: 3C}, {when: "longestSuit == D", call: 3D},
           {when: "longestSuit == H", call: 3H}, {when: "longestSuit == S", call: 3S}]
  pass: {text: "w", call: P}
  six-cards: {text: "x?", when: "longest == 6 && longestSuit != C", yes: weak-two, no: pass}
  weak-two:
    text: y?
    when: hcp >= 6 && hcp <= 10 && (tops(longestSuit,3) >= 2 || tops(longestSuit,5) >= 3)
    yes: open-2
    no: pass
  open-2:
    text: z
    call: [{when: "longestSuit == D", call: 2D}, {when: "longestSuit == H", call: 2H},
           {when: "longestSuit == S", call: 2S}]
)yaml";

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
    }
    hcp = static_cast<int>(sum[HoldingValues::hcp]);
    losers = static_cast<int>(sum[HoldingValues::losers]);
    halfQuick = static_cast<int>(sum[HoldingValues::halfQuickTricks]);
  }

  bool isBalanced() const { return shortSuits <= 1 && longest <= 5; }
  bool hasGoodSuit() const {
    return topsOf(longestHolding, 3) >= 2 || topsOf(longestHolding, 5) >= 3;
  }

  int seat;
  std::array<int, 4> lengths = {};
  int hcp = 0, losers = 0, halfQuick = 0, longest = 0, second = 0, longestSuit = 0, shortSuits = 0;
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
                         hand.hcp <= 10 && hand.hasGoodSuit();
  return isWeakTwo ? suitBid(2, hand.longestSuit) : Call::pass;
}

Call openingByHand(const Features& hand) {
  if (hand.hcp >= 22 || (hand.losers <= 3 && hand.halfQuick >= 8)) return suitBid(2, 1);
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
  const authoring::SourceFile file("Opening.yaml", source);
  authoring::Diagnostics found;
  const auto compiled = hands::compile(file, {"Opening"}, found);
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
  compete({"deal a hand and bid it", "13 questions", handCount},
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
