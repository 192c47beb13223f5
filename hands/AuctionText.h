// Auctions as people write them.

#ifndef TAVREL_HANDS_AUCTIONTEXT_H
#define TAVREL_HANDS_AUCTIONTEXT_H

#include <string_view>
#include <variant>

#include "hands/Auction.h"
#include "hands/Misreading.h"

namespace tavrel::hands {

/// The calls of a text, dealer first, with blanks, commas or dashes between them: "1NT P 2C P",
/// "1NT-(X)-pass". Nothing is the auction before the first call. What is no call, or is against
/// the laws where it stands, is a fault, which names the call.
std::variant<Auction, Misreading> readAuction(std::string_view text);

/// Why the laws don't allow a call now, as a clause behind the call's name, and a cure.
/// REQUIRES: !auction.allows(call).
Misreading refusalOf(const Auction& auction, Call call);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_AUCTIONTEXT_H
