// Where the columns and rows of a flowchart lie when it is drawn.

#ifndef TAVREL_ENGINE_AXIS_H
#define TAVREL_ENGINE_AXIS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "engine/Position.h"

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

  /// An axis for cells at these positions, all of size 0 as yet. `coordinate` says
  /// which of the two coordinates counts, `first` and `last` are the lowest and the
  /// highest there is. REQUIRES: 0 lies between them.
  Axis(const std::vector<Position>& positions, std::int32_t Position::*coordinate,
       std::int32_t first, std::int32_t last);

  /// Makes room for a cell of `size` at `coordinate`.
  /// REQUIRES: the axis was made with this coordinate and place() is still to come.
  void include(std::int32_t coordinate, std::size_t size) {
    constexpr std::size_t most = std::numeric_limits<std::int32_t>::max();  // more never fits
    std::int32_t& slot = slots_[slotOf(coordinate)];
    slot = std::max(slot, static_cast<std::int32_t>(std::min(size, most)));
  }

  /// Computes the positions: the centres of neighbours lie both their sizes plus
  /// `gap` apart, in half units. False, with the positions of no use, if one of
  /// them passes 32 bits.
  bool place(std::int64_t gap);

  /// The position of a coordinate. REQUIRES: place() was called, or the axis was
  /// made without coordinates.
  std::int32_t position(std::int32_t coordinate) const {
    return slots_.empty() ? 0 : slots_[slotOf(coordinate)];
  }

 private:
  std::size_t slotOf(std::int32_t coordinate) const {
    if (sparse_.empty()) return static_cast<std::size_t>(coordinate - first_);
    const auto found = std::lower_bound(sparse_.begin(), sparse_.end(), coordinate);
    return static_cast<std::size_t>(found - sparse_.begin());
  }
  std::int64_t coordinateOf(std::size_t slot) const;
  bool placeToward(std::ptrdiff_t step, std::size_t origin, std::int64_t gap);

  // A slot for each coordinate between the first and the last where these lie
  // close together; otherwise one for each coordinate in sparse_, ascending.
  std::int64_t first_ = 0;
  std::vector<std::int32_t> sparse_;
  std::vector<std::int32_t> slots_;  // sizes until place(), positions after it
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_AXIS_H
