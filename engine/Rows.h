// The rows of one flowchart, as moves and queries look cells up in them.

#ifndef TAVREL_ENGINE_ROWS_H
#define TAVREL_ENGINE_ROWS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/CTavrel.h"
#include "engine/CheckedAccess.h"
#include "engine/Position.h"
#include "engine/RowIndex.h"

namespace tavrel::engine {

/// Refers to a flowchart's elements and row index; holds as long as neither is
/// replaced. An index that was not made from these elements, the placeholder's or
/// one left behind by a read that threw, has no cells: its rows are scanned.
class Rows {
 public:
  Rows(const std::vector<sScreenElement>& elements, const std::vector<std::int32_t>& indices,
       const std::vector<std::int32_t>& starts, const std::vector<RowCell>& cells,
       std::int32_t minY) noexcept
      : elements_(elements),
        indices_(indices),
        starts_(starts.data()),
        count_(static_cast<std::int64_t>(starts.size()) - 1),
        cells_(cells.empty() ? nullptr : cells.data()),
        minY_(minY) {}

  bool haveCells() const noexcept { return cells_ != nullptr; }

  /// The cells of the row at `y`, none outside the rows. REQUIRES: haveCells().
  RowCells cellsAt(std::int32_t y) const noexcept {
    const std::int64_t row = rowAt(y);
    if (static_cast<std::uint64_t>(row) >= static_cast<std::uint64_t>(count_)) return {};
    return cellsOf(row);
  }

  /// The lowest element index at a position, or -1.
  std::int32_t find(const Position& position) const {
    return haveCells() ? findInRow(cellsAt(position.y), position.x) : scanFor(position);
  }

  /// Calls `visit` with the index of each element within inclusive bounds, row by
  /// row, in stored order within a row. Costs a search of each row for the two columns;
  /// where they cut something off, a sort of the cells between them or a scan of the row.
  template <typename Visit>
  void forEachWithin(const Bounds& bounds, const Visit& visit) const {
    forEachRow(bounds, [&](std::int64_t row) {
      if (!haveCells()) return scan(row, bounds, visit);
      const RowCells cells = cellsWithin(row, bounds);
      if (cells.size == cellsOf(row).size) return visitWhole(row, visit);
      if (cells.size > mostSorted) return scan(row, bounds, visit);
      visitSorted(cells, visit);
    });
  }

  /// How many elements forEachWithin visits. Costs the searches alone.
  std::size_t countWithin(const Bounds& bounds) const {
    std::size_t elements = 0;
    forEachRow(bounds, [&](std::int64_t row) {
      if (haveCells()) {
        elements += cellsWithin(row, bounds).size;
      } else {
        scan(row, bounds, [&](std::int32_t) { ++elements; });
      }
    });
    return elements;
  }

 private:
  // How many cells are worth sorting, rather than scanning their row for them.
  static constexpr std::size_t mostSorted = 256;

  std::int64_t rowAt(std::int32_t y) const noexcept { return std::int64_t{y} - minY_; }

  RowCells cellsOf(std::int64_t row) const noexcept {
    const std::int32_t start = starts_[row];
    return {cells_ + start, static_cast<std::size_t>(starts_[row + 1] - start)};
  }

  RowCells cellsWithin(std::int64_t row, const Bounds& bounds) const noexcept {
    const RowCells cells = cellsOf(row);
    const RowCell* first = firstFrom(cells, bounds.minX);
    const RowCell* last = firstFrom(cells, std::int64_t{bounds.maxX} + 1);
    return {first, static_cast<std::size_t>(std::max<std::ptrdiff_t>(last - first, 0))};
  }

  template <typename Visit>
  void forEachRow(const Bounds& bounds, const Visit& visit) const {
    const std::int64_t last = std::min(rowAt(bounds.maxY), count_ - 1);
    for (std::int64_t row = std::max<std::int64_t>(rowAt(bounds.minY), 0); row <= last; ++row) {
      visit(row);
    }
  }

  template <typename Visit>
  void visitWhole(std::int64_t row, const Visit& visit) const {
    for (std::int32_t k = starts_[row]; k < starts_[row + 1]; ++k) visit(at(indices_, k));
  }

  template <typename Visit>
  static void visitSorted(const RowCells& cells, const Visit& visit) {
    std::array<std::int32_t, mostSorted> elements;
    std::int32_t* const end = std::transform(cells.first, cells.last(), elements.data(),
                                             [](const RowCell& cell) { return cell.element; });
    std::sort(elements.data(), end);
    std::for_each(elements.data(), end, visit);
  }

  template <typename Visit>
  void scan(std::int64_t row, const Bounds& bounds, const Visit& visit) const {
    for (std::int32_t k = starts_[row]; k < starts_[row + 1]; ++k) {
      const std::int32_t element = at(indices_, k);
      const std::int32_t x = at(elements_, element).m_x;
      if (bounds.minX <= x && x <= bounds.maxX) visit(element);
    }
  }

  // Kept out of line: code that is hardly ever run would slow find() down.
  std::int32_t scanFor(const Position& position) const;

  const std::vector<sScreenElement>& elements_;
  const std::vector<std::int32_t>& indices_;
  const std::int32_t* starts_;
  std::int64_t count_;  // of the rows
  const RowCell* cells_;
  std::int32_t minY_;
};

/// Looks up one position after another; cheapest where each stands beside the one
/// before, in the same row.
class LineOfLookUps {
 public:
  /// The line begins in row `y`.
  LineOfLookUps(const Rows& rows, std::int32_t y) noexcept
      : rows_(rows), y_(y), row_(rows.haveCells() ? rows.cellsAt(y) : RowCells()) {}

  /// The lowest element index at a position, or -1.
  std::int32_t find(const Position& position) {
    if (!rows_.haveCells()) return rows_.find(position);
    if (position.y != y_) enterRow(position.y);
    here_ = cellAt(position.x);
    return here_ != nullptr ? here_->element : -1;
  }

 private:
  void enterRow(std::int32_t y) noexcept {
    y_ = y;
    row_ = rows_.cellsAt(y);
    here_ = nullptr;
  }

  const RowCell* cellAt(std::int32_t x) const noexcept {
    if (here_ == nullptr || here_->x == x) return cellInRow(row_, x);
    const RowCell* const next = here_ + 1;
    if (next != row_.last() && next->x == x) return next;
    const RowCell* const before = here_ - (here_ != row_.first ? 1 : 0);
    if (before->x == x && (before == row_.first || before[-1].x != x)) return before;
    return cellInRow(row_, x);
  }

  Rows rows_;
  std::int32_t y_;
  RowCells row_;
  const RowCell* here_ = nullptr;  // where the last look-up ended, if it was in this row
};

}  // namespace tavrel::engine

inline tavrel::engine::Rows CTavrel::rowsOf(std::int32_t fc) const {
  if (!isFlowchart(fc)) tavrel::engine::throwOutOfRange();
  const auto index = static_cast<std::size_t>(fc);
  return {m_screenElements[index], m_rowElementIndices[index], m_rowStarts[index],
          m_rowCells[index], m_minY[index]};
}

#endif  // TAVREL_ENGINE_ROWS_H
