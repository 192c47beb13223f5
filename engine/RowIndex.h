// The elements of a flowchart grouped by row.

#ifndef TAVREL_ENGINE_ROWINDEX_H
#define TAVREL_ENGINE_ROWINDEX_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "engine/Failures.h"

namespace tavrel::engine {

/// Row r holds the elements with y = minY + r: those whose indices stand in
/// `elementIndices` from rowStarts[r] up to, but not including, rowStarts[r + 1],
/// in ascending order.
struct RowIndex {
  std::vector<std::int32_t> elementIndices;  ///< every element once
  std::vector<std::int32_t> rowStarts;       ///< one entry more than there are rows
};

/// Whether a row index can be made: at most 16,777,216 rows from minY to maxY, whose
/// starts take 64 MiB, and at most 2,147,483,647 elements, whose indices have 32 bits.
bool canBeIndexed(std::int32_t minY, std::int32_t maxY, std::size_t elementCount);

/// The row index of elements, or of the cells they will be made of, in the same
/// order; `y` is the member that holds their row. Throws std::out_of_range for an
/// element outside minY to maxY, std::length_error unless canBeIndexed. Linear in
/// elements plus rows.
template <typename Element>
RowIndex buildRowIndex(const std::vector<Element>& elements, std::int32_t Element::*y,
                       std::int32_t minY, std::int32_t maxY) {
  if (!canBeIndexed(minY, maxY, elements.size())) throwLengthError();
  const auto rows = static_cast<std::size_t>(std::int64_t{maxY} - minY + 1);
  const auto rowOf = [&](const Element& element) {
    const auto row = static_cast<std::uint64_t>(std::int64_t{element.*y} - minY);
    if (row >= rows) throwOutOfRange();
    return static_cast<std::size_t>(row);
  };
  // Row r is counted in starts[r + 2]; summed up, starts[r + 1] is where it starts;
  // and once its elements have been put in place one by one, where it ends.
  std::vector<std::int32_t> starts(rows + 2, 0);
  for (const Element& element : elements) ++starts[rowOf(element) + 2];
  for (std::size_t r = 2; r < starts.size(); ++r) starts[r] += starts[r - 1];

  std::vector<std::int32_t> indices(elements.size());
  std::int32_t index = 0;
  for (const Element& element : elements) {
    std::int32_t& place = starts[rowOf(element) + 1];
    indices[static_cast<std::size_t>(place++)] = index++;
  }
  starts.pop_back();
  return {std::move(indices), std::move(starts)};
}

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_ROWINDEX_H
