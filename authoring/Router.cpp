#include "authoring/Router.h"

#include <algorithm>
#include <cstdlib>
#include <queue>
#include <tuple>

namespace tavrel::authoring {
namespace {

// What a line costs: every bend counts more than any length.
struct Cost {
  std::int32_t bends = 0;
  std::int32_t length = 0;
  std::int32_t detours = 0;  // 1 for an exit that isn't the wanted one

  friend bool operator<(const Cost& a, const Cost& b) {
    return std::tie(a.bends, a.length, a.detours) < std::tie(b.bends, b.length, b.detours);
  }
  friend Cost operator+(const Cost& a, const Cost& b) {
    return {a.bends + b.bends, a.length + b.length, a.detours + b.detours};
  }
};

bool isAcross(Direction direction) {
  return direction == Direction::right || direction == Direction::left;
}

// Whether the direction leads toward the distance, however far.
bool leadsToward(Direction direction, std::int32_t across, std::int32_t down) {
  const Cell step = moved({0, 0}, direction);
  return step.x * across > 0 || step.y * down > 0;
}

// The least that a line still costs that has come to `from` in a direction.
Cost leastFurther(Cell from, Direction direction, Cell to) {
  const std::int32_t across = to.x - from.x, down = to.y - from.y;
  const std::int32_t length = std::abs(across) + std::abs(down);
  const std::int32_t ahead = isAcross(direction) ? across : down;
  const std::int32_t aside = isAcross(direction) ? down : across;
  if (aside == 0) return {ahead == 0 || leadsToward(direction, across, down) ? 0 : 2, length, 0};
  return {ahead == 0 || leadsToward(direction, isAcross(direction) ? across : 0,
                                    isAcross(direction) ? 0 : down)
              ? 1
              : 2,
          length, 0};
}

// One search: cells in the order of the least that a line through them may cost.
class Search {
 public:
  Search(Cell to, std::size_t mostSteps) : to_(to), mostSteps_(mostSteps) {}

  void start(Cell cell, Direction direction, bool isWanted) {
    push({cell, direction, {0, 1, isWanted ? 0 : 1}}, noPlace);
  }

  // `isFree` says whether a line may pass a cell.
  template <typename IsFree>
  bool run(const IsFree& isFree) {
    while (!open_.empty() && reached_.size() < mostSteps_) {
      const Step step = open_.top().step;
      const std::size_t place = open_.top().place;
      open_.pop();
      if (!settled_.insert(keyOf(step)).second) continue;
      reached_.push_back({step.cell, step.direction, place});
      if (step.cell == to_) return true;
      if (!isFree(step.cell)) continue;
      for (const Direction direction : directions) {
        if (direction == opposite(step.direction)) continue;
        const std::int32_t bends = direction == step.direction ? 0 : 1;
        push({moved(step.cell, direction), direction, step.cost + Cost{bends, 1, 0}},
             reached_.size() - 1);
      }
    }
    return false;
  }

  // After a successful run: the line, from its exit on.
  Line line() const {
    Line line;
    Direction outOf = reached_.back().direction;
    std::size_t place = reached_.back().before;
    for (; place != noPlace; place = reached_[place].before) {
      line.connectors.push_back({reached_[place].cell, reached_[place].direction, outOf});
      outOf = reached_[place].direction;
    }
    line.exit = outOf;
    std::reverse(line.connectors.begin(), line.connectors.end());
    return line;
  }

 private:
  static constexpr std::size_t noPlace = static_cast<std::size_t>(-1);

  struct Step {
    Cell cell;
    Direction direction;  // in which it is entered
    Cost cost;
  };
  struct Open {
    Cost least;  // of the whole line
    std::size_t order;
    Step step;
    std::size_t place;                                     // of the cell before, in reached_
    friend bool operator<(const Open& a, const Open& b) {  // the last is taken first
      if (b.least < a.least) return true;
      return !(a.least < b.least) && a.order > b.order;
    }
  };
  struct Reached {
    Cell cell;
    Direction direction;
    std::size_t before;
  };

  void push(const Step& step, std::size_t place) {
    open_.push({step.cost + leastFurther(step.cell, step.direction, to_), pushed_++, step, place});
  }

  static std::uint64_t keyOf(const Step& step) {
    return std::uint64_t{static_cast<std::uint32_t>(step.cell.x)} << 34 ^
           std::uint64_t{static_cast<std::uint32_t>(step.cell.y)} << 2 ^
           static_cast<std::uint64_t>(step.direction);
  }

  Cell to_;
  std::size_t mostSteps_;
  std::size_t pushed_ = 0;
  std::priority_queue<Open> open_;
  std::unordered_set<std::uint64_t> settled_;
  std::vector<Reached> reached_;
};

}  // namespace

void Router::take(Cell cell) {
  taken_.insert(keyOf(cell));
  area_.least = {std::min(area_.least.x, cell.x), std::min(area_.least.y, cell.y)};
  area_.most = {std::max(area_.most.x, cell.x), std::max(area_.most.y, cell.y)};
}

void Router::addBox(Cell cell) { take(cell); }

Line Router::straight(Cell from, Direction exit, std::int32_t distance) {
  Line line = {exit, {}};
  for (std::int32_t i = 1; i < distance; ++i) {
    line.connectors.push_back({moved(from, exit, i), exit, exit});
    take(line.connectors.back().cell);
  }
  return line;
}

Line Router::route(Cell from, Cell to, Direction wanted) {
  const Area within = {{area_.least.x - 2, area_.least.y - 2},
                       {area_.most.x + 2, area_.most.y + 2}};
  const auto isOpen = [&](Cell cell) {
    return cell.x >= within.least.x && cell.y >= within.least.y && cell.x <= within.most.x &&
           cell.y <= within.most.y && isFree(cell);
  };
  Search search(to, mostSteps_);
  for (const Direction exit : directions) {
    if (isOpen(moved(from, exit))) search.start(moved(from, exit), exit, exit == wanted);
  }
  if (!search.run(isOpen)) return {};
  Line line = search.line();
  for (const PlacedConnector& connector : line.connectors) take(connector.cell);
  return line;
}

}  // namespace tavrel::authoring
