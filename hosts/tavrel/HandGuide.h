// The way of a hand through the charts, step by step, for walks that are seen.

#ifndef TAVREL_HOSTS_TAVREL_HANDGUIDE_H
#define TAVREL_HOSTS_TAVREL_HANDGUIDE_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "hosts/tavrel/BidReport.h"
#include "hosts/tavrel/HandCharts.h"
#include "hosts/tavrel/HandStart.h"
#include "hosts/tavrel/TableArguments.h"

namespace tavrel {

class HandGuide {
 public:
  /// A box by its chart's name and its cell.
  using Place = std::tuple<std::string, std::int64_t, std::int64_t>;

  /// One step: an answer or, without one, a link that is followed.
  struct Step {
    Place from;
    std::optional<hands::Answer> answer;
    std::string question;  ///< what the box says
    std::string reason;    ///< "yes: 16 (A4 Q2 …)", or why a chart goes on
  };

  /// Walks through the charts of the library, which must outlive this, from the chart named or,
  /// for an empty name, the one that fits. Questions of judgement go to `judge` or, where that is
  /// empty, stay open until they are answered. Throws Failure as startIn() and startAnywhere() do.
  HandGuide(const Library& library, const std::string& chart, HandAtTable hand,
            hands::HandWalk::Judge judge = nullptr);
  HandGuide(const HandGuide&) = delete;
  HandGuide& operator=(const HandGuide&) = delete;

  /// Where the walk begins.
  const CatalogueEntry& chart() const { return charts_.entryOf(*start_.chart); }

  /// The hand that begins: "North ♠AQ85 ♥KJ7 ♦KQ4 ♣J62".
  std::string handShown() const;

  const std::vector<Step>& steps() const noexcept { return steps_; }

  /// The first step that leaves a place; nullptr for the last place, and where the hand isn't.
  const Step* stepFrom(const Place& place) const;

  /// How many steps lead there; std::nullopt where they don't.
  std::optional<std::size_t> stepsTo(const Place& place) const;

  /// The answers among the first steps.
  std::string answers(std::size_t stepCount) const;

  /// Answers a question of judgement.
  void judge(const Place& place, hands::Answer answer);

  /// Whether the walk waits for an answer of judgement.
  bool isOpen() const { return bid_.walked.outcome == hands::WalkOutcome::judgement; }

  /// What came of the walk, as a clause: "the hand bids 1NT (answers: ny)".
  std::string result() const;

  /// The exit status of a walk of which this is all.
  int status() const { return statusOf(bid_); }

 private:
  void walk();
  void addSteps(const hands::ChartWalk& walk);

  HandCharts charts_;
  HandAtTable hand_;
  hands::HandWalk walk_;
  HandStart start_;
  hands::HandWalk::Judge judge_;
  std::map<Place, hands::Answer> judged_;
  Bid bid_;
  std::vector<Step> steps_;
  Place end_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_HANDGUIDE_H
