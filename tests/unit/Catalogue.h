// The catalogue as hosts know it: file names and titles, in the order of their indices.

#ifndef TAVREL_TESTS_UNIT_CATALOGUE_H
#define TAVREL_TESTS_UNIT_CATALOGUE_H

#include <array>
#include <string>
#include <vector>

namespace tavrel {

struct CatalogueEntry {
  const char* fileName;
  const char* title;
};

constexpr std::array<CatalogueEntry, 45> catalogue{{
    {"Opening", "Deciding on an Opening Bid"},
    {"AOpening", "Deciding on an Opening Bid (Acol)"},
    {"LOpening", "Deciding on an Opening Bid (La Majeure 5eme)"},
    {"FOpening", "Deciding on an Opening Bid (Forum D)"},
    {"Overcall", "Bidding or Doubling After an Opening Bid on Your Right"},
    {"RespSuit", "Responding to an Opening Suit Bid"},
    {"RespNT", "Responding to an Opening No Trump Bid"},
    {"Leben", "Lebensohl"},
    {"Jacoby", "Rebids and Continuations After a Jacoby Transfer"},
    {"DblResp", "Responding to a Take-Out Double"},
    {"Unusual", "Responding to, and Rebidding after, a Two-Suited Bid"},
    {"RespOver", "Responding to Your Partner's Overcall"},
    {"Balance", "Balancing After an Opening Bid and Two Passes"},
    {"OpenRbd", "Opener's Rebid"},
    {"Support", "Support Doubles"},
    {"Forc1NT", "Response and Rebid After a Forcing 1NT"},
    {"Reverse", "Response and Rebid After a Reverse"},
    {"Inverted", "Inverted Minor Raise Auctions"},
    {"DblRebid", "Rebidding After a Take-Out Double"},
    {"Reopen", "Responding to a Reopening Double"},
    {"Forced", "Bidding After Partner Has Made a Forcing Bid"},
    {"Constr1", "Bidding When Partner Has Bid (I)"},
    {"Constr2", "Bidding When Partner Has Bid (II)"},
    {"Solo", "Bidding When Partner Has Passed Throughout"},
    {"Slam", "Bidding When a Slam is Likely"},
    {"Convresp", "Responding to, and Rebidding after, Conventions (I)"},
    {"Convres2", "Responding to, and Rebidding after, Conventions (II)"},
    {"Stayman", "Rebidding After a Response to Stayman 2C"},
    {"Cappelle", "Response and Rebid After Cappelletti"},
    {"POpen", "Deciding on an Opening Bid (Precision)"},
    {"PDefense", "Defending against a Precision Opening"},
    {"PResp", "Responding to a Precision 1C Opening Bid"},
    {"PInter", "Responding to a Precision 1C Opening after Interference"},
    {"P2C", "Responding to a Precision 2C Opening Bid"},
    {"P2D", "Responding to a Precision 2D Opening Bid"},
    {"P1C1D", "Continuations in a Precision 1C-1D Auction"},
    {"PPos", "Opener's Rebid after a Precision 1C Positive Response"},
    {"P1C1NT", "Continuations in a Precision 1C-1NT Auction"},
    {"P1C2NT", "Precision 1C-2NT and 1C-3NT Auctions"},
    {"PJumps", "Opener's Rebid after a Precision 1C Jump Response"},
    {"P1DRebid", "Opener's Rebid after a Precision 1D Opening Bid"},
    {"PRes1C1D", "Responder's Rebid after a 1C-1D Precision Auction"},
    {"PTrAsk", "Precision Asking Bids"},
    {"PCuebid", "Cue Bids in a Precision Auction"},
    {"PGF", "Continuations in Game Forcing Precision Auctions"},
}};

/// Its file names alone.
inline const std::vector<std::string>& catalogueNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const CatalogueEntry& entry : catalogue) all.emplace_back(entry.fileName);
    return all;
  }();
  return names;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_CATALOGUE_H
