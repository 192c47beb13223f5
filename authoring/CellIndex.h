// Finds the cells of a chart by their places.

#ifndef TAVREL_AUTHORING_CELLINDEX_H
#define TAVREL_AUTHORING_CELLINDEX_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <vector>

#include "authoring/GridChart.h"

namespace tavrel::authoring {

/// Cells by their numbers, in the order in which they were added, and their places. Where
/// several share a place, the first one is found.
class CellIndex {
 public:
  static constexpr std::int32_t none = -1;

  void add(const Cell& cell) {
    entries_.push_back({cell, static_cast<std::int32_t>(entries_.size())});
  }

  /// Has to be called between the last add and the first find. Cost: a sort.
  void finish() {
    std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
      return std::tie(a.cell.x, a.cell.y, a.number) < std::tie(b.cell.x, b.cell.y, b.number);
    });
  }

  /// The number of the cell there, or none. Cost: logarithmic.
  std::int32_t find(const Cell& cell) const {
    const auto at = std::lower_bound(
        entries_.begin(), entries_.end(), cell, [](const Entry& entry, const Cell& wanted) {
          return std::tie(entry.cell.x, entry.cell.y) < std::tie(wanted.x, wanted.y);
        });
    return at != entries_.end() && at->cell == cell ? at->number : none;
  }

 private:
  struct Entry {
    Cell cell;
    std::int32_t number;
  };

  std::vector<Entry> entries_;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CELLINDEX_H
