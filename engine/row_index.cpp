// Which element stands where: built once a flowchart is read, asked at every step.

#include "engine/RowIndex.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "engine/CTavrel.h"
#include "engine/CheckedAccess.h"
#include "engine/Rows.h"

namespace tavrel::engine {
namespace {

constexpr std::uint64_t mostRows = 16'777'216;
constexpr std::size_t mostElements = std::numeric_limits<std::int32_t>::max();

// Where columns reach no further than this many times their number, counting them is
// cheaper than comparing them.
constexpr std::int64_t countedReach = 2;

std::vector<std::int32_t> placesBySorting(const std::vector<Position>& positions) {
  std::vector<std::int32_t> places(positions.size());
  std::iota(places.begin(), places.end(), 0);
  std::sort(places.begin(), places.end(), [&](std::int32_t a, std::int32_t b) {
    return std::pair(at(positions, a).x, a) < std::pair(at(positions, b).x, b);
  });
  return places;
}

std::vector<std::int32_t> placesByCounting(const std::vector<Position>& positions,
                                           std::int32_t minX, std::int64_t reach) {
  const auto slotOf = [&](const Position& position) {
    return static_cast<std::size_t>(std::int64_t{position.x} - minX);
  };
  std::vector<std::int32_t> starts(static_cast<std::size_t>(reach) + 1, 0);
  for (const Position& position : positions) ++starts[slotOf(position) + 1];
  std::partial_sum(starts.begin(), starts.end(), starts.begin());
  std::vector<std::int32_t> places(positions.size());
  std::int32_t place = 0;
  for (const Position& position : positions) {
    places[static_cast<std::size_t>(starts[slotOf(position)]++)] = place++;
  }
  return places;
}

// REQUIRES: positions is not empty.
Bounds boundsOf(const std::vector<Position>& positions) {
  const Position& first = positions.front();
  return including({first.x, first.x, first.y, first.y}, positions);
}

}  // namespace

bool canBeIndexed(std::int32_t minY, std::int32_t maxY, std::size_t elementCount) {
  const auto rows = static_cast<std::uint64_t>(std::int64_t{maxY} - minY + 1);
  return rows <= mostRows && elementCount <= mostElements;
}

std::vector<std::int32_t> placesByColumn(const std::vector<Position>& positions, std::int32_t minX,
                                         std::int32_t maxX) {
  const std::int64_t reach = std::int64_t{maxX} - minX + 1;
  const bool isClose = reach <= countedReach * static_cast<std::int64_t>(positions.size());
  return isClose ? placesByCounting(positions, minX, reach) : placesBySorting(positions);
}

RowIndex buildRowIndex(const std::vector<Position>& positions, std::int32_t minY,
                       std::int32_t maxY) {
  if (!canBeIndexed(minY, maxY, positions.size())) throwLengthError();
  std::vector<std::int32_t> starts(static_cast<std::size_t>(std::int64_t{maxY} - minY + 2), 0);
  if (positions.empty()) return {{}, std::move(starts), {}};
  const Bounds bounds = boundsOf(positions);
  if (bounds.minY < minY || bounds.maxY > maxY) throwOutOfRange();
  const auto startOf = [&](const Position& position) -> std::int32_t& {
    return starts[static_cast<std::size_t>(std::int64_t{position.y} - minY)];
  };
  for (const Position& position : positions) ++startOf(position);
  std::partial_sum(starts.begin(), starts.end(), starts.begin());

  // One list of starts serves both fillings. Each holds the ends of the rows now, is
  // moved down to their starts as the rows are filled from behind, and up again to
  // their ends as they are filled from the front.
  std::vector<RowCell> cells(positions.size());
  const std::vector<std::int32_t> byColumn = placesByColumn(positions, bounds.minX, bounds.maxX);
  for (auto place = byColumn.rbegin(); place != byColumn.rend(); ++place) {
    const Position& position = positions[static_cast<std::size_t>(*place)];
    cells[static_cast<std::size_t>(--startOf(position))] = {position.x, *place};
  }
  std::vector<std::int32_t> indices(positions.size());
  std::int32_t element = 0;
  for (const Position& position : positions) {
    indices[static_cast<std::size_t>(startOf(position)++)] = element++;
  }
  std::copy_backward(starts.begin(), starts.end() - 1, starts.end());
  starts.front() = 0;
  return {std::move(indices), std::move(starts), std::move(cells)};
}

// One element at most can be found: a flowchart is read anew as long as it has no more.
std::int32_t Rows::scanFor(const Position& position) const {
  std::int32_t found = -1;
  forEachWithin({position.x, position.x, position.y, position.y},
                [&](std::int32_t element) { found = element; });
  return found;
}

}  // namespace tavrel::engine

using namespace tavrel::engine;

void CTavrel::mBuildFCFindHelper(const std::int32_t& fc) {
  const std::vector<sScreenElement>& elements = at(m_screenElements, fc);
  std::vector<Position> positions;
  positions.reserve(elements.size());
  for (const sScreenElement& element : elements) positions.push_back({element.m_x, element.m_y});
  takeOver(fc, buildRowIndex(positions, at(m_minY, fc), at(m_maxY, fc)));
}

void CTavrel::takeOver(std::int32_t fc, RowIndex&& index) noexcept {
  at(m_rowElementIndices, fc) = std::move(index.elementIndices);
  at(m_rowStarts, fc) = std::move(index.rowStarts);
  at(m_rowCells, fc) = std::move(index.cells);
}

std::int32_t CTavrel::mFind(const std::int32_t& fc, const std::int32_t& x,
                            const std::int32_t& y) const {
  return rowsOf(fc).find({x, y});
}
