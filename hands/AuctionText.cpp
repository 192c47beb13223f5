#include "hands/AuctionText.h"

#include <algorithm>
#include <optional>
#include <string>

#include "authoring/InShort.h"
#include "hands/Call.h"

namespace tavrel::hands {
namespace {

// The size of what stands between calls there; 0 where nothing does.
std::size_t separatorAt(std::string_view text, std::size_t at) {
  for (const std::string_view each : {" ", "\t", "\r", "\n", ",", ";", "-", "–", "—", "\xC2\xA0"}) {
    if (text.substr(at, each.size()) == each) return each.size();
  }
  return 0;
}

Call lastBid(const Auction& auction) {
  return std::max({auction.lastBidOf(Player::self), auction.lastBidOf(Player::partner),
                   auction.lastBidOfThem()});
}

Misreading bidRefusal(Call bid, Call last) {
  const std::string text =
      " isn't higher than " + nameOf(last) + (bid == last ? ", which has been bid" : " before it");
  if (last == Call::sevenNotrump) return {0, text, "no bid is"};
  return {0, text,
          "the lowest bid now is " + nameOf(static_cast<Call>(static_cast<int>(last) + 1))};
}

Misreading doubleRefusal(const Auction& auction) {
  if (lastBid(auction) == Call::none) return {0, " has no bid to double", "leave it out"};
  const bool isTheirs = auction.lastBidOfThem() == lastBid(auction);
  if (!isTheirs) return {0, " would double a bid of the own side", "write P, or leave out a call"};
  return {0, " would double what is doubled already", "write P or XX"};
}

std::string numbered(Call call, std::size_t number) {
  return nameOf(call) + ", call " + std::to_string(number) + ",";
}

Call callAt(std::string_view word, std::size_t offset, std::size_t number) {
  if (const std::optional<Call> call = callIn(word)) return *call;
  throw Misreading{
      offset, "'" + authoring::inShort(word) + "', call " + std::to_string(number) + ", is no call",
      "calls are 1C to 7NT (1♣, 1N), P, X and XX"};
}

}  // namespace

Misreading refusalOf(const Auction& auction, Call call) {
  if (auction.isOver()) {
    return {0, " comes after the auction is over", "leave out what follows the last pass"};
  }
  if (isBid(call)) return bidRefusal(call, lastBid(auction));
  if (call == Call::doubled) return doubleRefusal(auction);
  return {0, " has no double of the opponents' to redouble", "write P, or X for a double"};
}

std::variant<Auction, Misreading> readAuction(std::string_view text) try {
  Auction auction;
  for (std::size_t at = 0; at < text.size();) {
    if (const std::size_t size = separatorAt(text, at)) {
      at += size;
      continue;
    }
    const std::size_t begin = at;
    while (at < text.size() && separatorAt(text, at) == 0) ++at;
    const Call call = callAt(text.substr(begin, at - begin), begin, auction.size() + 1);
    if (!auction.allows(call)) {
      const Misreading refusal = refusalOf(auction, call);
      return Misreading{begin, numbered(call, auction.size() + 1) + refusal.text, refusal.cure};
    }
    auction.add(call);
  }
  return auction;
} catch (const Misreading& fault) {
  return fault;
}

}  // namespace tavrel::hands
