// Files of deals in PBN: tags in brackets, and auctions behind theirs.

#ifndef TAVREL_HANDS_PBNFILE_H
#define TAVREL_HANDS_PBNFILE_H

#include <functional>
#include <string_view>

#include "hands/HandFile.h"

namespace tavrel::hands {

/// What readBoards() does for such a file. Read are the tags Board, Deal, Dealer, Vulnerable and
/// Auction; "#" repeats the tag of the board before.
void readPbn(std::string_view bytes, const std::function<void(const Board&)>& take);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_PBNFILE_H
