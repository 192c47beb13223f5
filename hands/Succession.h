// Which auctions a chart goes on with.

#ifndef TAVREL_HANDS_SUCCESSION_H
#define TAVREL_HANDS_SUCCESSION_H

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "hands/Conditions.h"

namespace tavrel::hands {

/// The auctions of a chart that others lead into.
class Succession {
 public:
  explicit Succession(const Conditions& conditions);

  /// An auction of the chart that begins with the auction and the call, if there is one: it comes
  /// to the turn of the player who has called, or of partner, as `next` says; of either if it
  /// says nothing. Without a call the auction itself has to be one of the chart's.
  struct Following {
    Auction auction;
    Next turn;
  };
  std::optional<Following> after(const Auction& auction, Call call, std::optional<Next> next) const;

 private:
  const Conditions& conditions_;
  // The first auction with this beginning that comes to the turn of the player behind it, or of
  // partner.
  std::map<std::pair<std::string, Next>, std::size_t> beginnings_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_SUCCESSION_H
