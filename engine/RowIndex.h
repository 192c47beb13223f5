// The elements of a flowchart grouped by row.

#ifndef TAVREL_ENGINE_ROWINDEX_H
#define TAVREL_ENGINE_ROWINDEX_H

#include <cstddef>
#include <cstdint>
#include <vector>

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

/// The lowest element index in column `x` among a row's cells, or -1. Constant for a
/// row without gaps before x, logarithmic for any other.
std::int32_t findInRow(const RowCell* first, const RowCell* last, std::int32_t x) noexcept;

/// Whether a row index can be made: at most 16,777,216 rows from minY to maxY, whose
/// starts take 64 MiB, and at most 2,147,483,647 elements, whose indices have 32 bits.
bool canBeIndexed(std::int32_t minY, std::int32_t maxY, std::size_t elementCount);

/// The places 0, 1, 2 ... of a list of columns in the order of the columns, equal
/// ones in the order of the places. Linear where the columns lie close together.
std::vector<std::int32_t> placesByColumn(const std::vector<std::int32_t>& columns);

/// The row index of elements at `columns` and `rows`. Throws std::out_of_range for an
/// element outside minY to maxY, std::length_error unless canBeIndexed. Linear in
/// elements plus rows, where the columns lie close together.
RowIndex buildRowIndex(const std::vector<std::int32_t>& columns,
                       const std::vector<std::int32_t>& rows, std::int32_t minY, std::int32_t maxY);

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_ROWINDEX_H
