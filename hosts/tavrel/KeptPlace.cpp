#include "hosts/tavrel/KeptPlace.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace tavrel {
namespace {

using namespace authoring;

using Steps = std::vector<WalkStep>;

// Where answers lead; noBox for steps of another kind, and past an end.
BoxNumber endOf(const Steps& steps, const ChartSource& source) {
  BoxNumber box = source.start;
  for (const WalkStep step : steps) {
    if (box == noBox || (step != WalkStep::yes && step != WalkStep::no)) return noBox;
    box = source[box].exits[step == WalkStep::yes ? Answer::yes : Answer::no];
  }
  return box;
}

// A box found on the way out from the start: from which of those found before, and how.
struct Reached {
  BoxNumber box;
  std::size_t from;
  WalkStep step;
};

Steps wayTo(std::size_t last, const std::vector<Reached>& reached) {
  Steps steps;
  for (std::size_t i = last; i > 0; i = reached[i].from) steps.push_back(reached[i].step);
  std::reverse(steps.begin(), steps.end());
  return steps;
}

// The fewest answers from the start to a box, if there are any.
std::optional<Steps> shortestWay(BoxNumber to, const ChartSource& source) {
  std::vector<Reached> reached = {{source.start, 0, WalkStep::root}};
  std::vector<bool> isReached(source.boxes.size());
  isReached[static_cast<std::size_t>(source.start)] = true;
  for (std::size_t i = 0; i < reached.size(); ++i) {
    const BoxNumber box = reached[i].box;
    if (box == to) return wayTo(i, reached);
    for (const Answer answer : answers) {
      const BoxNumber next = source[box].exits[answer];
      if (next == noBox || isReached[static_cast<std::size_t>(next)]) continue;
      isReached[static_cast<std::size_t>(next)] = true;
      reached.push_back({next, i, answer == Answer::yes ? WalkStep::yes : WalkStep::no});
    }
  }
  return std::nullopt;
}

// Through the link of the box where the walk stands, if that leads there.
Outcome enterNext(Walk& walk, const CatalogueEntry& chart) {
  const bool isLinked = walk.box().nameOfNextFlowchart() == chart.name;
  return isLinked ? walk.followLink() : walk.enter(chart);
}

Outcome enterFirst(Walk& walk, const CatalogueEntry& chart, const std::string& path) {
  return path.empty() ? walk.enter(chart) : walk.enter(chart, path);
}

}  // namespace

KeptPlace::Box KeptPlace::boxUnder(const Walk& walk, const CompiledChart& chart) {
  const auto [name, x, y] = walk.navigator().currentLocation();
  for (const PlacedBox& placed : chart.grid.boxes) {
    if (placed.cell.x != x || placed.cell.y != y) continue;
    const SourceBox& box = chart.source[placed.box];
    return {box.id, box.text.lines};
  }
  return {};
}

// Makes the steps of a stay once more.
std::vector<KeptPlace::Box> KeptPlace::boxesOn(const Walk::Stay& stay, const Library& library,
                                               const CompiledChart& chart) {
  Walk walk(library);
  std::vector<Box> boxes;
  if (walk.enter(library.entry(stay.chart)) != Outcome::moved) return boxes;
  boxes.push_back(boxUnder(walk, chart));
  for (const WalkStep step : stay.steps) {
    walk.take(step);
    boxes.push_back(boxUnder(walk, chart));
  }
  return boxes;
}

BoxNumber KeptPlace::numberOf(const Box& box, const ChartSource& source) {
  const auto& all = source.boxes;
  auto found = std::find_if(all.begin(), all.end(), [&](const SourceBox& each) {
    return !each.id.empty() && each.id == box.id;
  });
  if (found == all.end()) {
    found = std::find_if(all.begin(), all.end(),
                         [&](const SourceBox& each) { return each.text.lines == box.lines; });
  }
  return found == all.end() ? noBox : static_cast<BoxNumber>(found - all.begin());
}

// The way that was made, as far as it leads where it led; another one to the last box of it
// that can be reached.
std::vector<WalkStep> KeptPlace::stepsAlong(const Stay& stay, const ChartSource& source) {
  for (std::size_t count = stay.boxes.size(); count > 0; --count) {
    const BoxNumber box = numberOf(stay.boxes[count - 1], source);
    if (box == noBox) continue;
    const auto begin = stay.made.steps.begin();
    const Steps same(begin, begin + static_cast<std::ptrdiff_t>(count) - 1);
    if (endOf(same, source) == box) return same;
    if (std::optional<Steps> other = shortestWay(box, source)) return std::move(*other);
  }
  return {};
}

KeptPlace::KeptPlace(const Walk& walk, const SourceCharts& charts) {
  const Library& library = walk.library();
  for (const Walk::Stay& stay : walk.stays()) {
    const CompiledChart* const chart = charts.find(library.entry(stay.chart).name);
    stays_.push_back({stay, {}});
    if (chart != nullptr) stays_.back().boxes = boxesOn(stay, library, *chart);
  }
}

void KeptPlace::restore(Walk& walk, const SourceCharts& charts, const std::string& path) const {
  walk.restart();
  for (const Stay& stay : stays_) {
    const CatalogueEntry& entry = walk.library().entry(stay.made.chart);
    const Outcome outcome =
        walk.hasEntered() ? enterNext(walk, entry) : enterFirst(walk, entry, path);
    if (outcome != Outcome::moved) break;
    const CompiledChart* const chart = charts.find(entry.name);
    const Steps steps = chart == nullptr ? stay.made.steps : stepsAlong(stay, chart->source);
    for (const WalkStep step : steps) walk.take(step);
  }
  if (!walk.hasEntered()) walk.enter(walk.library().find(charts.chart()));
}

}  // namespace tavrel
