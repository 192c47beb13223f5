// Where a hand begins to walk.

#ifndef TAVREL_HOSTS_TAVREL_HANDSTART_H
#define TAVREL_HOSTS_TAVREL_HANDSTART_H

#include <cstddef>
#include <string>

#include "hands/HandWalk.h"
#include "hosts/tavrel/HandCharts.h"
#include "hosts/tavrel/TableArguments.h"

namespace tavrel {

struct HandStart {
  const hands::HandChart* chart;
  std::size_t turn;  ///< how many calls had been made
};

/// A walk through these charts, which must outlive it.
hands::HandWalk walkThrough(HandCharts& charts);

/// The first turn of the hand for which the chart is. Throws Failure, with what the chart is for,
/// if there is none, or if the chart assumes another hand.
HandStart startIn(const hands::HandChart& chart, const HandAtTable& hand, hands::HandWalk& walk);

/// The one chart that is for the auction as it is and for the hand that calls next. Throws Failure
/// that lists the charts where there is none, or several.
HandStart startAnywhere(HandCharts& charts, const HandAtTable& hand, hands::HandWalk& walk);

/// The auctions that a chart is for: 'P? 1NT P' or '…'.
std::string auctionsOf(const hands::HandChart& chart);

/// "the auction '1NT P'", or "the auction without a call".
std::string auctionNamed(const hands::Auction& auction);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_HANDSTART_H
