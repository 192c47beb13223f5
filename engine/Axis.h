// Where the columns and rows of a flowchart lie when it is drawn.

#ifndef TAVREL_ENGINE_AXIS_H
#define TAVREL_ENGINE_AXIS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavrel::engine {

/// The columns of a flowchart, or its rows, along one axis of the grid: each as
/// large as the largest cell in it, centred at a position counted from the centre
/// of the one at 0. In half units: a column n characters wide reaches n to either
/// side of its centre.
///
/// Memory follows the number of cells, not the reach of their coordinates.
class Axis {
 public:
  /// An axis on which every coordinate lies at 0.
  Axis() = default;

  /// An axis for the cells at `coordinates`, in any order and repeated at will,
  /// all of size 0 as yet. The coordinate 0 is always on it.
  explicit Axis(std::vector<std::int32_t> coordinates);

  /// Makes room for a cell of `size` at `coordinate`.
  /// REQUIRES: the axis was made with this coordinate and place() is still to come.
  void include(std::int32_t coordinate, std::size_t size);

  /// Computes the positions, neighbours lying half of both their sizes plus `gap`
  /// apart. Throws std::length_error if one of them passes 32 bits.
  void place(std::int64_t gap);

  /// The position of a coordinate, once place() has been called.
  std::int32_t position(std::int32_t coordinate) const {
    return m_slots.empty() ? 0 : static_cast<std::int32_t>(m_slots[slotOf(coordinate)]);
  }

 private:
  std::size_t slotOf(std::int32_t coordinate) const {
    if (m_sparse.empty()) return static_cast<std::size_t>(coordinate - m_first);
    const auto found = std::lower_bound(m_sparse.begin(), m_sparse.end(), coordinate);
    return static_cast<std::size_t>(found - m_sparse.begin());
  }
  std::int64_t coordinateOf(std::size_t slot) const;
  void placeToward(std::ptrdiff_t step, std::size_t origin, std::int64_t gap);

  // A slot for each coordinate between the first and the last where these lie
  // close together; otherwise one for each coordinate in m_sparse, ascending.
  std::int64_t m_first = 0;
  std::vector<std::int32_t> m_sparse;
  std::vector<std::int64_t> m_slots;  // sizes until place(), positions after it
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_AXIS_H
