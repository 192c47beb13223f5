// Hands as people write them.

#ifndef TAVREL_HANDS_HANDTEXT_H
#define TAVREL_HANDS_HANDTEXT_H

#include <string>
#include <string_view>
#include <variant>

#include "hands/Hand.h"
#include "hands/Misreading.h"

namespace tavrel::hands {

/// No hand is written in more bytes.
inline constexpr std::size_t longestHandText = 500;

/// The thirteen cards that a text names: "AQ85.KJ7.KQ4.J62", spades first, with points, commas,
/// slashes or blanks between the suits, or each suit behind its symbol or letter, in any order:
/// "♠AQ85 ♥KJ7 ♦KQ4 ♣J62", "S:AQ85 H:KJ7 …", "SAQ85HKJ7DKQ4CJ62". A dash is a void; nothing is
/// one too where the suits stand behind their names or between points. Tens are "10" or "T", and
/// case doesn't matter. Anything else is a fault.
std::variant<Hand, Misreading> readHand(std::string_view text);

/// As players read it: "♠AQ85 ♥KJ7 ♦KQ4 ♣J62", a void with a dash.
std::string shown(Hand hand);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HANDTEXT_H
