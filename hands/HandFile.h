// Deals and files of deals, in the forms that bridge programs exchange: PBN and LIN.

#ifndef TAVREL_HANDS_HANDFILE_H
#define TAVREL_HANDS_HANDFILE_H

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "hands/Auction.h"
#include "hands/Hand.h"
#include "hands/Misreading.h"
#include "hands/Seat.h"

namespace tavrel::hands {

/// What is known of the four hands, by seat.
using HandsBySeat = std::array<std::optional<Hand>, playerCount>;

inline std::optional<Hand>& handOf(HandsBySeat& hands, Seat seat) {
  return hands[static_cast<std::size_t>(seat)];
}
inline const std::optional<Hand>& handOf(const HandsBySeat& hands, Seat seat) {
  return hands[static_cast<std::size_t>(seat)];
}

/// Whether a text begins as a deal of PBN does: "N:".
bool isDealText(std::string_view text);

/// A deal as PBN writes it: "N:AKQ7.… … - …", clockwise from the seat named first, a dash for a
/// hand that isn't known. Of three hands the fourth follows. A hand that can't be read and a card
/// in two hands are faults.
std::variant<HandsBySeat, Misreading> readDeal(std::string_view text);

/// Adds the fourth hand where three are known; the fault is a card in two hands.
std::optional<Misreading> completeDeal(HandsBySeat& hands);

/// One deal of a file.
struct Board {
  std::size_t line = 0;  ///< of the file, where its cards stand; from 1
  std::string name;      ///< as the file numbers it; may be empty
  HandsBySeat hands;
  std::optional<Seat> dealer;
  std::optional<Vulnerability> vulnerability;
  std::optional<Auction> auction;   ///< as far as it can be read
  std::optional<Misreading> fault;  ///< why its cards can't be used; there are no hands then
};

/// Whether bytes begin as a file of deals does, and not as a list of hands.
bool isDealFile(std::string_view bytes);

/// Gives the boards of a PBN or LIN file to `take`, one after another; what is neither has none.
/// Takes any bytes. Cost: linear in them; memory for one board at a time.
void readBoards(std::string_view bytes, const std::function<void(const Board&)>& take);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HANDFILE_H
