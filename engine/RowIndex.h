// The elements of a flowchart grouped by row.

#ifndef TAVREL_ENGINE_ROWINDEX_H
#define TAVREL_ENGINE_ROWINDEX_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/Position.h"

namespace tavrel::engine {

/// An element and its column, side by side for the search of a row.
struct RowCell {
  std::int32_t x;
  std::int32_t element;
};

/// Row r holds the elements with y = minY + r: those whose indices stand in
/// `elementIndices` from rowStarts[r] up to, but not including, rowStarts[r + 1],
/// in ascending order. `cells` holds the same rows in the same places, each sorted
/// by column and then by element.
struct RowIndex {
  std::vector<std::int32_t> elementIndices;  ///< every element once
  std::vector<std::int32_t> rowStarts;       ///< one entry more than there are rows
  std::vector<RowCell> cells;                ///< every element once
};

/// Cells of one row that follow one another in the order of `RowIndex::cells`.
struct RowCells {
  const RowCell* first = nullptr;
  std::size_t size = 0;

  const RowCell* last() const noexcept { return first + size; }  ///< behind the last one
};

/// Whether `cell` is the first of a row in column `x`. In a row without gaps that cell
/// stands as far from the row's first as its column does: `distance`, which may be any.
inline bool startsColumn(const RowCells& row, std::int64_t distance, std::int64_t x) noexcept {
  if (static_cast<std::uint64_t>(distance) >= row.size) return false;
  const RowCell* cell = row.first + distance;
  return cell->x == x && (distance == 0 || cell[-1].x != x);
}

/// The first cell of a row that stands in column `x` or beyond it, or the row's end. A
/// binary search that always takes as many steps as the row's size asks for: where no
/// step can be foreseen, computing its outcome is faster than branching on it.
inline const RowCell* searchedFrom(const RowCells& row, std::int64_t x) noexcept {
  const RowCell* first = row.first;
  for (std::size_t size = row.size; size > 0;) {
    const std::size_t half = (size + 1) / 2;
    first += static_cast<std::size_t>(first[half - 1].x < x) * half;
    size -= half;
  }
  return first;
}

/// The same. Constant for a row without gaps before x, logarithmic for any other.
inline const RowCell* firstFrom(const RowCells& row, std::int64_t x) noexcept {
  if (row.size == 0) return row.first;
  const std::int64_t distance = x - row.first->x;
  if (startsColumn(row, distance, x)) return row.first + distance;
  return searchedFrom(row, x);
}

/// The first cell of a row in column `x`, the one with the lowest element index, or
/// nullptr. Costs what firstFrom does.
inline const RowCell* cellInRow(const RowCells& row, std::int32_t x) noexcept {
  if (row.size == 0) return nullptr;
  const std::int64_t distance = std::int64_t{x} - row.first->x;
  if (startsColumn(row, distance, x)) return row.first + distance;
  const RowCell* found = searchedFrom(row, x);
  return found != row.last() && found->x == x ? found : nullptr;
}

/// The lowest element index in column `x` of a row, or -1. Costs what firstFrom does.
inline std::int32_t findInRow(const RowCells& row, std::int32_t x) noexcept {
  const RowCell* found = cellInRow(row, x);
  return found != nullptr ? found->element : -1;
}

/// Whether a row index can be made: at most 16,777,216 rows from minY to maxY, whose
/// starts take 64 MiB, and at most 2,147,483,647 elements, whose indices have 32 bits.
bool canBeIndexed(std::int32_t minY, std::int32_t maxY, std::size_t elementCount);

/// The places 0, 1, 2 ... of a list of positions in the order of their columns, equal
/// ones in the order of the places. Linear where the columns lie close together.
/// REQUIRES: the columns lie between `minX` and `maxX`.
std::vector<std::int32_t> placesByColumn(const std::vector<Position>& positions, std::int32_t minX,
                                         std::int32_t maxX);

/// The row index of elements at `positions`. Throws std::out_of_range for an element
/// outside minY to maxY, std::length_error unless canBeIndexed. Linear in elements
/// plus rows, where the columns lie close together.
RowIndex buildRowIndex(const std::vector<Position>& positions, std::int32_t minY,
                       std::int32_t maxY);

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_ROWINDEX_H
