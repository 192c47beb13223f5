// Hands and auctions as tests write them.

#ifndef TAVREL_TESTS_HANDS_SAMPLE_H
#define TAVREL_TESTS_HANDS_SAMPLE_H

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <stdexcept>
#include <string>

#include "hands/Auction.h"
#include "hands/Hand.h"

namespace tavrel::hands {

/// "AQ85.KJ7.KQ4.J62": spades, hearts, diamonds, clubs. Nothing is checked.
inline Hand handOf(const std::string& text) {
  Hand hand;
  std::size_t suit = 0;
  for (const char letter : text) {
    if (letter == '.') {
      ++suit;
      continue;
    }
    const std::size_t rank = std::string("23456789TJQKA").find(letter);
    if (rank == std::string::npos || suit > 3) throw std::invalid_argument(text);
    hand.add({suitsAsWritten[suit], static_cast<Rank>(rank) + lowestRank});
  }
  return hand;
}

/// "1NT P 2C P".
inline Auction auctionOf(const std::string& text) {
  Auction auction;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    const std::optional<Call> call = callIn(word);
    if (!call || !auction.allows(*call)) throw std::invalid_argument(text);
    auction.add(*call);
  }
  return auction;
}

}  // namespace tavrel::hands

#endif  // TAVREL_TESTS_HANDS_SAMPLE_H
