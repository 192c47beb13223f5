// The auctions that a chart is for, as its author writes them: "P? P? (1C|1D) P".

#ifndef TAVREL_HANDS_AUCTIONPATTERN_H
#define TAVREL_HANDS_AUCTIONPATTERN_H

#include <cstddef>
#include <optional>
#include <set>
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

/// The auctions of several patterns, in their order, each once.
class PatternAuctions {
 public:
  /// Adds those of a pattern, or says what is wrong with it. So many patterns that they stand for
  /// more than mostAuctions, or are more than 100, are a fault of the first that is too much;
  /// nothing is said of those behind it.
  std::optional<Fault> add(std::string_view pattern);

  const std::vector<Auction>& all() const { return all_; }

 private:
  std::vector<Auction> all_;
  std::set<std::vector<Call>> known_;
  std::size_t patterns_ = 0;
  std::size_t auctions_ = 0;  // counted again where patterns agree
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_AUCTIONPATTERN_H
