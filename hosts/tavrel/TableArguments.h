// What the command line says of a hand and its table.

#ifndef TAVREL_HOSTS_TAVREL_TABLEARGUMENTS_H
#define TAVREL_HOSTS_TAVREL_TABLEARGUMENTS_H

#include <optional>
#include <string>

#include "hands/HandWalk.h"

namespace tavrel {

/// As they stand on the command line; what was not given is empty.
struct TableArguments {
  std::optional<std::string> auction;
  std::optional<std::string> dealer, vulnerable, seat, partner;
};

/// Whether any of it was given.
bool isGiven(const TableArguments& arguments);

/// A hand, or a deal, at a table.
struct HandAtTable {
  hands::Situation situation;
  hands::Seat seat;  ///< of the hand; of a deal, of the player who calls next or is named
};

/// The table alone: auction, dealer and vulnerability. Throws Failure for what can't be read; so
/// below.
hands::Situation tableOf(const TableArguments& arguments);

/// Gives the table the hands of a text, which is a hand or a deal as PBN writes it. A hand belongs
/// to the player who calls next unless the arguments name another seat.
HandAtTable seated(const std::string& hand, hands::Situation table,
                   const TableArguments& arguments);

/// Whose hand is meant where all are known. Throws Failure where the auction is over and no seat is
/// named.
hands::Seat seatMeant(const hands::Situation& table, const TableArguments& arguments);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_TABLEARGUMENTS_H
