// What a hand bids and why, for people and for programs.

#ifndef TAVREL_HOSTS_TAVREL_BIDREPORT_H
#define TAVREL_HOSTS_TAVREL_BIDREPORT_H

#include <string>

#include "hands/HandWalk.h"
#include "hosts/tavrel/HandCharts.h"

namespace tavrel {

/// One walk and what it was of.
struct Bid {
  hands::Situation situation;
  hands::HandWalked walked;
};

/// The call that the hand makes and that isn't in the auction; Call::none where the walk came to
/// none.
hands::Call callOf(const Bid& bid);

/// Of several lines: the call, each question with its answer and the numbers behind it, what walks
/// the same way, and who goes on where. With the commentary of the boxes, if that is wanted.
std::string report(const Bid& bid, const Library& library, bool isExplained);

/// On one line, between tabs: call, hand, charts, answers.
std::string reportLine(const Bid& bid);

/// All of it as a JSON object, on one line or on many.
std::string reportJson(const Bid& bid, const Library& library, bool isOneLine);

/// The object of a hand that can't be bid, on one line. REQUIRES: UTF-8.
std::string failureJson(const std::string& why);

/// Why the walk didn't come to a call that the player could make now, as a clause; empty if it
/// did.
std::string openEndOf(const Bid& bid);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_BIDREPORT_H
