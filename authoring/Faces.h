// The areas into which lines divide the grid, by the sides of boxes that look into them.
//
// No line leads from a side of a box to that of another if drawn lines lie between the two.
// Whether they do can be told without a look at the grid: whoever walks round a chart, always
// with its lines at the left hand, comes past all sides that look into one area. A line within
// the area makes two walks of one.

#ifndef TAVREL_AUTHORING_FACES_H
#define TAVREL_AUTHORING_FACES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "authoring/GridChart.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {

/// A side of a box, by the direction in which a line leaves it.
struct Side {
  NodeNumber node;
  Direction direction;
};

class Faces {
 public:
  /// Boxes without lines. A box with all its sides on one walk is a chart of its own.
  explicit Faces(std::size_t boxes) : next_(4 * boxes), areas_(4 * boxes, 0) {
    for (std::size_t side = 0; side < next_.size(); ++side) {
      next_[side] = static_cast<Number>(side % 4 == 3 ? side - 3 : side + 1);
    }
  }

  /// A line that makes one chart of two. REQUIRES: they are two, and no `divide` came before.
  void hang(const Side& from, const Side& to) { join(numberOf(from), numberOf(to)); }

  /// A line within a chart. REQUIRES: the sides look into one area. Cost: together with all
  /// others n log n for n sides.
  void divide(const Side& from, const Side& to) {
    join(numberOf(from), numberOf(to));
    const Number shorter = onShorterWalk(numberOf(from), numberOf(to));
    ++lastArea_;
    for (Number side = next_[shorter]; side != shorter; side = next_[side]) {
      if (areas_[side] != noArea) areas_[side] = lastArea_;
    }
  }

  /// Whether a side looks into an area that some side of a box looks into, too. False where a
  /// line is at it. REQUIRES: all boxes are in one chart.
  bool meet(const Side& side, NodeNumber box) const {
    const Number area = areas_[numberOf(side)];
    return area != noArea &&
           std::any_of(directions.begin(), directions.end(), [&](Direction other) {
             return areas_[numberOf({box, other})] == area;
           });
  }

 private:
  using Number = std::uint32_t;
  static constexpr auto noArea = static_cast<Number>(-1);

  static Number numberOf(const Side& side) {
    return 4 * static_cast<Number>(side.node) + static_cast<Number>(side.direction);
  }

  // Whoever comes to one end of the line goes along it, and on from the other.
  void join(Number one, Number other) {
    std::swap(next_[one], next_[other]);
    areas_[one] = areas_[other] = noArea;
  }

  // A walk has half of the sides at most each time that one of them changes its area.
  Number onShorterWalk(Number one, Number other) const {
    for (Number a = next_[one], b = next_[other]; a != one; a = next_[a], b = next_[b]) {
      if (b == other) return other;
    }
    return one;
  }

  std::vector<Number> next_;   // for each side the one behind it on its walk
  std::vector<Number> areas_;  // for each side; noArea where a line is
  Number lastArea_ = 0;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FACES_H
