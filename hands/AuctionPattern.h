// The auctions that a chart is for, as its author writes them: "P? P? (1C|1D) P".

#ifndef TAVREL_HANDS_AUCTIONPATTERN_H
#define TAVREL_HANDS_AUCTIONPATTERN_H

#include <cstddef>
#include <string_view>
#include <variant>
#include <vector>

#include "hands/Auction.h"
#include "hands/ExpressionCheck.h"

namespace tavrel::hands {

/// More auctions than that are nobody's pattern, and hands couldn't be dealt for each.
inline constexpr std::size_t mostAuctions = 10'000;

/// All auctions that a pattern stands for, in the order in which it names them, each once. Calls
/// stand with blanks between them, alternatives between parentheses with bars, and what is
/// followed by a question mark may be left out. The empty pattern is the empty auction.
///
/// A pattern that can't be read, that stands for a call which the laws don't allow, for an
/// auction that is over, or for more than mostAuctions, is a fault.
std::variant<std::vector<Auction>, Fault> auctionsOf(std::string_view pattern);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_AUCTIONPATTERN_H
