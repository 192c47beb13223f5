// The walk that a hand makes through a chart.

#ifndef TAVREL_HANDS_WALKER_H
#define TAVREL_HANDS_WALKER_H

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "hands/Evaluation.h"
#include "hands/Expression.h"
#include "hands/HandChart.h"

namespace tavrel::hands {

/// A question on the way and its answer.
struct Step {
  BoxIndex box;
  Answer answer;
};

/// How a walk ended.
enum class Ending {
  end,        ///< at a box that is an end
  noExit,     ///< the answer leads nowhere
  judgement,  ///< a question of judgement was not answered
  loop,       ///< the way comes back to itself
};

/// Walks one chart with one hand after another: the hand and the table that its evaluation has.
/// For one thread at a time; it stays where it is.
class Walker {
 public:
  /// Compiles all conditions. The chart must outlive the walker.
  explicit Walker(const HandChart& chart);

  const HandChart& chart() const { return chart_; }
  Evaluation& evaluation() { return evaluation_; }

  /// Whether the chart assumes such a hand. The auction is another matter.
  bool isForHand() const { return !hand_ || hand_->isTrue(); }

  /// The hand's answer to the question of a box; std::nullopt where it takes judgement.
  std::optional<Answer> answerAt(BoxIndex box) const {
    const std::optional<Expression>& when = programs_[box].when;
    if (!when) return std::nullopt;
    return when->isTrue() ? Answer::yes : Answer::no;
  }

  /// Which of the calls of an end the hand makes; std::nullopt if none fits.
  std::optional<std::size_t> choiceAt(BoxIndex end) const;

  /// That call; Call::none if none fits.
  Call callAt(BoxIndex end) const;

  /// Whether the hand has what the end promises; true where nothing is promised.
  bool isAsShownAt(BoxIndex end) const;

  /// Walks from the root. The last box is `end()`, and `steps()` lead there. `judge(box)` gives
  /// an std::optional<Answer> to questions of judgement: std::nullopt stops the walk.
  template <typename Judge>
  Ending walk(Judge judge);

  const std::vector<Step>& steps() const { return steps_; }
  BoxIndex end() const { return end_; }

 private:
  // What a walk needs to know of a box stands here together.
  struct Program {
    std::optional<Expression> when;
    ByAnswer<BoxIndex> exits;
    bool isEnd;
    std::vector<std::pair<std::optional<Expression>, Call>> calls;
    std::optional<Expression> shows;
  };

  const HandChart& chart_;
  Evaluation evaluation_;
  std::optional<Expression> hand_;
  std::vector<Program> programs_;  // by box
  std::vector<Step> steps_;
  BoxIndex end_ = 0;
};

template <typename Judge>
Ending Walker::walk(Judge judge) {
  steps_.clear();
  for (end_ = 0; !programs_[end_].isEnd;) {
    if (steps_.size() == programs_.size()) return Ending::loop;
    std::optional<Answer> answer = answerAt(end_);
    if (!answer) answer = judge(end_);
    if (!answer) return Ending::judgement;
    const BoxIndex next = programs_[end_].exits[*answer];
    steps_.push_back({end_, *answer});
    if (next == noBox) return Ending::noExit;
    end_ = next;
  }
  return Ending::end;
}

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_WALKER_H
