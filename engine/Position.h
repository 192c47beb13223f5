// Where cells stand on the grid.

#ifndef TAVREL_ENGINE_POSITION_H
#define TAVREL_ENGINE_POSITION_H

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tavrel::engine {

/// A cell's place on the grid.
struct Position {
  std::int32_t x;  ///< grid column
  std::int32_t y;  ///< grid row
};

/// The smallest and largest coordinates of some cells, inclusive.
struct Bounds {
  std::int32_t minX, maxX, minY, maxY;
};

/// `bounds`, widened to take a position in.
inline Bounds including(const Bounds& bounds, const Position& position) noexcept {
  return {std::min(bounds.minX, position.x), std::max(bounds.maxX, position.x),
          std::min(bounds.minY, position.y), std::max(bounds.maxY, position.y)};
}

/// `bounds`, widened to take all positions in. Linear.
inline Bounds including(Bounds bounds, const std::vector<Position>& positions) noexcept {
  for (const Position& position : positions) bounds = including(bounds, position);
  return bounds;
}

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_POSITION_H
