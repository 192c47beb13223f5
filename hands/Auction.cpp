#include "hands/Auction.h"

#include <algorithm>

namespace tavrel::hands {
namespace {

// The first call of a player in an auction of so many calls.
std::size_t firstCallOf(Player player, std::size_t callCount) {
  return (callCount + static_cast<std::size_t>(player)) % playerCount;
}

}  // namespace

bool Auction::isOver() const {
  const auto other =
      std::find_if(calls_.rbegin(), calls_.rend(), [](Call call) { return call != Call::pass; });
  return other - calls_.rbegin() >= (other == calls_.rend() ? 4 : 3);
}

// The place of it; size() if nobody has bid.
std::size_t Auction::lastBid() const {
  const auto found = std::find_if(calls_.rbegin(), calls_.rend(), isBid);
  if (found == calls_.rend()) return calls_.size();
  return static_cast<std::size_t>(calls_.rend() - found) - 1;
}

bool Auction::allows(Call call) const {
  if (call == Call::none || isOver()) return false;
  if (call == Call::pass) return true;
  const std::size_t last = lastBid();
  if (isBid(call)) return last == size() || call > calls_[last];
  const auto other =
      std::find_if(calls_.rbegin(), calls_.rend(), [](Call each) { return each != Call::pass; });
  if (other == calls_.rend()) return false;
  const bool isTheirs = (other - calls_.rbegin()) % 2 == 0;
  return isTheirs && (call == Call::doubled ? isBid(*other) : *other == Call::doubled);
}

Auction Auction::first(std::size_t count) const {
  Auction part;
  part.calls_.assign(calls_.begin(), calls_.begin() + static_cast<std::ptrdiff_t>(count));
  return part;
}

Call Auction::callOf(Player player, int n) const {
  if (n < 1) return Call::none;
  const std::size_t at =
      firstCallOf(player, size()) + playerCount * (static_cast<std::size_t>(n) - 1);
  return at < size() ? calls_[at] : Call::none;
}

Call Auction::lastBidOf(Player player) const {
  Call last = Call::none;
  for (std::size_t at = firstCallOf(player, size()); at < size(); at += playerCount) {
    if (isBid(calls_[at])) last = calls_[at];
  }
  return last;
}

// Bids only rise: of two, the later is the higher.
Call Auction::lastBidOfThem() const {
  return std::max(lastBidOf(Player::left), lastBidOf(Player::right));
}

std::string written(const Auction& auction) {
  std::string text;
  for (const Call call : auction.calls()) text += (text.empty() ? "" : " ") + nameOf(call);
  return text;
}

std::string shown(const Auction& auction, Charset charset) {
  std::string text;
  for (std::size_t i = 0; i < auction.size(); ++i) {
    const bool isTheirs = (auction.size() - i) % 2 == 1;
    const std::string call = shown(auction[i], charset);
    text += (i == 0 ? "" : " ") + (isTheirs ? "(" + call + ")" : call);
  }
  return text;
}

}  // namespace tavrel::hands
