#include "hands/Deal.h"

#include <cstddef>
#include <utility>

namespace tavrel::hands {
namespace {

std::uint64_t mixed(std::uint64_t number) {
  number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9U;
  number = (number ^ (number >> 27)) * 0x94D049BB133111EBU;
  return number ^ (number >> 31);
}

constexpr std::uint64_t step = 0x9E3779B97F4A7C15U;

using Pack = std::array<std::uint8_t, cardsInPack>;

Pack sortedPack() {
  Pack pack = {};
  for (std::size_t i = 0; i < pack.size(); ++i) pack[i] = static_cast<std::uint8_t>(i);
  return pack;
}

// Takes a card from those from `first` on, and puts it there.
Card draw(Pack& pack, std::size_t first, Random& random) {
  const std::size_t drawn = first + random.below(static_cast<std::uint32_t>(pack.size() - first));
  std::swap(pack[first], pack[drawn]);
  return cardOf(pack[first]);
}

Card drawn(Random& random) { return cardOf(random.below(cardsInPack)); }

}  // namespace

Random::Random(std::uint64_t seed, std::uint64_t index)
    : state_(mixed(mixed(seed + step) ^ mixed(index * step + 1))) {}

std::uint64_t Random::next() { return mixed(state_ += step); }

// Lemire's way: the upper half of a product, drawn again where it would favour some numbers.
std::uint32_t Random::below(std::uint32_t bound) {
  std::uint64_t product = (next() >> 32) * bound;
  if (static_cast<std::uint32_t>(product) < bound) {
    const std::uint32_t unfair = -bound % bound;
    while (static_cast<std::uint32_t>(product) < unfair) product = (next() >> 32) * bound;
  }
  return static_cast<std::uint32_t>(product >> 32);
}

Deal deal(Random& random) {
  Pack pack = sortedPack();
  Deal hands;
  for (std::size_t i = 0; i < pack.size(); ++i) hands[i / cardsInHand].add(draw(pack, i, random));
  return hands;
}

Hand dealHand(Random& random) {
  Pack pack = sortedPack();
  Hand hand;
  for (std::size_t i = 0; i < cardsInHand; ++i) hand.add(draw(pack, i, random));
  return hand;
}

Hand withAnotherCard(Hand hand, Random& random) {
  Card out = drawn(random), in = drawn(random);
  while (!hand.has(out)) out = drawn(random);
  while (hand.has(in)) in = drawn(random);
  hand.remove(out);
  hand.add(in);
  return hand;
}

}  // namespace tavrel::hands
