// The walk that a hand makes from chart to chart, with the reasons for each answer.

#ifndef TAVREL_HANDS_HANDWALK_H
#define TAVREL_HANDS_HANDWALK_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "hands/Auction.h"
#include "hands/HandChart.h"
#include "hands/HandFile.h"
#include "hands/Reasons.h"
#include "hands/Seat.h"
#include "hands/Table.h"
#include "hands/Walker.h"

namespace tavrel::hands {

/// A deal as far as it is known, and what has been called.
struct Situation {
  HandsBySeat hands;
  Seat dealer = Seat::north;
  Vulnerability vulnerability;
  Auction auction;

  /// Who calls when so many calls have been made.
  Seat seatAt(std::size_t turn) const { return after(dealer, turn); }

  /// What the player who calls then knew of the table. REQUIRES: turn <= auction.size().
  Table tableAt(std::size_t turn) const;
};

/// Whether a chart is for an auction; one that names none is for all.
bool isFor(const HandChart& chart, const Auction& auction);

/// The first turn of a player for which the chart is, as the number of calls before it;
/// std::nullopt if there was none so far.
std::optional<std::size_t> turnFor(const HandChart& chart, const Situation& situation, Seat seat);

/// A box on the way, with what it says.
struct WalkedBox {
  Cell cell;
  std::vector<std::string> text, commentary;
};

struct WalkedQuestion {
  WalkedBox box;
  Answer answer;
  bool isJudged;                ///< a person has answered
  std::vector<Reason> reasons;  ///< of a hand's own answer
};

/// A hand's way through one chart.
struct ChartWalk {
  const HandChart* chart;
  std::size_t turn;  ///< how many calls had been made
  Seat seat;
  Hand hand;
  std::vector<WalkedQuestion> questions;
  WalkedBox end;  ///< the box where it ended, a question if the ending isn't `end`
  Ending ending;
  Call call = Call::none;               ///< that the end makes
  const BoxConditions* said = nullptr;  ///< what is said of the end; nullptr for nothing
  std::string link;                     ///< the chart that the end leads into, or empty
};

/// What came of a walk.
enum class WalkOutcome {
  calls,          ///< the last end makes a call that isn't in the auction
  called,         ///< it made a call that is, and no chart goes on
  noCall,         ///< it makes none, and no chart goes on
  judgement,      ///< a question takes judgement, and nobody answered
  noExit,         ///< an answer leads nowhere
  loop,           ///< the way comes back to itself
  noNext,         ///< a chart goes on, and it isn't said with whose hand
  waits,          ///< a chart goes on at a turn that the auction has not come to
  handUnknown,    ///< a chart goes on with a hand that isn't known
  chartUnknown,   ///< the chart that goes on isn't there, or says nothing of hands
  notForAuction,  ///< the chart that goes on is for other auctions
  notForHand,     ///< it assumes another hand
};

struct HandWalked {
  std::vector<ChartWalk> charts;  ///< one at least
  WalkOutcome outcome;

  /// Where the last end has a link: the turn at which that chart goes on, if it is known.
  std::optional<std::size_t> nextTurn;

  const ChartWalk& last() const { return charts.back(); }

  /// All answers, y and n, as a path is prepared with them.
  std::string answers() const;
};

/// Walks hands through the charts of a folder by the navigator's moves. For one thread at a time.
class HandWalk {
 public:
  /// The chart of a name; nullptr where there is none that says anything of hands. What comes back
  /// must outlive the walk.
  using FindChart = std::function<const HandChart*(const std::string& name)>;

  /// A person's answer to a question that takes judgement; std::nullopt for none.
  using Judge = std::function<std::optional<Answer>(const HandChart&, BoxIndex)>;

  HandWalk(const std::filesystem::path& directory, FindChart find);
  HandWalk(const HandWalk&) = delete;
  HandWalk& operator=(const HandWalk&) = delete;

  /// Whether the chart assumes such a hand as the one who calls at that turn has.
  /// REQUIRES, as below: turn <= auction.size(), and that hand is known.
  bool isForHand(const HandChart& chart, const Situation& situation, std::size_t turn);

  /// Walks from the root of a chart and, as long as the ends make the calls of the auction, on
  /// along the links, to the first end that makes another.
  HandWalked walk(const HandChart& chart, const Situation& situation, std::size_t turn,
                  const Judge& judge);

 private:
  Walker& walkerAt(const HandChart& chart, const Situation& situation, std::size_t turn);
  ChartWalk walkChart(const HandChart& chart, const Situation& situation, std::size_t turn,
                      const Judge& judge);
  void walkQuestions(Walker& walker, ChartWalk& walk, const Judge& judge);
  WalkedBox boxHere() const;
  std::optional<WalkOutcome> goOn(HandWalked& walked, const Situation& situation);

  Tavrel navigator_;
  FindChart find_;
  std::map<const HandChart*, std::unique_ptr<Walker>> walkers_;
  Table table_;  // that evaluations look at
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HANDWALK_H
