// Which element stands where: built once a flowchart is read, asked at every step.

#include "engine/RowIndex.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "engine/CTavrel.h"
#include "engine/CheckedAccess.h"

namespace tavrel::engine {
namespace {

constexpr std::uint64_t mostRows = 16'777'216;
constexpr std::size_t mostElements = std::numeric_limits<std::int32_t>::max();

// Where columns reach no further than this many times their number, counting them is
// cheaper than comparing them.
constexpr std::int64_t countedReach = 4;

std::vector<std::int32_t> placesBySorting(const std::vector<std::int32_t>& columns) {
  std::vector<std::int32_t> places(columns.size());
  std::iota(places.begin(), places.end(), 0);
  std::sort(places.begin(), places.end(), [&](std::int32_t a, std::int32_t b) {
    return std::pair(at(columns, a), a) < std::pair(at(columns, b), b);
  });
  return places;
}

std::vector<std::int32_t> placesByCounting(const std::vector<std::int32_t>& columns,
                                           std::int32_t first, std::int64_t reach) {
  const auto slot = [&](std::int32_t x) {
    return static_cast<std::size_t>(std::int64_t{x} - first);
  };
  std::vector<std::int32_t> starts(static_cast<std::size_t>(reach) + 1, 0);
  for (const std::int32_t x : columns) ++starts[slot(x) + 1];
  std::partial_sum(starts.begin(), starts.end(), starts.begin());
  std::vector<std::int32_t> places(columns.size());
  std::int32_t place = 0;
  for (const std::int32_t x : columns) {
    places[static_cast<std::size_t>(starts[slot(x)]++)] = place++;
  }
  return places;
}

}  // namespace

bool canBeIndexed(std::int32_t minY, std::int32_t maxY, std::size_t elementCount) {
  const auto rows = static_cast<std::uint64_t>(std::int64_t{maxY} - minY + 1);
  return rows <= mostRows && elementCount <= mostElements;
}

std::vector<std::int32_t> placesByColumn(const std::vector<std::int32_t>& columns) {
  if (columns.empty()) return {};
  const auto [first, last] = std::minmax_element(columns.begin(), columns.end());
  const std::int64_t reach = std::int64_t{*last} - *first + 1;
  const bool isClose = reach <= countedReach * static_cast<std::int64_t>(columns.size());
  return isClose ? placesByCounting(columns, *first, reach) : placesBySorting(columns);
}

RowIndex buildRowIndex(const std::vector<std::int32_t>& columns,
                       const std::vector<std::int32_t>& rows, std::int32_t minY,
                       std::int32_t maxY) {
  if (!canBeIndexed(minY, maxY, rows.size())) throwLengthError();
  const auto rowCount = static_cast<std::size_t>(std::int64_t{maxY} - minY + 1);
  const auto rowOf = [&](std::size_t element) {
    const auto row = static_cast<std::uint64_t>(std::int64_t{rows[element]} - minY);
    if (row >= rowCount) throwOutOfRange();
    return static_cast<std::size_t>(row);
  };
  std::vector<std::int32_t> starts(rowCount + 1, 0);
  for (std::size_t element = 0; element < rows.size(); ++element) ++starts[rowOf(element)];
  std::partial_sum(starts.begin(), starts.end(), starts.begin());

  // One list of starts serves both fillings. Each holds the ends of the rows now, is
  // moved down to their starts as the rows are filled from behind, and up again to
  // their ends as they are filled from the front.
  std::vector<RowCell> cells(rows.size());
  const std::vector<std::int32_t> byColumn = placesByColumn(columns);
  for (auto place = byColumn.rbegin(); place != byColumn.rend(); ++place) {
    const auto element = static_cast<std::size_t>(*place);
    cells[static_cast<std::size_t>(--starts[rowOf(element)])] = {columns[element], *place};
  }
  std::vector<std::int32_t> indices(rows.size());
  for (std::size_t element = 0; element < rows.size(); ++element) {
    std::int32_t& next = starts[rowOf(element)];
    indices[static_cast<std::size_t>(next++)] = static_cast<std::int32_t>(element);
  }
  std::copy_backward(starts.begin(), starts.end() - 1, starts.end());
  starts.front() = 0;
  return {std::move(indices), std::move(starts), std::move(cells)};
}

std::int32_t findInRow(const RowCell* first, const RowCell* last, std::int32_t x) noexcept {
  if (first == last || x < first->x) return -1;
  // In a row without gaps the cell stands as far from the first as its column does.
  const std::int64_t guess = std::int64_t{x} - first->x;
  const bool isThere = guess < last - first && first[guess].x == x;
  if (isThere && (guess == 0 || first[guess - 1].x != x)) return first[guess].element;
  const RowCell* found = std::lower_bound(
      first, last, x, [](const RowCell& cell, std::int32_t wanted) { return cell.x < wanted; });
  return found != last && found->x == x ? found->element : -1;
}

}  // namespace tavrel::engine

using namespace tavrel::engine;

void CTavrel::mBuildFCFindHelper(const std::int32_t& fc) {
  const std::vector<sScreenElement>& elements = at(m_screenElements, fc);
  std::vector<std::int32_t> columns;
  std::vector<std::int32_t> rows;
  columns.reserve(elements.size());
  rows.reserve(elements.size());
  for (const sScreenElement& element : elements) {
    columns.push_back(element.m_x);
    rows.push_back(element.m_y);
  }
  takeOver(fc, buildRowIndex(columns, rows, at(m_minY, fc), at(m_maxY, fc)));
}

void CTavrel::takeOver(std::int32_t fc, RowIndex&& index) noexcept {
  at(m_rowElementIndices, fc) = std::move(index.elementIndices);
  at(m_rowStarts, fc) = std::move(index.rowStarts);
  at(m_rowCells, fc) = std::move(index.cells);
}

std::int32_t CTavrel::mFind(const std::int32_t& fc, const std::int32_t& x,
                            const std::int32_t& y) const {
  const std::vector<std::int32_t>& starts = at(m_rowStarts, fc);
  const std::int64_t row = std::int64_t{y} - at(m_minY, fc);
  if (row < 0 || row + 1 >= static_cast<std::int64_t>(starts.size())) return -1;
  const std::int32_t begin = starts[static_cast<std::size_t>(row)];
  const std::int32_t end = starts[static_cast<std::size_t>(row) + 1];

  const std::vector<RowCell>& cells = at(m_rowCells, fc);
  if (!cells.empty()) return findInRow(cells.data() + begin, cells.data() + end, x);
  return scanRow(fc, x, begin, end);
}

// For a row index that was not made from the flowchart's elements: the placeholder's,
// or one left behind by a read that threw.
std::int32_t CTavrel::scanRow(std::int32_t fc, std::int32_t x, std::int32_t begin,
                              std::int32_t end) const {
  const std::vector<sScreenElement>& elements = at(m_screenElements, fc);
  const std::vector<std::int32_t>& indices = at(m_rowElementIndices, fc);
  for (std::int32_t k = begin; k < end; ++k) {
    const std::int32_t index = at(indices, k);
    if (at(elements, index).m_x == x) return index;
  }
  return -1;
}
