// How long does a move take? A step of a walk along 1,000 boxes, beside what nobody can
// save: pointers from cell to cell along the same lines.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/Charts.h"
#include "bench/Checksum.h"
#include "bench/Contest.h"
#include "engine/CTavrel.h"
#include "tests/support/GridMoves.h"

namespace tavrel::bench {
namespace {

constexpr double seconds = 3;
constexpr double timesThePointers = 6;
constexpr std::size_t steps = 999;  // between 1,000 boxes

/// A cell that knows the next one on its way.
struct LinkedCell {
  const sScreenElement* element;
  const LinkedCell* next;
};

// The cells of a walk along yes, there or back, linked where they stand in the chart.
class LinkedWay {
 public:
  explicit LinkedWay(const std::vector<sScreenElement>& elements) : elements_(elements) {
    for (const sScreenElement& element : elements_) {
      cells_.push_back({&element, nullptr});
      placeOf_.emplace(std::pair(element.m_x, element.m_y), cells_.size() - 1);
    }
    for (std::size_t step = 0; step < steps; ++step) collectStep();
    way_.push_back(at_);
  }

  const LinkedCell* linkedForward() { return link(way_); }
  const LinkedCell* linkedBack() { return link({way_.rbegin(), way_.rend()}); }

  /// The directions in which the steps leave the boxes, first to last.
  const std::vector<std::int32_t>& exits() const { return exits_; }
  /// The directions in which they arrive.
  const std::vector<std::int32_t>& arrivals() const { return arrivals_; }

 private:
  void collectStep() {
    exits_.push_back(elements_[at_].m_yesDir);
    collect(elements_[at_].m_yesDir);
    while (!elements_[at_].m_isNode) collect(elements_[at_].m_directionOutOf);
  }

  void collect(std::int32_t direction) {
    way_.push_back(at_);
    const auto code = static_cast<eXYDirection>(direction);
    const sScreenElement& from = elements_[at_];
    at_ =
        placeOf_.at({from.m_x + CTavrel::mDirectionX(code), from.m_y + CTavrel::mDirectionY(code)});
    if (elements_[at_].m_isNode) arrivals_.push_back(direction);
  }

  const LinkedCell* link(const std::vector<std::size_t>& way) {
    for (std::size_t i = 0; i + 1 < way.size(); ++i) cells_[way[i]].next = &cells_[way[i + 1]];
    return &cells_[way.front()];
  }

  std::vector<sScreenElement> elements_;
  std::vector<LinkedCell> cells_;  // as the elements
  std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> placeOf_;
  std::size_t at_ = 0;
  std::vector<std::size_t> way_;
  std::vector<std::int32_t> exits_, arrivals_;
};

const LinkedCell* nextBox(const LinkedCell* cell) {
  do cell = cell->next;
  while (!cell->element->m_isNode);
  return cell;
}

Contestant pointers(const LinkedCell* first) {
  const auto work = [first] {
    const LinkedCell* at = first;
    for (std::size_t step = 0; step < steps; ++step) keep(at = nextBox(at));
  };
  const auto checksum = [first] {
    Checksum sum;
    const LinkedCell* at = first;
    for (std::size_t step = 0; step < steps; ++step) {
      at = nextBox(at);
      sum.add(at->element->m_x).add(at->element->m_y);
    }
    return sum.value();
  };
  return {"pointers from cell to cell", Rival::floor, timesThePointers, work, checksum};
}

// The engine on its way, by a move that is told the number of the step.
template <typename Move>
Contestant engineContestant(const std::shared_ptr<CTavrel>& engine,
                            const std::function<void()>& goToStart, const Move& move) {
  const auto work = [engine, move] {
    for (std::size_t step = 0; step < steps; ++step) move(*engine, step);
  };
  const auto checksum = [engine, goToStart, move] {
    Checksum sum;
    goToStart();
    for (std::size_t step = 0; step < steps; ++step) {
      move(*engine, step);
      const sFlowchartNameAndCoordinates location = engine->mCurrentLocation();
      sum.add(location.m_x).add(location.m_y);
    }
    return sum.value();
  };
  return {"Tavrel", Rival::itself, noBar, work, checksum, goToStart};
}

void contests(const Charts& charts, double time) {
  const std::shared_ptr<CTavrel> engine = std::make_shared<CTavrel>(charts.directory());
  engine->mStartNewPath(0, std::string(steps, 'y'));
  const auto toRoot = [engine] { engine->mMoveRoot(); };
  const auto toEnd = [engine] {
    engine->mMoveRoot();
    for (std::size_t step = 0; step < steps; ++step) engine->mMoveYes();
  };
  const auto contest = [time](const std::string& input, const Contestant& tavrel,
                              const LinkedCell* first) {
    compete({"a step along 1,000 boxes", input, steps}, {tavrel, pointers(first)}, time);
  };
  LinkedWay there(elementsOf(charts));
  LinkedWay back(elementsOf(charts));
  const auto alongPath = [](CTavrel& e, std::size_t) { e.mMoveOnPath(); };
  const auto alongYes = [](CTavrel& e, std::size_t) { e.mMoveYes(); };
  const auto onGrid = [&](CTavrel& e, std::size_t i) { moveOnGrid(e, there.exits()[i]); };
  const auto backOnGrid = [&](CTavrel& e, std::size_t i) {
    moveOnGrid(e, there.arrivals()[steps - 1 - i] ^ 2);
  };
  contest("on the path", engineContestant(engine, toRoot, alongPath), there.linkedForward());
  contest("yes", engineContestant(engine, toRoot, alongYes), there.linkedForward());
  contest("on the grid", engineContestant(engine, toRoot, onGrid), there.linkedForward());
  contest("back on the grid", engineContestant(engine, toEnd, backOnGrid), there.linkedBack());
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contests(bigChart(), time);
}
