// Other ways to find the element in a cell, to hold against the row index.

#ifndef TAVREL_BENCH_CELLFINDERS_H
#define TAVREL_BENCH_CELLFINDERS_H

#include <algorithm>
#include <boost/unordered/unordered_flat_map.hpp>
#include <cstddef>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

#include "engine/CTavrel.h"

namespace tavrel::bench {

using Elements = std::vector<sScreenElement>;

/// A position as one number, in the order of rows and, within them, of columns.
inline std::uint64_t keyOf(std::int32_t x, std::int32_t y) {
  constexpr std::uint32_t signBit = 0x8000'0000;
  const auto ascending = [](std::int32_t value) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(value) ^ signBit);
  };
  return ascending(y) << 32 | ascending(x);
}

/// A map from positions to element indices, of the kind given.
template <typename Map>
class MapFinder {
 public:
  explicit MapFinder(const Elements& elements) {
    std::int32_t index = 0;  // the lowest one of a cell stays
    for (const sScreenElement& element : elements) {
      map_.emplace(keyOf(element.m_x, element.m_y), index++);
    }
  }

  /// The lowest element index at a position, or -1.
  std::int32_t find(std::int32_t x, std::int32_t y) const {
    const auto found = map_.find(keyOf(x, y));
    return found == map_.end() ? -1 : found->second;
  }

 private:
  Map map_;
};

using HashFinder = MapFinder<std::unordered_map<std::uint64_t, std::int32_t>>;
using FlatHashFinder = MapFinder<boost::unordered_flat_map<std::uint64_t, std::int32_t>>;
using TreeFinder = MapFinder<std::map<std::uint64_t, std::int32_t>>;

/// A vector of positions with their elements, sorted.
class SortedFinder {
 public:
  explicit SortedFinder(const Elements& elements) {
    std::int32_t index = 0;
    for (const sScreenElement& element : elements) {
      entries_.emplace_back(keyOf(element.m_x, element.m_y), index++);
    }
    std::sort(entries_.begin(), entries_.end());
  }

  /// The lowest element index at a position, or -1.
  std::int32_t find(std::int32_t x, std::int32_t y) const {
    const std::uint64_t key = keyOf(x, y);
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), std::pair(key, 0));
    return found == entries_.end() || found->first != key ? -1 : found->second;
  }

 private:
  std::vector<std::pair<std::uint64_t, std::int32_t>> entries_;
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_CELLFINDERS_H
