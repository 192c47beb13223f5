#include "engine/Axis.h"

#include <algorithm>
#include <utility>

namespace tavrel::engine {
namespace {

// Up to this many slots a cell, an unused slot costs less than a search.
constexpr std::int64_t slotsPerCell = 2;

std::vector<std::int32_t> sortedWithOrigin(const std::vector<Position>& positions,
                                           std::int32_t Position::*coordinate) {
  std::vector<std::int32_t> coordinates;
  coordinates.reserve(positions.size() + 1);
  coordinates.push_back(0);
  for (const Position& position : positions) coordinates.push_back(position.*coordinate);
  std::sort(coordinates.begin(), coordinates.end());
  coordinates.erase(std::unique(coordinates.begin(), coordinates.end()), coordinates.end());
  return coordinates;
}

}  // namespace

Axis::Axis(const std::vector<Position>& positions, std::int32_t Position::*coordinate,
           std::int32_t first, std::int32_t last)
    : first_(first) {
  const std::int64_t reach = std::int64_t{last} - first + 1;
  if (reach > slotsPerCell * static_cast<std::int64_t>(positions.size() + 1)) {
    sparse_ = sortedWithOrigin(positions, coordinate);
    slots_.assign(sparse_.size(), 0);
  } else {
    slots_.assign(static_cast<std::size_t>(reach), 0);
  }
}

bool Axis::place(std::int64_t gap) {
  const std::size_t origin = slotOf(0);
  if (!placeToward(+1, origin, gap) || !placeToward(-1, origin, gap)) return false;
  slots_[origin] = 0;
  return true;
}

bool Axis::placeToward(std::ptrdiff_t step, std::size_t origin, std::int64_t gap) {
  std::int64_t position = 0;
  std::int64_t size = slots_[origin];
  std::int64_t coordinate = 0;
  // As an unsigned number, a slot below 0 is far beyond the last.
  for (std::ptrdiff_t next = static_cast<std::ptrdiff_t>(origin) + step;
       static_cast<std::size_t>(next) < slots_.size(); next += step) {
    const auto slot = static_cast<std::size_t>(next);
    const std::int64_t gaps = step * (coordinateOf(slot) - coordinate);
    position += step * (size + slots_[slot] + gap * gaps);
    if (position != static_cast<std::int32_t>(position)) return false;
    coordinate = coordinateOf(slot);
    size = slots_[slot];
    slots_[slot] = static_cast<std::int32_t>(position);
  }
  return true;
}

std::int64_t Axis::coordinateOf(std::size_t slot) const {
  return sparse_.empty() ? first_ + static_cast<std::int64_t>(slot) : sparse_[slot];
}

}  // namespace tavrel::engine
