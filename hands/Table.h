// What is known at the table besides one's own cards.

#ifndef TAVREL_HANDS_TABLE_H
#define TAVREL_HANDS_TABLE_H

#include "hands/Auction.h"

namespace tavrel::hands {

/// As seen from the player who calls next.
struct Table {
  Auction auction;
  bool isVulnerable = false;
  bool areTheyVulnerable = false;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_TABLE_H
