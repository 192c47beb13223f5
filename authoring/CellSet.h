// Cells of the grid, looked up often: a hash table without an allocation for each.

#ifndef TAVREL_AUTHORING_CELLSET_H
#define TAVREL_AUTHORING_CELLSET_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "authoring/GridChart.h"

namespace tavrel::authoring {

/// A set of cells, each with a small number. Only ever grows. Cells beside each other mostly
/// stand in one entry of the table: a line that is followed stays in the processor's cache.
class CellSet {
 public:
  /// Adds a cell with a number from 0 to 3; false if they were there already.
  bool insert(Cell cell, unsigned number = 0) {
    if (2 * (tiles_ + 1) > slots_.size()) grow();
    Tile& tile = slots_[placeOf(keyOf(cell))];
    if (tile.members == 0) ++tiles_;
    tile.key = keyOf(cell);
    const std::uint64_t member = memberOf(cell, number);
    if ((tile.members & member) != 0) return false;
    tile.members |= member;
    ++size_;
    return true;
  }

  bool holds(Cell cell, unsigned number = 0) const {
    return !slots_.empty() && (slots_[placeOf(keyOf(cell))].members & memberOf(cell, number)) != 0;
  }

  std::size_t size() const { return size_; }

 private:
  // A square of 4 by 4 cells: a bit for each of them with each number. None for a free slot.
  struct Tile {
    std::uint64_t key = 0;
    std::uint64_t members = 0;
  };

  static constexpr std::size_t fewSlots = 64;

  static std::uint64_t keyOf(Cell cell) {
    return std::uint64_t{static_cast<std::uint32_t>(cell.x) / 4} << 32 |
           static_cast<std::uint32_t>(cell.y) / 4;
  }

  static std::uint64_t memberOf(Cell cell, unsigned number) {
    const std::uint32_t column = static_cast<std::uint32_t>(cell.x) % 4;
    const std::uint32_t row = static_cast<std::uint32_t>(cell.y) % 4;
    return std::uint64_t{1} << (16 * row + 4 * column + number);
  }

  std::size_t placeOf(std::uint64_t key) const {
    const std::uint64_t mixed = key * 0x9E3779B97F4A7C15U;
    std::size_t place = static_cast<std::size_t>(mixed >> 32) & (slots_.size() - 1);
    while (slots_[place].members != 0 && slots_[place].key != key)
      place = (place + 1) & (slots_.size() - 1);
    return place;
  }

  void grow() {
    std::vector<Tile> old(slots_.empty() ? fewSlots : 2 * slots_.size());
    old.swap(slots_);
    for (const Tile& tile : old) {
      if (tile.members != 0) slots_[placeOf(tile.key)] = tile;
    }
  }

  std::vector<Tile> slots_;  // their number a power of two, at most half of them taken
  std::size_t tiles_ = 0;
  std::size_t size_ = 0;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CELLSET_H
