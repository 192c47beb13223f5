#include <algorithm>
#include <limits>
#include <stdexcept>

#include "engine/Axis.h"

namespace tavrel::engine {
namespace {

// Up to this many slots a cell, an unused slot costs less than a search.
constexpr std::int64_t slotsPerCell = 4;

void sortAndUnite(std::vector<std::int32_t>& coordinates) {
  std::sort(coordinates.begin(), coordinates.end());
  coordinates.erase(std::unique(coordinates.begin(), coordinates.end()), coordinates.end());
}

}  // namespace

Axis::Axis(std::vector<std::int32_t> coordinates) {
  coordinates.push_back(0);
  const auto [first, last] = std::minmax_element(coordinates.begin(), coordinates.end());
  const std::int64_t reach = std::int64_t{*last} - *first + 1;
  m_first = *first;
  if (reach > slotsPerCell * static_cast<std::int64_t>(coordinates.size())) {
    sortAndUnite(coordinates);
    m_sparse = std::move(coordinates);
    m_slots.assign(m_sparse.size(), 0);
  } else {
    m_slots.assign(static_cast<std::size_t>(reach), 0);
  }
}

void Axis::include(std::int32_t coordinate, std::size_t size) {
  std::int64_t& slot = m_slots[slotOf(coordinate)];
  slot = std::max(slot, static_cast<std::int64_t>(size));
}

void Axis::place(std::int64_t gap) {
  const std::size_t origin = slotOf(0);
  placeToward(+1, origin, gap);
  placeToward(-1, origin, gap);
  m_slots[origin] = 0;
}

void Axis::placeToward(std::ptrdiff_t step, std::size_t origin, std::int64_t gap) {
  std::int64_t position = 0;
  std::int64_t size = m_slots[origin];
  std::int64_t coordinate = 0;
  // Stepping below slot 0 wraps to a slot far beyond the last.
  for (std::size_t slot = origin + static_cast<std::size_t>(step); slot < m_slots.size();
       slot += static_cast<std::size_t>(step)) {
    const std::int64_t gaps = step * (coordinateOf(slot) - coordinate);
    position += step * (size + m_slots[slot] + gap * gaps);
    if (position != static_cast<std::int32_t>(position)) {
      throw std::length_error("CTavrel: the flowchart is too large to lay out");
    }
    coordinate = coordinateOf(slot);
    size = m_slots[slot];
    m_slots[slot] = position;
  }
}

std::int64_t Axis::coordinateOf(std::size_t slot) const {
  return m_sparse.empty() ? m_first + static_cast<std::int64_t>(slot) : m_sparse[slot];
}

}  // namespace tavrel::engine
