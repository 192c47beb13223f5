// Suits, ranks and cards.

#ifndef TAVREL_HANDS_CARD_H
#define TAVREL_HANDS_CARD_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace tavrel::hands {

/// In the order of their rank.
enum class Suit : std::uint8_t { clubs, diamonds, hearts, spades };

inline constexpr std::array suits = {Suit::clubs, Suit::diamonds, Suit::hearts, Suit::spades};

/// The order in which hands are written.
inline constexpr std::array suitsAsWritten = {Suit::spades, Suit::hearts, Suit::diamonds,
                                              Suit::clubs};

/// 2 to 14.
using Rank = int;

inline constexpr Rank lowestRank = 2, ten = 10, jack = 11, queen = 12, king = 13, ace = 14;
inline constexpr std::size_t cardsInSuit = 13, cardsInHand = 13, cardsInPack = 52;

struct Card {
  Suit suit;
  Rank rank;

  friend bool operator==(const Card& a, const Card& b) {
    return a.suit == b.suit && a.rank == b.rank;
  }
};

/// A card of the pack by its number, 0 to 51: suit by suit, the twos first.
constexpr Card cardOf(std::size_t number) {
  return {static_cast<Suit>(number / cardsInSuit),
          static_cast<Rank>(number % cardsInSuit) + lowestRank};
}

/// 'C', 'D', 'H' or 'S'.
constexpr char letterOf(Suit suit) { return "CDHS"[static_cast<std::size_t>(suit)]; }

/// "♣", "♦", "♥" or "♠".
constexpr const char* symbolOf(Suit suit) {
  constexpr std::array symbols = {"♣", "♦", "♥", "♠"};
  return symbols[static_cast<std::size_t>(suit)];
}

/// "clubs", "diamonds", "hearts" or "spades".
constexpr const char* nameOf(Suit suit) {
  constexpr std::array names = {"clubs", "diamonds", "hearts", "spades"};
  return names[static_cast<std::size_t>(suit)];
}

/// '2' to '9', then 'T', 'J', 'Q', 'K', 'A'. REQUIRES: a rank.
constexpr char letterOf(Rank rank) {
  return "23456789TJQKA"[static_cast<std::size_t>(rank - lowestRank)];
}

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_CARD_H
