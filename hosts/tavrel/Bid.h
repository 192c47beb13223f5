// tavrel bid: what a hand bids, and why.

#ifndef TAVREL_HOSTS_TAVREL_BID_H
#define TAVREL_HOSTS_TAVREL_BID_H

#include <optional>
#include <string>

#include "hosts/tavrel/TableArguments.h"

namespace tavrel {

/// As they stand on the command line.
struct BidArguments {
  std::string hand;   ///< a hand, a deal, a file of deals, or - for hands from standard input
  std::string chart;  ///< a name, a title, a source, or empty for the one that fits
  TableArguments table;
  bool isExplained = false, asJson = false;
};

/// The exit status where a question takes judgement, and there is no terminal to ask on.
inline constexpr int judgementStatus = 3;

/// Prints what each hand bids, with the charts of the folder or, without one, of the program.
/// Returns the exit status. Throws Failure for wrong usage and what can't be read.
int bidHands(const BidArguments& arguments, const std::optional<std::string>& charts);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_BID_H
