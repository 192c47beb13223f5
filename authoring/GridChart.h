// A chart on the grid: its boxes and connector cells, each in a cell of its own.

#ifndef TAVREL_AUTHORING_GRIDCHART_H
#define TAVREL_AUTHORING_GRIDCHART_H

#include <array>
#include <cstdint>
#include <vector>

#include "authoring/ChartGraph.h"

namespace tavrel::authoring {

/// Numbered as files number them; the opposite is two further on.
enum class Direction : std::int8_t { none = -1, down = 0, right = 1, up = 2, left = 3 };

inline constexpr std::array directions = {Direction::down, Direction::right, Direction::up,
                                          Direction::left};

constexpr Direction opposite(Direction direction) {
  return static_cast<Direction>((static_cast<int>(direction) + 2) % 4);
}

/// A cell: column and row, larger y further down.
struct Cell {
  std::int32_t x = 0;
  std::int32_t y = 0;

  friend bool operator==(const Cell& a, const Cell& b) { return a.x == b.x && a.y == b.y; }
  friend bool operator!=(const Cell& a, const Cell& b) { return !(a == b); }
};

/// The cell `distance` further in a direction, which is not none.
constexpr Cell moved(Cell from, Direction direction, std::int32_t distance = 1) {
  switch (direction) {
    case Direction::down:
      return {from.x, from.y + distance};
    case Direction::right:
      return {from.x + distance, from.y};
    case Direction::up:
      return {from.x, from.y - distance};
    default:
      return {from.x - distance, from.y};
  }
}

struct PlacedBox {
  BoxNumber box = noBox;
  Cell cell;
  ByAnswer<Direction> exits = {Direction::none, Direction::none};
};

/// A cell of a line, and the directions of travel into it and out of it.
struct PlacedConnector {
  Cell cell;
  Direction into = Direction::none;
  Direction outOf = Direction::none;
};

struct GridChart {
  std::vector<PlacedBox> boxes;  ///< the root first, at (0, 0)
  std::vector<PlacedConnector> connectors;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_GRIDCHART_H
