// What is counted while hands walk a chart.

#ifndef TAVREL_HANDS_TALLY_H
#define TAVREL_HANDS_TALLY_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "hands/Evaluation.h"
#include "hands/HandChart.h"

namespace tavrel::hands {

/// A hand at one of the tables that a chart is for.
struct Position {
  Hand hand;
  std::uint32_t table = 0;  ///< see tablesOf()

  friend bool operator==(const Position& a, const Position& b) {
    return a.hand == b.hand && a.table == b.table;
  }
};

/// How often something was seen, and the first deal in which it was.
struct Seen {
  std::uint64_t count = 0;
  std::uint64_t deal = 0;  ///< its number; of no meaning while the count is 0, as is the position
  Position position;

  /// Deals may come in any order.
  void note(std::uint64_t number, Position where);
  Seen& operator+=(const Seen& other);
  friend bool operator==(const Seen& a, const Seen& b) {
    return a.count == b.count && (a.count == 0 || (a.deal == b.deal && a.position == b.position));
  }
};

/// What is measured of the hands that reach an end.
inline constexpr std::array measures = {Variable::hcp, Variable::spades, Variable::hearts,
                                        Variable::diamonds, Variable::clubs};

/// The least and the most that were seen of a measure; least > most if nothing was.
struct Extent {
  int least = 99, most = -1;

  void note(int value);
  Extent& operator+=(const Extent& other);
  friend bool operator==(const Extent& a, const Extent& b) {
    return a.least == b.least && a.most == b.most;
  }
};

/// What may be wrong with a hand at a box.
enum class Fall : std::uint8_t {
  loop,          ///< the way comes back to itself
  noCall,        ///< the end has calls, and none fits
  illegalCall,   ///< the laws don't allow the call
  notAsShown,    ///< the hand isn't what `shows` says
  notAsText,     ///< nor what the box's text says
  wrongAuction,  ///< the chart that goes on isn't for the auction
  wrongHand,     ///< or assumes another hand
};
inline constexpr std::size_t fallCount = static_cast<std::size_t>(Fall::wrongHand) + 1;

struct BoxTally {
  Seen reached;             ///< of an end
  ByAnswer<Seen> answers;   ///< of a question
  std::vector<Seen> calls;  ///< of an end, in the order in which it has them
  std::array<Seen, fallCount> falls;
  std::array<Extent, measures.size()> extents;  ///< of an end

  Seen& operator[](Fall fall) { return falls[static_cast<std::size_t>(fall)]; }
  const Seen& operator[](Fall fall) const { return falls[static_cast<std::size_t>(fall)]; }
  void measure(const Evaluation& evaluation);
  BoxTally& operator+=(const BoxTally& other);
  friend bool operator==(const BoxTally& a, const BoxTally& b);
};

/// Those of deals with different numbers add up to that of all of them.
struct Tally {
  std::uint64_t deals = 0;
  std::uint64_t undealt = 0;    ///< deals for which no hand was found
  std::vector<BoxTally> boxes;  ///< by box; of one that stands in several cells, at the first

  Tally() = default;
  explicit Tally(const HandChart& chart);
  Tally& operator+=(const Tally& other);  ///< REQUIRES: of the same chart
  friend bool operator==(const Tally& a, const Tally& b);
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_TALLY_H
