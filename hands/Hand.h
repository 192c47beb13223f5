// A player's cards.

#ifndef TAVREL_HANDS_HAND_H
#define TAVREL_HANDS_HAND_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "hands/Card.h"

namespace tavrel::hands {

/// The cards of one suit: bit 0 stands for the two, bit 12 for the ace.
using Holding = std::uint16_t;

inline constexpr std::size_t holdingCount = std::size_t{1} << cardsInSuit;

constexpr Holding bitOf(Rank rank) { return static_cast<Holding>(1U << (rank - lowestRank)); }

/// A set of cards; thirteen of them where nothing else is said. All operations take the same
/// short time.
class Hand {
 public:
  constexpr Hand() = default;

  constexpr Holding holding(Suit suit) const {
    return static_cast<Holding>(cards_ >> shiftOf(suit) & (holdingCount - 1));
  }

  constexpr bool has(Card card) const { return (holding(card.suit) & bitOf(card.rank)) != 0; }

  constexpr void add(Card card) { cards_ |= maskOf(card); }
  constexpr void remove(Card card) { cards_ &= ~maskOf(card); }

  /// Gives the suit other cards than it had.
  constexpr void setHolding(Suit suit, Holding holding) {
    cards_ &= ~(std::uint64_t{holdingCount - 1} << shiftOf(suit));
    cards_ |= std::uint64_t{holding} << shiftOf(suit);
  }

  std::size_t size() const;
  std::size_t length(Suit suit) const;

  friend constexpr bool operator==(Hand a, Hand b) { return a.cards_ == b.cards_; }
  friend constexpr bool operator!=(Hand a, Hand b) { return a.cards_ != b.cards_; }

 private:
  static constexpr unsigned shiftOf(Suit suit) { return 16 * static_cast<unsigned>(suit); }
  static constexpr std::uint64_t maskOf(Card card) {
    return std::uint64_t{bitOf(card.rank)} << shiftOf(card.suit);
  }

  std::uint64_t cards_ = 0;
};

/// The ranks of a holding from the top, "AKT5"; empty for a void.
std::string ranksOf(Holding holding);

/// "AQ85.KJ7.KQ4.J62": spades, hearts, diamonds, clubs.
std::string written(Hand hand);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HAND_H
