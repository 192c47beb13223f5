#include "hands/HoldingValues.h"

#include <algorithm>
#include <bitset>
#include <vector>

namespace tavrel::hands {
namespace {

constexpr unsigned lengthOf(Holding holding) {
  unsigned length = 0;
  for (; holding != 0; holding = static_cast<Holding>(holding & (holding - 1))) ++length;
  return length;
}

unsigned count(Holding holding, Rank rank) { return (holding & bitOf(rank)) != 0 ? 1 : 0; }

unsigned pointsOf(Holding holding) {
  return 4 * count(holding, ace) + 3 * count(holding, king) + 2 * count(holding, queen) +
         count(holding, jack);
}

// Among as many of A, K, Q as the suit has cards, those that are missing.
unsigned losersOf(Holding holding) {
  const unsigned cards = std::min(lengthOf(holding), 3U);
  return cards - topsOf(holding, cards);
}

unsigned halfQuickTricksOf(Holding holding) {
  const bool hasKing = count(holding, king) > 0, hasQueen = count(holding, queen) > 0;
  if (count(holding, ace) > 0) return hasKing ? 4 : (hasQueen ? 3 : 2);
  if (!hasKing) return 0;
  if (hasQueen) return 2;
  return lengthOf(holding) > 1 ? 1 : 0;
}

HoldingValues workedOut(Holding holding) {
  const unsigned length = lengthOf(holding);
  HoldingValues values;
  values.add(HoldingValues::hcp, pointsOf(holding));
  values.add(HoldingValues::lengthPoints, length > 4 ? length - 4 : 0);
  values.add(HoldingValues::controls, 2 * count(holding, ace) + count(holding, king));
  values.add(HoldingValues::halfQuickTricks, halfQuickTricksOf(holding));
  values.add(HoldingValues::losers, losersOf(holding));
  values.add(HoldingValues::aces, count(holding, ace));
  values.add(HoldingValues::kings, count(holding, king));
  values.add(HoldingValues::length, length);
  return values;
}

std::vector<HoldingValues> allValues() {
  std::vector<HoldingValues> all;
  for (std::size_t holding = 0; holding < holdingCount; ++holding) {
    all.push_back(workedOut(static_cast<Holding>(holding)));
  }
  return all;
}

}  // namespace

const HoldingValues& valuesOf(Holding holding) {
  static const std::vector<HoldingValues> all = allValues();
  return all[holding];
}

unsigned topsOf(Holding holding, unsigned count) {
  const unsigned lower = static_cast<unsigned>(cardsInSuit) - std::min(count, 13U);
  return lengthOf(static_cast<Holding>(holding >> lower));
}

bool isStopper(Holding holding) {
  for (unsigned cards = 1; cards <= 4; ++cards) {
    if (count(holding, ace + 1 - static_cast<Rank>(cards)) > 0) return lengthOf(holding) >= cards;
  }
  return false;
}

}  // namespace tavrel::hands
