// Lines between boxes on the grid: along free cells, with the fewest bends and, among those,
// the shortest.

#ifndef TAVREL_AUTHORING_ROUTER_H
#define TAVREL_AUTHORING_ROUTER_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "authoring/CellSet.h"
#include "authoring/GridChart.h"

namespace tavrel::authoring {

/// A line from a box to a box: the direction in which it leaves the first, and its cells.
/// Direction::none for no line.
struct Line {
  Direction exit = Direction::none;
  std::vector<PlacedConnector> connectors;
};

/// A straight line from a box to the one `distance` cells further.
Line straightLine(Cell from, Direction exit, std::int32_t distance);

/// A grid that fills with boxes and lines. Nothing on it ever crosses or touches another.
class Router {
 public:
  /// `mostSteps` bounds the search for one line; `stepsLeft`, which goes down, that for all.
  Router(std::size_t mostSteps, std::size_t& stepsLeft)
      : mostSteps_(mostSteps), stepsLeft_(stepsLeft) {}

  /// Puts a box, or a cell of a line, where nothing can pass any more.
  void take(Cell cell);

  /// The best line there is now by one of `exits`, its cells taken; `wanted` is the exit of
  /// several that are as good. No line where none is found.
  Line route(Cell from, Cell to, Direction wanted, const std::vector<Direction>& exits);

 private:
  struct Area {
    Cell least, most;
  };

  bool isFree(Cell cell) const { return !taken_.holds(cell); }

  std::size_t mostSteps_;
  std::size_t& stepsLeft_;
  CellSet taken_;
  Area area_ = {};  // of all that is taken
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_ROUTER_H
