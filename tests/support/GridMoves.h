// A move of the engine's cursor in a direction that is known only when it is made.

#ifndef TAVREL_TESTS_SUPPORT_GRIDMOVES_H
#define TAVREL_TESTS_SUPPORT_GRIDMOVES_H

#include <cstdint>

#include "engine/CTavrel.h"

namespace tavrel {

/// One of the four grid moves; direction: a code of eXYDirection that is a direction.
inline void moveOnGrid(CTavrel& engine, std::int32_t direction) {
  switch (direction) {
    case eYPlus:
      return engine.mMoveYPlus();
    case eXPlus:
      return engine.mMoveXPlus();
    case eYMinus:
      return engine.mMoveYMinus();
    default:
      return engine.mMoveXMinus();
  }
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_GRIDMOVES_H
