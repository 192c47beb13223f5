// What a player says at the table.

#ifndef TAVREL_HANDS_CALL_H
#define TAVREL_HANDS_CALL_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace tavrel::hands {

/// The denomination of a bid, in the order of rank, as expressions number it.
enum class Strain : std::uint8_t { none, clubs, diamonds, hearts, spades, notrump };

/// A call as expressions compare it: no call is 0, a pass 1, a double 2, a redouble 3, and bids
/// follow in their order, from 1♣ as 4 to 7NT as 38.
enum class Call : std::uint8_t { none, pass, doubled, redoubled, oneClub, sevenNotrump = 38 };

inline constexpr int highestLevel = 7, strainCount = 5;

/// REQUIRES: 1 <= level <= 7, a strain that isn't none.
constexpr Call bid(int level, Strain strain) {
  return static_cast<Call>(static_cast<int>(Call::oneClub) + strainCount * (level - 1) +
                           static_cast<int>(strain) - 1);
}

constexpr bool isBid(Call call) { return call >= Call::oneClub; }

/// 1 to 7; 0 for what is no bid.
constexpr int levelOf(Call call) {
  return isBid(call) ? (static_cast<int>(call) - static_cast<int>(Call::oneClub)) / strainCount + 1
                     : 0;
}

/// none for what is no bid.
constexpr Strain strainOf(Call call) {
  if (!isBid(call)) return Strain::none;
  const int number = static_cast<int>(call) - static_cast<int>(Call::oneClub);
  return static_cast<Strain>(number % strainCount + 1);
}

/// The call that a person writes, in any case and however calls are commonly written: 1NT, 1N,
/// 2c, 2♣, P, pass, X, dbl, double, XX, rdbl, redouble; parentheses, as round an opponent's call,
/// don't matter. std::nullopt for any other text.
std::optional<Call> callIn(std::string_view text);

/// "1NT", "2C", "P", "X", "XX"; "-" for none. What callIn() reads again.
std::string nameOf(Call call);

/// As players read it: "1NT", "2♣", "Pass", "X", "XX". Without suits in plain.
std::string shown(Call call, Charset charset);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_CALL_H
