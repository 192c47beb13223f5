// A flowchart that is one line through the grid, from box to box along yes.

#ifndef TAVREL_TESTS_LIMITS_LINE_H
#define TAVREL_TESTS_LIMITS_LINE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/CTavrel.h"

namespace tavrel {

/// The way of a line: the direction codes with which it leaves its cells, one after
/// the other. The first cell is (0, 0).
using Way = std::vector<std::int32_t>;

/// `cells` cells along one row, or down one column.
Way alongRow(std::size_t cells);
Way downColumn(std::size_t cells);

/// Right along a row of so many cells, one down, and back left along the next.
Way throughRows(std::size_t cells, std::size_t rowLength);

/// Round the origin, ever further out, with an empty cell between its turns.
Way spiral(std::size_t cells);

/// The order in which a file names the cells of a line.
enum class FileOrder { alongTheLine, shuffled };

/// A line with a box on every `spacing`-th cell and connector cells between. Every box
/// has a node of its own, of two lines of text and two of commentary.
///
/// REQUIRES: a way of k * spacing + 1 cells, so that a box stands at its end.
struct Line {
  Way way;
  std::size_t spacing = 5;
  FileOrder order = FileOrder::alongTheLine;

  std::size_t cells() const { return way.size(); }
  std::size_t boxes() const { return (way.size() - 1) / spacing + 1; }

  /// The flowchart's file. The last box leads into the flowchart `next`, if any.
  std::string file(const std::string& next = "") const;

  /// An answer for each box but the last.
  std::string answers() const { return std::string(boxes() - 1, 'y'); }

  /// Where the last box stands.
  std::int32_t lastX() const;
  std::int32_t lastY() const;
};

/// Whether the cursor is on the line's last box.
bool isAtEnd(const CTavrel& engine, const Line& line);

}  // namespace tavrel

#endif  // TAVREL_TESTS_LIMITS_LINE_H
