#include "drawing/CellSides.h"

namespace tavrel::drawing {
namespace {

bool leadsToward(const ScreenElement& element, XYDirection direction) {
  if (!element.isNode()) return element.outOfDirection() == direction;
  return element.yesDirection() == direction || element.noDirection() == direction;
}

// By its own data alone: a box has no such direction.
bool isEnteredFrom(const ScreenElement& element, XYDirection side) {
  return !element.isNode() && element.intoDirection() == reversed(side);
}

const ScreenElement* neighbour(const ElementGrid& grid, const ScreenElement& element,
                               XYDirection direction) {
  const Step step = stepOf(direction);
  return grid.at(element.x() + step.dx, element.y() + step.dy);
}

CellSide sideOf(const ElementGrid& grid, const ScreenElement& element, XYDirection direction) {
  const ScreenElement* const next = neighbour(grid, element, direction);
  CellSide side;
  side.yes = element.yesDirection() == direction;
  side.no = element.noDirection() == direction;
  side.leaves = leadsToward(element, direction);
  side.arrives = isEnteredFrom(element, direction) ||
                 (next != nullptr && leadsToward(*next, reversed(direction)));
  side.deadEnd = side.leaves && next == nullptr;
  side.onPath =
      (side.leaves || side.arrives) && element.isOnPath() && next != nullptr && next->isOnPath();
  return side;
}

}  // namespace

Step stepOf(XYDirection direction) {
  switch (direction) {
    case XYDirectionYPlus:
      return {0, 1};
    case XYDirectionXPlus:
      return {1, 0};
    case XYDirectionYMinus:
      return {0, -1};
    case XYDirectionXMinus:
      return {-1, 0};
    default:
      return {0, 0};
  }
}

CellSides sidesOf(const ElementGrid& grid, const ScreenElement& element) {
  CellSides sides;
  for (const XYDirection direction : directions) {
    sides[direction] = sideOf(grid, element, direction);
  }
  return sides;
}

}  // namespace tavrel::drawing
