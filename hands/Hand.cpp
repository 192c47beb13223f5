#include "hands/Hand.h"

#include <bitset>

namespace tavrel::hands {

std::size_t Hand::size() const { return std::bitset<64>(cards_).count(); }

std::size_t Hand::length(Suit suit) const {
  return std::bitset<cardsInSuit>(holding(suit)).count();
}

std::string ranksOf(Holding holding) {
  std::string ranks;
  for (Rank rank = ace; rank >= lowestRank; --rank) {
    if ((holding & bitOf(rank)) != 0) ranks += letterOf(rank);
  }
  return ranks;
}

std::string written(Hand hand) {
  std::string text;
  for (const Suit suit : suitsAsWritten) {
    if (suit != Suit::spades) text += '.';
    text += ranksOf(hand.holding(suit));
  }
  return text;
}

}  // namespace tavrel::hands
