#include "hands/Succession.h"

#include <array>

namespace tavrel::hands {
namespace {

std::string keyOf(const Auction& auction) {
  std::string key;
  for (const Call call : auction.calls()) key += static_cast<char>(call);
  return key;
}

}  // namespace

// The caller of a beginning is the one who made its last call. After an auction of which nothing
// follows, it is the one whose turn it is: "!" behind the key keeps these apart.
Succession::Succession(const Conditions& conditions) : conditions_(conditions) {
  constexpr std::size_t partnership = 2;
  for (std::size_t i = 0; i < conditions.auctions.size(); ++i) {
    const std::string key = keyOf(conditions.auctions[i]);
    beginnings_.emplace(std::pair(key + '!', Next::self), i);
    for (std::size_t size = 1; size <= key.size(); ++size) {
      const std::size_t later = key.size() - (size - 1);  // calls behind the caller's turn
      if (later % partnership != 0) continue;
      const Next turn = later % playerCount == 0 ? Next::self : Next::partner;
      beginnings_.emplace(std::pair(key.substr(0, size), turn), i);
    }
  }
}

std::optional<Succession::Following> Succession::after(const Auction& auction, Call call,
                                                       std::optional<Next> next) const {
  std::string key = keyOf(auction);
  key += call == Call::none ? '!' : static_cast<char>(call);
  for (const Next turn : {Next::partner, Next::self}) {
    if (next && *next != turn) continue;
    const auto found = beginnings_.find({key, turn});
    if (found != beginnings_.end()) return Following{conditions_.auctions[found->second], turn};
  }
  return std::nullopt;
}

}  // namespace tavrel::hands
