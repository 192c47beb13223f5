#include "hosts/tavrel/HandStart.h"

#include <algorithm>
#include <vector>

#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

using namespace hands;

using Charts = std::vector<const HandChart*>;

std::string listed(const Charts& charts) {
  std::string list;
  for (const HandChart* chart : charts) list += (list.empty() ? "" : ", ") + chart->name();
  return list;
}

void requireHand(const HandChart& chart, const HandAtTable& hand, std::size_t turn,
                 HandWalk& walk) {
  if (walk.isForHand(chart, hand.situation, turn)) return;
  throw Failure("the chart " + chart.name() + " is not for this hand; it assumes '" +
                chart.conditions().hand.value_or("") + "'");
}

[[noreturn]] void refuseAll(const Charts& charts, const Auction& auction) {
  if (charts.empty()) {
    throw Failure("no chart says which auctions it is for; 'tavrel bid HAND CHART' names one");
  }
  std::string all;
  for (const HandChart* chart : charts) {
    all += (all.empty() ? "" : "; ") + chart->name() + " is for " + auctionsOf(*chart);
  }
  throw Failure("no chart is for " + auctionNamed(auction) +
                "; --auction says what was bid, dealer first (" + all + ")");
}

}  // namespace

HandWalk walkThrough(HandCharts& charts) {
  const auto find = [&charts](const std::string& name) -> const HandChart* {
    for (const CatalogueEntry& entry : charts.library().entries()) {
      if (entry.name == name && charts.has(entry)) return &charts.chart(entry);
    }
    return nullptr;
  };
  return {charts.library().directory(), find};
}

HandStart startIn(const HandChart& chart, const HandAtTable& hand, HandWalk& walk) {
  const auto turn = turnFor(chart, hand.situation, hand.seat);
  if (!turn) {
    throw Failure("the chart " + chart.name() + " is for " + auctionsOf(chart) + ", and " +
                  nameOf(hand.seat) + " hasn't been to call after that in " +
                  auctionNamed(hand.situation.auction) +
                  "; --auction says what was bid, dealer first, and --seat whose the hand is");
  }
  requireHand(chart, hand, *turn, walk);
  return {&chart, *turn};
}

HandStart startAnywhere(HandCharts& charts, const HandAtTable& hand, HandWalk& walk) {
  const Situation& situation = hand.situation;
  const std::size_t turn = situation.auction.size();
  const Seat next = situation.seatAt(turn);
  if (situation.auction.isOver()) throw Failure("the auction is over; nobody calls any more");
  if (!handOf(situation.hands, next)) {
    throw Failure(std::string("it is ") + nameOf(next) + "'s turn, and the hand is " +
                  nameOf(hand.seat) + "'s; name the chart that it should walk");
  }
  Charts all, forAuction, forHand;
  for (const HandChart* chart : charts.all()) {
    if (chart->conditions().patterns.empty()) continue;
    all.push_back(chart);
    if (!isFor(*chart, situation.auction)) continue;
    forAuction.push_back(chart);
    if (walk.isForHand(*chart, situation, turn)) forHand.push_back(chart);
  }
  if (forAuction.empty()) refuseAll(all, situation.auction);
  if (forHand.empty()) requireHand(*forAuction.front(), hand, turn, walk);
  if (forHand.size() > 1) {
    throw Failure("several charts are for " + auctionNamed(situation.auction) + ": " +
                  listed(forHand) + "; name one of them: tavrel bid HAND " +
                  forHand.front()->name());
  }
  return {forHand.front(), turn};
}

std::string auctionsOf(const HandChart& chart) {
  std::string all;
  for (const std::string& pattern : chart.conditions().patterns) {
    all += (all.empty() ? "'" : " or '") + pattern + "'";
  }
  return all.empty() ? "any auction" : all;
}

std::string auctionNamed(const Auction& auction) {
  return auction.size() == 0 ? "the auction without a call"
                             : "the auction '" + written(auction) + "'";
}

}  // namespace tavrel
