// Files of deals in LIN: keys of two letters and values, all between bars.

#ifndef TAVREL_HANDS_LINFILE_H
#define TAVREL_HANDS_LINFILE_H

#include <functional>
#include <string_view>

#include "hands/HandFile.h"

namespace tavrel::hands {

/// What readBoards() does for such a file. Read are the keys md (dealer and hands), sv
/// (vulnerability), mb (calls), and ah and qx (what the board is called).
void readLin(std::string_view bytes, const std::function<void(const Board&)>& take);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_LINFILE_H
