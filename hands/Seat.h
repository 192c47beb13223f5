// Who sits where, and which side is vulnerable.

#ifndef TAVREL_HANDS_SEAT_H
#define TAVREL_HANDS_SEAT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "hands/Auction.h"

namespace tavrel::hands {

/// In the order in which players call.
enum class Seat : std::uint8_t { north, east, south, west };

/// The seat so many places to the left.
constexpr Seat after(Seat seat, std::size_t places) {
  return static_cast<Seat>((static_cast<std::size_t>(seat) + places) % playerCount);
}

constexpr Seat partnerOf(Seat seat) { return after(seat, 2); }

/// 'N', 'E', 'S' or 'W'.
constexpr char letterOf(Seat seat) { return "NESW"[static_cast<std::size_t>(seat)]; }

/// "North", "East", "South" or "West".
const char* nameOf(Seat seat);

/// The seat of that letter or name, in any case; std::nullopt for any other text.
std::optional<Seat> seatIn(std::string_view text);

struct Vulnerability {
  bool northSouth = false, eastWest = false;

  constexpr bool of(Seat seat) const {
    return seat == Seat::north || seat == Seat::south ? northSouth : eastWest;
  }
};

/// What stands for it in files and on command lines, in any case: "NS", "EW", "both", "none",
/// and the other words for the last two. std::nullopt for any other text.
std::optional<Vulnerability> vulnerabilityIn(std::string_view text);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_SEAT_H
