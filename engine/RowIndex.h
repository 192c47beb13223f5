// The cells of a flowchart grouped by row.

#ifndef TAVREL_ENGINE_ROWINDEX_H
#define TAVREL_ENGINE_ROWINDEX_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "engine/CheckedAccess.h"

namespace tavrel::engine {

/// Row r holds the elements with y = minY + r: those whose indices stand in
/// `elementIndices` from rowStarts[r] up to, but not including, rowStarts[r + 1],
/// in ascending order.
struct RowIndex {
  std::vector<std::int32_t> elementIndices;  ///< every element once
  std::vector<std::int32_t> rowStarts;       ///< one entry more than there are rows
};

/// The number of rows from minY to maxY. Throws std::length_error for more than
/// 16,777,216, whose starts would take more than 64 MiB.
std::size_t rowCount(std::int32_t minY, std::int32_t maxY);

/// The row index of a list of cells, whose rows are read from the member `y`.
/// Throws std::out_of_range for a cell outside minY to maxY, std::length_error as
/// rowCount does. Linear in cells plus rows.
template <typename Cell>
RowIndex buildRowIndex(const std::vector<Cell>& cells, std::int32_t Cell::*y, std::int32_t minY,
                       std::int32_t maxY) {
  const std::size_t rows = rowCount(minY, maxY);
  const auto rowOf = [&](const Cell& cell) {
    const auto row = static_cast<std::uint64_t>(std::int64_t{cell.*y} - minY);
    if (row >= rows) throwOutOfRange();
    return static_cast<std::size_t>(row);
  };
  // Row r is counted in starts[r + 2]; summed up, starts[r + 1] is where it starts;
  // and once its cells have been put in place one by one, where it ends.
  std::vector<std::int32_t> starts(rows + 2, 0);
  for (const Cell& cell : cells) ++starts[rowOf(cell) + 2];
  for (std::size_t r = 2; r < starts.size(); ++r) starts[r] += starts[r - 1];

  std::vector<std::int32_t> indices(cells.size());
  std::int32_t index = 0;
  for (const Cell& cell : cells) {
    std::int32_t& place = starts[rowOf(cell) + 1];
    indices[static_cast<std::size_t>(place++)] = index++;
  }
  starts.pop_back();
  return {std::move(indices), std::move(starts)};
}

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_ROWINDEX_H
