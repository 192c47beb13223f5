#include "hands/HandKinds.h"

#include <algorithm>
#include <set>
#include <utility>

#include "hands/HoldingValues.h"

namespace tavrel::hands {
namespace {

constexpr std::size_t mostHeld = 4'000'000, mostAtOnce = 500'000;
constexpr unsigned topHonourCount = 5;

std::vector<Lengths> everyLengths() {
  std::vector<Lengths> all;
  constexpr unsigned most = cardsInHand;
  for (unsigned clubs = 0; clubs <= most; ++clubs) {
    for (unsigned diamonds = 0; clubs + diamonds <= most; ++diamonds) {
      for (unsigned hearts = 0; clubs + diamonds + hearts <= most; ++hearts) {
        const unsigned spades = most - clubs - diamonds - hearts;
        all.push_back({static_cast<unsigned char>(clubs), static_cast<unsigned char>(diamonds),
                       static_cast<unsigned char>(hearts), static_cast<unsigned char>(spades)});
      }
    }
  }
  return all;
}

// What of a holding's values is added up over the suits, as far as the basis has it.
std::uint64_t sumsOf(const HoldingValues& values, unsigned basis) {
  constexpr std::array<std::pair<Basis, HoldingValues::Field>, 6> fields = {{
      {highCardPoints, HoldingValues::hcp},
      {controlCount, HoldingValues::controls},
      {quickTricks, HoldingValues::halfQuickTricks},
      {loserCount, HoldingValues::losers},
      {aceCount, HoldingValues::aces},
      {kingCount, HoldingValues::kings},
  }};
  HoldingValues sums;
  for (const auto& [part, field] : fields) {
    if ((basis & part) != 0) sums.add(field, values[field]);
  }
  return sums.number();
}

// A hand in the making, and all that can be told of it.
struct Partial {
  std::uint64_t sums = 0;
  std::uint32_t tops = 0;
  Hand hand;

  friend bool operator<(const Partial& a, const Partial& b) {
    return std::tie(a.sums, a.tops) < std::tie(b.sums, b.tops);
  }
  friend bool operator==(const Partial& a, const Partial& b) {
    return a.sums == b.sums && a.tops == b.tops;
  }
};

void keepOneOfEach(std::vector<Partial>& partials) {
  std::stable_sort(partials.begin(), partials.end());
  partials.erase(std::unique(partials.begin(), partials.end()), partials.end());
}

}  // namespace

const std::vector<Lengths>& allLengths() {
  static const std::vector<Lengths> all = everyLengths();
  return all;
}

Hand handOf(const Lengths& lengths) {
  Hand hand;
  for (const Suit suit : suits) {
    const unsigned length = lengths[static_cast<std::size_t>(suit)];
    hand.setHolding(suit, static_cast<Holding>((1U << length) - 1));
  }
  return hand;
}

const HandKinds::Parts& HandKinds::partsFor(unsigned basis, bool hasTops) {
  const auto [found, isNew] = parts_.try_emplace({basis, hasTops});
  if (!isNew) return found->second;
  std::set<std::tuple<unsigned, std::uint64_t, std::uint32_t>> seen;
  for (std::size_t i = 0; i < holdingCount; ++i) {
    const auto holding = static_cast<Holding>(i);
    const HoldingValues& values = valuesOf(holding);
    const unsigned length = values[HoldingValues::length];
    const std::uint32_t tops = hasTops ? holding >> (cardsInSuit - topHonourCount) : 0;
    const std::uint64_t sums = sumsOf(values, basis);
    if (seen.insert({length, sums, tops}).second) {
      found->second[length].push_back({sums, tops, holding});
    }
  }
  return found->second;
}

const std::vector<Hand>* HandKinds::of(const Lengths& lengths, const Distinction& distinction) {
  if (held_ > mostHeld) {
    hands_.clear();
    held_ = 0;
  }
  const auto [found, isNew] = hands_.try_emplace({distinction, lengths});
  std::vector<Hand>& hands = found->second;
  if (isNew && make(lengths, distinction, hands)) held_ += hands.size();
  return hands.empty() ? nullptr : &hands;
}

// Suit by suit, forgetting at once what can't be told apart. False if there are too many.
bool HandKinds::make(const Lengths& lengths, const Distinction& distinction,
                     std::vector<Hand>& hands) {
  std::vector<Partial> partials(1);
  for (const Suit suit : suits) {
    const auto number = static_cast<unsigned>(suit);
    const bool hasTops = (distinction.topSuits >> number & 1U) != 0;
    const auto& parts = partsFor(distinction.basis, hasTops)[lengths[number]];
    if (partials.size() * parts.size() > mostAtOnce) return false;
    std::vector<Partial> longer;
    for (const Partial& partial : partials) {
      for (const Part& part : parts) {
        Partial& next = longer.emplace_back(partial);
        next.sums += part.sums;
        next.tops |= part.tops << (topHonourCount * number);
        next.hand.setHolding(suit, part.holding);
      }
    }
    keepOneOfEach(longer);
    partials = std::move(longer);
  }
  for (const Partial& partial : partials) hands.push_back(partial.hand);
  return true;
}

}  // namespace tavrel::hands
