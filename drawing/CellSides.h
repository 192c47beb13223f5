// The lines of a chart as its cells see them: what passes each of a cell's four
// sides. Knows neither sizes nor glyphs.

#ifndef TAVREL_DRAWING_CELLSIDES_H
#define TAVREL_DRAWING_CELLSIDES_H

#include <array>
#include <cstddef>

#include "drawing/ElementGrid.h"
#include "facade/Tavrel.h"

namespace tavrel::drawing {

/// The four directions, in the order of their numbers.
constexpr std::array<XYDirection, 4> directions = {XYDirectionYPlus, XYDirectionXPlus,
                                                   XYDirectionYMinus, XYDirectionXMinus};

/// One step: (0, 1), (1, 0), (0, -1) or (-1, 0).
struct Step {
  int dx;
  int dy;
};
Step stepOf(XYDirection direction);

inline bool isHorizontal(XYDirection direction) { return stepOf(direction).dx != 0; }

/// What passes one side of a cell.
struct CellSide {
  bool yes = false;      ///< the box's yes exit leaves here
  bool no = false;       ///< the box's no exit leaves here
  bool leaves = false;   ///< a line leaves here: an exit, or a connector's way out
  bool arrives = false;  ///< a line comes in here, from the neighbour or, for a connector, from
                         ///< where its own data says it does
  bool deadEnd = false;  ///< what leaves here finds an empty cell
  bool onPath = false;   ///< what passes here joins two cells on the prepared path
};

/// The four sides of a cell, by direction: sides[XYDirectionXPlus] is the side
/// toward larger x. REQUIRES of the index: not XYDirectionNone.
class CellSides {
 public:
  const CellSide& operator[](XYDirection direction) const {
    return sides_[static_cast<std::size_t>(direction)];
  }
  CellSide& operator[](XYDirection direction) {
    return sides_[static_cast<std::size_t>(direction)];
  }

 private:
  std::array<CellSide, 4> sides_;
};

/// The sides of the element, which is one of the grid's. The grid must hold its
/// four neighbours too, as far as the chart has them. A direction that is no
/// direction passes no side.
CellSides sidesOf(const ElementGrid& grid, const ScreenElement& element);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_CELLSIDES_H
