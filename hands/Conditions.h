// What a chart asks of a hand and what it bids: the file NAME.when beside NAME.fv.

#ifndef TAVREL_HANDS_CONDITIONS_H
#define TAVREL_HANDS_CONDITIONS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "authoring/ChartGraph.h"
#include "authoring/ChartSource.h"
#include "hands/Auction.h"
#include "hands/Call.h"

namespace tavrel::hands {

using authoring::Answer;
using authoring::ByAnswer;
using authoring::Forcing;
using authoring::Next;

/// A column and a row of the grid, as the navigator counts them.
struct Cell {
  std::int64_t x = 0, y = 0;

  friend bool operator==(const Cell& a, const Cell& b) { return a.x == b.x && a.y == b.y; }
  friend bool operator<(const Cell& a, const Cell& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
  }
};

/// A call, and the expression that has to be true for it; without one it is made in any case.
struct CallChoice {
  std::optional<std::string> when;
  Call call = Call::none;
};

/// What an author says of a box, and all cells where it stands.
struct BoxConditions {
  std::vector<Cell> cells;
  std::string id;                   ///< may be empty
  std::optional<std::string> when;  ///< an expression: true means yes
  bool asksJudgement = false;
  std::vector<CallChoice> calls;  ///< the first that fits is made
  std::optional<std::string> shows;
  std::optional<Forcing> forcing;
  std::optional<Next> next;
  ByAnswer<std::optional<std::string>> never;  ///< why no hand gives the answer
};

struct Conditions {
  std::string chart;
  std::string digest;                 ///< of the .fv file: digestOf()
  std::vector<std::string> patterns;  ///< of auctions
  std::vector<Auction> auctions;      ///< all that they stand for
  std::optional<std::string> hand;    ///< what the chart assumes
  std::vector<BoxConditions> boxes;   ///< those of which anything is said
};

/// A digest of a flowchart file, 32 hexadecimal digits. It tells files apart that differ by
/// accident; it is no protection against forgery.
std::string digestOf(std::string_view flowchartFile);

/// What every such file begins with.
inline constexpr std::string_view conditionsStart = "{\n \"version\": ";

/// The bytes of the file: JSON, the same for the same conditions.
std::string conditionsFile(const Conditions& conditions);

/// Reads such a file: the conditions, or why it isn't one, as a clause. All expressions and calls
/// in what comes back are right, as checkExpression() says.
std::variant<Conditions, std::string> readConditions(std::string_view bytes);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_CONDITIONS_H
