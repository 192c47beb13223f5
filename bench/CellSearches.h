// Other ways to search a chart's cells by rectangle, to hold against the row index.

#ifndef TAVREL_BENCH_CELLSEARCHES_H
#define TAVREL_BENCH_CELLSEARCHES_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/CTavrel.h"
#include "engine/Position.h"

namespace tavrel::bench {

using Elements = std::vector<sScreenElement>;
using Indices = std::vector<std::int32_t>;

/// Element indices in the order of answers: row by row, ascending within a row. What is
/// found is best sorted by its place in here, its rank.
Indices rowOrderOf(const Elements& elements);

/// Each search adds what it finds to `found`, which keeps its memory.
///
/// A packed boost R-tree, built from all cells at once.
class TreeSearch {
 public:
  explicit TreeSearch(const Elements& elements);
  ~TreeSearch();

  /// Element indices in the tree's order.
  void find(const engine::Bounds& bounds, Indices& found) const;
  /// Element indices in the order of answers.
  void findInOrder(const engine::Bounds& bounds, Indices& found) const;

 private:
  struct Trees;
  std::unique_ptr<Trees> trees_;
  Indices order_;
};

/// All positions side by side in the order of answers, each looked at.
class LinearSearch {
 public:
  explicit LinearSearch(const Elements& elements);

  void findInOrder(const engine::Bounds& bounds, Indices& found) const;

 private:
  std::vector<engine::Position> positions_;
  Indices order_;
};

/// A place for every cell that could be within the bounds, each with the element that
/// stands there. REQUIRES: no two elements stand in one cell.
class DenseSearch {
 public:
  explicit DenseSearch(const Elements& elements);

  void findInOrder(const engine::Bounds& bounds, Indices& found) const;

  /// The element index at a position, or -1.
  std::int32_t find(std::int32_t x, std::int32_t y) const;

 private:
  const std::int32_t* placeOf(std::int32_t x, std::int32_t y) const;

  engine::Bounds bounds_;
  std::size_t width_;
  Indices cells_;  // row by row
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_CELLSEARCHES_H
