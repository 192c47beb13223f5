#include "facade/Tavrel.h"

XYDirection reversed(std::int64_t direction) noexcept {
  switch (direction) {
    case XYDirectionYPlus:
      return XYDirectionYMinus;
    case XYDirectionYMinus:
      return XYDirectionYPlus;
    case XYDirectionXMinus:
      return XYDirectionXPlus;
    case XYDirectionNone:
      return XYDirectionNone;
    default:  // toward larger x, as a move takes it
      return XYDirectionXMinus;
  }
}
