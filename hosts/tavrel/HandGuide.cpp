#include "hosts/tavrel/HandGuide.h"

#include <algorithm>
#include <utility>

#include "hands/HandText.h"

namespace tavrel {
namespace {

using namespace hands;

HandGuide::Place placeOf(const HandChart& chart, Cell cell) {
  return {chart.name(), cell.x, cell.y};
}

HandStart startOf(HandCharts& charts, const std::string& chart, const HandAtTable& hand,
                  HandWalk& walk) {
  if (chart.empty()) return startAnywhere(charts, hand, walk);
  return startIn(charts.chart(charts.library().find(chart)), hand, walk);
}

}  // namespace

HandGuide::HandGuide(const Library& library, const std::string& chart, HandAtTable hand,
                     HandWalk::Judge judge)
    : charts_(library),
      hand_(std::move(hand)),
      walk_(walkThrough(charts_)),
      start_(startOf(charts_, chart, hand_, walk_)),
      judge_(std::move(judge)) {
  walk();
}

std::string HandGuide::handShown() const {
  const ChartWalk& first = bid_.walked.charts.front();
  return std::string(hands::nameOf(first.seat)) + " " + shown(first.hand);
}

const HandGuide::Step* HandGuide::stepFrom(const Place& place) const {
  const auto found = std::find_if(steps_.begin(), steps_.end(),
                                  [&](const Step& step) { return step.from == place; });
  return found == steps_.end() ? nullptr : &*found;
}

std::optional<std::size_t> HandGuide::stepsTo(const Place& place) const {
  if (const Step* step = stepFrom(place)) return static_cast<std::size_t>(step - steps_.data());
  if (place == end_) return steps_.size();
  return std::nullopt;
}

std::string HandGuide::answers(std::size_t stepCount) const {
  std::string answers;
  for (std::size_t i = 0; i < stepCount; ++i) {
    if (steps_[i].answer) answers += *steps_[i].answer == Answer::yes ? 'y' : 'n';
  }
  return answers;
}

void HandGuide::judge(const Place& place, Answer answer) {
  judged_.insert_or_assign(place, answer);
  walk();
}

std::string HandGuide::result() const {
  const Call call = callOf(bid_);
  if (call == Call::none) return openEndOf(bid_);
  return "the hand bids " + shown(call, Charset::utf8) + " (answers: " + bid_.walked.answers() +
         ")";
}

void HandGuide::walk() {
  const auto judge = [this](const HandChart& chart, BoxIndex box) -> std::optional<Answer> {
    if (judge_) return judge_(chart, box);
    const auto found = judged_.find(placeOf(chart, chart[box].cell));
    if (found == judged_.end()) return std::nullopt;
    return found->second;
  };
  bid_ = {hand_.situation, walk_.walk(*start_.chart, hand_.situation, start_.turn, judge)};
  steps_.clear();
  for (const ChartWalk& each : bid_.walked.charts) addSteps(each);
}

void HandGuide::addSteps(const ChartWalk& walk) {
  if (&walk != &bid_.walked.charts.front()) {
    steps_.push_back({end_, std::nullopt, "",
                      "the chart " + walk.chart->name() + " goes on with the hand of " +
                          hands::nameOf(walk.seat) + ", " + shown(walk.hand)});
  }
  for (const WalkedQuestion& each : walk.questions) {
    steps_.push_back(
        {placeOf(*walk.chart, each.box.cell), each.answer, questionOf(each.box), reasonOf(each)});
  }
  end_ = placeOf(*walk.chart, walk.end.cell);
}

}  // namespace tavrel
