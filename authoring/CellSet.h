// Cells of the grid, looked up often: a hash table without an allocation for each.

#ifndef TAVREL_AUTHORING_CELLSET_H
#define TAVREL_AUTHORING_CELLSET_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "authoring/GridChart.h"

namespace tavrel::authoring {

/// A set of cells, each with a small number. Only ever grows.
class CellSet {
 public:
  /// Adds a cell with a number from 0 to 3; false if they were there already.
  bool insert(Cell cell, unsigned number = 0) {
    if (2 * (size_ + 1) > slots_.size()) grow();
    std::uint64_t& slot = slotOf(keyOf(cell, number));
    if (slot != empty) return false;
    slot = keyOf(cell, number);
    ++size_;
    return true;
  }

  bool holds(Cell cell, unsigned number = 0) const {
    return !slots_.empty() && slots_[placeOf(keyOf(cell, number))] != empty;
  }

  std::size_t size() const { return size_; }

 private:
  static constexpr std::uint64_t empty = ~std::uint64_t{0};
  static constexpr std::size_t fewSlots = 64;

  // Coordinates have 31 bits here: charts are far smaller.
  static std::uint64_t keyOf(Cell cell, unsigned number) {
    constexpr std::uint64_t mask = 0x7FFFFFFFU;
    return (static_cast<std::uint32_t>(cell.x) & mask) << 33 |
           (static_cast<std::uint32_t>(cell.y) & mask) << 2 | number;
  }

  std::size_t placeOf(std::uint64_t key) const {
    const std::uint64_t mixed = key * 0x9E3779B97F4A7C15U;
    std::size_t place = static_cast<std::size_t>(mixed >> 32) & (slots_.size() - 1);
    while (slots_[place] != empty && slots_[place] != key)
      place = (place + 1) & (slots_.size() - 1);
    return place;
  }
  std::uint64_t& slotOf(std::uint64_t key) { return slots_[placeOf(key)]; }

  void grow() {
    std::vector<std::uint64_t> old(slots_.empty() ? fewSlots : 2 * slots_.size(), empty);
    old.swap(slots_);
    for (const std::uint64_t key : old) {
      if (key != empty) slotOf(key) = key;
    }
  }

  std::vector<std::uint64_t> slots_;  // their number a power of two, at most half of them taken
  std::size_t size_ = 0;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CELLSET_H
