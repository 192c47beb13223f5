// Elements by their cells, for drawing, which asks what stands next to what.

#ifndef TAVREL_DRAWING_ELEMENTGRID_H
#define TAVREL_DRAWING_ELEMENTGRID_H

#include <cstdint>
#include <vector>

#include "facade/Tavrel.h"

namespace tavrel::drawing {

/// A flowchart's elements or a part of them, one to a cell. Never changes.
/// Memory follows the number of elements, not the cells between them.
class ElementGrid {
 public:
  /// Of two elements in one cell the first is kept: it is the one that the
  /// navigator finds there.
  explicit ElementGrid(std::vector<ScreenElement> elements);

  /// The element in cell (x, y), nullptr for an empty one. It lives as long as
  /// the grid. Cost: a binary search.
  const ScreenElement* at(std::int64_t x, std::int64_t y) const;

  /// The elements row by row with y increasing, with x increasing within a row.
  const std::vector<ScreenElement>& elements() const { return elements_; }

 private:
  std::vector<ScreenElement> elements_;
};

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_ELEMENTGRID_H
