// Moves by direction and the step back. Built on the navigator's own operations
// alone, so that they mean the same in every form of the client interface.

#include "facade/Tavrel.h"

namespace {

struct GridCell {
  std::int64_t x;
  std::int64_t y;
};

// The cell one step away; a number that is no direction steps toward larger x.
GridCell neighbourOf(const ScreenElement& element, std::int64_t direction) {
  switch (direction) {
    case XYDirectionYPlus:
      return {element.x(), element.y() + 1};
    case XYDirectionYMinus:
      return {element.x(), element.y() - 1};
    case XYDirectionXMinus:
      return {element.x() - 1, element.y()};
    default:
      return {element.x() + 1, element.y()};
  }
}

// The exit is followed by asking for its cell, so an exit into nothing throws.
bool leadsTo(const Tavrel& navigator, const ScreenElement& box, std::int64_t exit,
             const GridCell& target) {
  if (exit == XYDirectionNone) return false;
  const GridCell next = neighbourOf(box, exit);
  const ScreenElement element = navigator.elementAtXY(next.x, next.y);
  return element.x() == target.x && element.y() == target.y;
}

}  // namespace

ScreenElement Tavrel::currentElement() const {
  std::int64_t x = 0;
  std::int64_t y = 0;
  getCurrentLocationWithXY(&x, &y);
  return elementAtXY(x, y);
}

void Tavrel::moveWithDirection(std::int64_t direction) {
  switch (direction) {
    case XYDirectionYPlus:
      return moveYPlus();
    case XYDirectionYMinus:
      return moveYMinus();
    case XYDirectionXMinus:
      return moveXMinus();
    case XYDirectionNone:
      return;
    default:
      return moveXPlus();
  }
}

void Tavrel::moveBack() {
  GridCell here = {0, 0};
  getCurrentLocationWithXY(&here.x, &here.y);
  const ScreenBounds around = {here.x - 1, here.x + 1, here.y - 1, here.y + 1};
  for (const ScreenElement& element : elementsInBounds(around)) {
    if (!element.isNode()) continue;
    for (const std::int64_t exit : {element.yesDirection(), element.noDirection()}) {
      if (leadsTo(*this, element, exit, here)) return moveWithDirection(reversed(exit));
    }
  }
}
