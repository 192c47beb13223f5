// Deals the hands and auctions that a chart is for.

#ifndef TAVREL_HANDS_DEALER_H
#define TAVREL_HANDS_DEALER_H

#include <cstdint>
#include <optional>
#include <vector>

#include "hands/Conditions.h"
#include "hands/Deal.h"
#include "hands/Table.h"
#include "hands/Tally.h"
#include "hands/Walker.h"

namespace tavrel::hands {

/// Each auction of a chart at each of the four vulnerabilities, those of the first auction first.
/// A chart that names no auction is for the dealer's first turn.
std::vector<Table> tablesOf(const Conditions& conditions);

inline constexpr std::size_t vulnerabilityCount = 4;

/// "none", "we", "they" or "both": who is vulnerable.
const char* vulnerabilityOf(const Table& table);

/// Deals for the chart of a walker, whose evaluation it sets.
class Dealer {
 public:
  /// So many hands are dealt at most before one is made.
  static constexpr int mostDraws = 2'000;

  /// `known` is a position that the chart is for, if there is one. The tables stay where they are.
  Dealer(Walker& walker, const std::vector<Table>& tables, std::optional<Position> known);

  /// A hand and a table, each as likely as any other for which the chart is. Where chance finds
  /// none, the known one is changed card by card as long as the chart stays right for it.
  /// std::nullopt if there is none. The evaluation has them then.
  std::optional<Position> deal(Random& random);

 private:
  std::optional<Position> changed(Random& random);
  void sit(Position position);

  Walker& walker_;
  const std::vector<Table>& tables_;
  const std::optional<Position> known_;
  std::uint32_t table_ = 0;  // of the evaluation
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_DEALER_H
