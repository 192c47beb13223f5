#include "drawing/ChartGeometry.h"

#include <algorithm>
#include <iterator>

namespace tavrel::drawing {
namespace {

using Demands = std::vector<Axis::Demand>;

// One demand for each cell: the furthest reaches of all that is in it.
Demands combined(Demands demands) {
  std::sort(demands.begin(), demands.end(),
            [](const Axis::Demand& a, const Axis::Demand& b) { return a.cell < b.cell; });
  Demands out;
  for (const Axis::Demand& demand : demands) {
    if (out.empty() || out.back().cell != demand.cell) {
      out.push_back(demand);
    } else {
      Reach& reach = out.back().reach;
      reach.before = std::max(reach.before, demand.reach.before);
      reach.after = std::max(reach.after, demand.reach.after);
    }
  }
  return out;
}

// The distance of two neighbouring tracks' centres: what the layout says, in whole units and
// rounded up, or what the two need.
std::int64_t distanceOf(const Axis::Demand& a, const Axis::Demand& b, std::int64_t unitsPerStep) {
  const std::int64_t layout = ((b.offset - a.offset) * unitsPerStep + 1) / 2;
  return std::max(layout, a.reach.after + b.reach.before);
}

Track trackAround(const Axis::Demand& demand, std::int64_t centre) {
  return {demand.cell, centre - demand.reach.before, centre, centre + demand.reach.after};
}

// Shares the room between two tracks out if their cells touch.
void join(Track& a, Track& b) {
  if (b.cell != a.cell + 1) return;
  a.end += (b.start - a.end) / 2;
  b.start = a.end;
}

std::vector<Track> placed(const Demands& demands, std::int64_t unitsPerStep) {
  std::vector<Track> tracks;
  tracks.reserve(demands.size());
  for (const Axis::Demand& demand : demands) {
    if (tracks.empty()) {
      tracks.push_back(trackAround(demand, demand.reach.before));
      continue;
    }
    const Axis::Demand& previous = *std::prev(&demand);
    const std::int64_t distance = distanceOf(previous, demand, unitsPerStep);
    tracks.push_back(trackAround(demand, tracks.back().centre + distance));
    join(*std::prev(tracks.end(), 2), tracks.back());
  }
  return tracks;
}

}  // namespace

Axis::Axis(std::vector<Demand> demands, std::int64_t unitsPerStep)
    : tracks_(placed(combined(std::move(demands)), unitsPerStep)) {}

const Track* Axis::find(std::int64_t cell) const {
  const auto found =
      std::lower_bound(tracks_.begin(), tracks_.end(), cell,
                       [](const Track& track, std::int64_t wanted) { return track.cell < wanted; });
  return found != tracks_.end() && found->cell == cell ? &*found : nullptr;
}

std::pair<const Track*, const Track*> Axis::within(std::int64_t from, std::int64_t to) const {
  if (from >= to) return {nullptr, nullptr};
  const auto first = std::partition_point(tracks_.begin(), tracks_.end(),
                                          [from](const Track& track) { return track.end <= from; });
  const auto last = std::partition_point(first, tracks_.end(),
                                         [to](const Track& track) { return track.start < to; });
  const Track* const base = tracks_.data();
  return {base + (first - tracks_.begin()), base + (last - tracks_.begin())};
}

ChartGeometry geometryOf(const ElementGrid& grid, const Measure& measure, std::int64_t character,
                         std::int64_t line) {
  Demands columns, rows;
  for (const ScreenElement& element : grid.elements()) {
    const ElementReach reach = measure(element, sidesOf(grid, element));
    columns.push_back({element.x(), element.xOffset(), reach.across});
    rows.push_back({element.y(), element.yOffset(), reach.down});
  }
  return {Axis(std::move(columns), character), Axis(std::move(rows), line)};
}

}  // namespace tavrel::drawing
