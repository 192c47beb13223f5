// The calls so far, and whose turn it is.

#ifndef TAVREL_HANDS_AUCTION_H
#define TAVREL_HANDS_AUCTION_H

#include <cstddef>
#include <string>
#include <vector>

#include "hands/Call.h"
#include "text/Text.h"

namespace tavrel::hands {

inline constexpr std::size_t playerCount = 4;

/// A player as seen from the one who calls next.
enum class Player { self, left, partner, right };

/// Calls that the laws allow, dealer first.
class Auction {
 public:
  /// No auction is longer, whatever is called.
  static constexpr std::size_t longest = 319;

  std::size_t size() const { return calls_.size(); }
  Call operator[](std::size_t i) const { return calls_[i]; }
  const std::vector<Call>& calls() const { return calls_; }

  /// Whether nobody may call any more: after four passes at the beginning, or three later.
  bool isOver() const;

  /// Whether the laws allow the call now: a bid above the last one, a double of the opponents'
  /// bid, a redouble of their double, a pass at any time; nothing once the auction is over.
  bool allows(Call call) const;

  /// Adds a call. REQUIRES: allows(call).
  void add(Call call) { calls_.push_back(call); }

  /// The first calls. REQUIRES: count <= size().
  Auction first(std::size_t count) const;

  /// 1 for the dealer to 4: whoever calls next.
  int seat() const { return static_cast<int>(calls_.size() % playerCount) + 1; }

  /// The n-th call of a player, n from 1; Call::none if there was none, or n is smaller.
  Call callOf(Player player, int n) const;

  /// The last bid that a player made; Call::none if they haven't bid.
  Call lastBidOf(Player player) const;

  /// The last bid of either opponent of the one who calls next.
  Call lastBidOfThem() const;

  friend bool operator==(const Auction& a, const Auction& b) { return a.calls_ == b.calls_; }

 private:
  std::size_t lastBid() const;

  std::vector<Call> calls_;
};

/// "1NT P 2C P"; empty for none.
std::string written(const Auction& auction);

/// As players read it, opponents of the one who calls next in parentheses: "1NT (Pass) 2♣ (Pass)".
std::string shown(const Auction& auction, Charset charset);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_AUCTION_H
