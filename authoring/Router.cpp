#include "authoring/Router.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <queue>
#include <utility>
#include <vector>

namespace tavrel::authoring {
namespace {

// What a line costs, in one number to compare: every bend counts more than any length, and an
// exit that isn't the wanted one decides between lines that are alike.
using Cost = std::uint64_t;
constexpr Cost detourCost = 1;
constexpr Cost stepCost = 2;
constexpr Cost bendCost = Cost{1} << 28;

bool isAcross(Direction direction) {
  return direction == Direction::right || direction == Direction::left;
}

// The fewest bends of a line that has come to a cell in a direction and goes on `across` and
// `down` from there.
unsigned fewestBends(Direction direction, std::int32_t across, std::int32_t down) {
  const std::int32_t ahead = isAcross(direction) ? across : down;
  const std::int32_t aside = isAcross(direction) ? down : across;
  const Cell step = moved({0, 0}, direction);
  const bool leadsAway = ahead * (step.x + step.y) < 0;
  if (leadsAway) return 2;
  return aside == 0 ? 0 : 1;
}

// The least that it still costs.
Cost leastFurther(Cell from, Direction direction, Cell to) {
  const std::int32_t across = to.x - from.x, down = to.y - from.y;
  const auto length = static_cast<Cost>(std::abs(across) + std::abs(down));
  return fewestBends(direction, across, down) * bendCost + length * stepCost;
}

// Whether a line may be tried that comes to one cell in several directions. It may then have
// the fewest bends of all, or cross itself.
enum class Crossing : std::uint8_t { tried, excluded };

// One search: cells in the order of the least that a line through them may cost.
class Search {
 public:
  Search(Cell to, std::size_t mostSteps, Crossing crossing)
      : to_(to), mostSteps_(mostSteps), crossing_(crossing) {}

  void start(Cell cell, Direction direction, bool isWanted) {
    push({cell, direction, noPlace, stepCost + (isWanted ? 0 : detourCost)});
  }

  // `isFree` says whether a line may pass a cell. REQUIRES: those started from are free.
  template <typename IsFree>
  void run(const IsFree& isFree) {
    while (!open_.empty() && settled_.size() < mostSteps_) {
      end_ = open_.top().place;
      open_.pop();
      const Step step = steps_[end_];
      if (!settle(step)) continue;
      isFound_ = step.cell == to_;
      if (isFound_) return;
      goOn(step, isFree);
    }
  }

  bool isFound() const { return isFound_; }

  std::size_t steps() const { return settled_.size(); }

  Cost cost() const { return isFound_ ? steps_[end_].cost : std::numeric_limits<Cost>::max(); }

  // After a successful run: whether the line comes to a cell twice.
  bool crossesItself() const {
    CellSet cells;
    for (std::uint32_t at = steps_[end_].before; at != noPlace; at = steps_[at].before) {
      if (!cells.insert(steps_[at].cell)) return true;
    }
    return false;
  }

  // After a successful run: the line, from its exit on.
  Line line() const {
    Line line;
    line.exit = steps_[end_].direction;
    for (std::uint32_t at = steps_[end_].before; at != noPlace; at = steps_[at].before) {
      line.connectors.push_back({steps_[at].cell, steps_[at].direction, line.exit});
      line.exit = steps_[at].direction;
    }
    std::reverse(line.connectors.begin(), line.connectors.end());
    return line;
  }

 private:
  static constexpr auto noPlace = static_cast<std::uint32_t>(-1);

  struct Step {
    Cell cell;
    Direction direction;   // in which it is entered
    std::uint32_t before;  // its place in steps_
    Cost cost;
  };
  struct Open {
    Cost least;  // of the whole line
    std::uint32_t place;
    friend bool operator<(const Open& a, const Open& b) {  // the last is taken first
      return a.least != b.least ? a.least > b.least : a.place > b.place;
    }
  };

  void push(const Step& step) {
    steps_.push_back(step);
    open_.push({step.cost + leastFurther(step.cell, step.direction, to_),
                static_cast<std::uint32_t>(steps_.size() - 1)});
  }

  // What can't be passed, or was passed for less, needn't wait for its turn.
  template <typename IsFree>
  void goOn(const Step& step, const IsFree& isFree) {
    const auto place = static_cast<std::uint32_t>(end_);
    for (const Direction direction : directions) {
      if (direction == opposite(step.direction)) continue;
      const Cell next = moved(step.cell, direction);
      if (settled_.holds(next, numberOf(direction)) || (next != to_ && !isFree(next))) continue;
      const Cost bend = direction == step.direction ? 0 : bendCost;
      push({next, direction, place, step.cost + stepCost + bend});
    }
  }

  unsigned numberOf(Direction direction) const {
    return crossing_ == Crossing::tried ? static_cast<unsigned>(direction) : 0;
  }

  bool settle(const Step& step) { return settled_.insert(step.cell, numberOf(step.direction)); }

  Cell to_;
  std::size_t mostSteps_;
  Crossing crossing_;
  std::vector<Step> steps_;
  std::priority_queue<Open> open_;
  CellSet settled_;
  bool isFound_ = false;
  std::size_t end_ = 0;  // the step that was looked at last
};

}  // namespace

Line straightLine(Cell from, Direction exit, std::int32_t distance) {
  Line line = {exit, {}};
  for (std::int32_t i = 1; i < distance; ++i) {
    line.connectors.push_back({moved(from, exit, i), exit, exit});
  }
  return line;
}

void Router::take(Cell cell) {
  taken_.insert(cell);
  area_.least = {std::min(area_.least.x, cell.x), std::min(area_.least.y, cell.y)};
  area_.most = {std::max(area_.most.x, cell.x), std::max(area_.most.y, cell.y)};
}

Line Router::route(Cell from, Cell to, Direction wanted, const std::vector<Direction>& exits) {
  const Area within = {{area_.least.x - 2, area_.least.y - 2},
                       {area_.most.x + 2, area_.most.y + 2}};
  const auto isOpen = [&](Cell cell) {
    return cell.x >= within.least.x && cell.y >= within.least.y && cell.x <= within.most.x &&
           cell.y <= within.most.y && isFree(cell);
  };
  if (std::none_of(directions.begin(), directions.end(),
                   [&](Direction side) { return isOpen(moved(to, side)); })) {
    return {};
  }
  const auto searched = [&](const std::vector<Direction>& some, Crossing crossing) {
    Search search(to, std::min(mostSteps_, stepsLeft_), crossing);
    for (const Direction exit : some) {
      if (isOpen(moved(from, exit))) search.start(moved(from, exit), exit, exit == wanted);
    }
    search.run(isOpen);
    stepsLeft_ -= search.steps();
    return search;
  };
  Search best = searched(exits, Crossing::tried);
  if (best.isFound() && best.crossesItself()) {
    best = searched({}, Crossing::excluded);
    // One by one: a line from a box to itself ends where another exit would have started.
    for (const Direction exit : exits) {
      Search search = searched({exit}, Crossing::excluded);
      if (search.cost() < best.cost()) best = std::move(search);
    }
  }
  if (!best.isFound()) return {};
  Line line = best.line();
  for (const PlacedConnector& connector : line.connectors) take(connector.cell);
  return line;
}

}  // namespace tavrel::authoring
