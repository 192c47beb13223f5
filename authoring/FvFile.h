// A flowchart file as it was read, cells and texts by the lines they stand on.

#ifndef TAVREL_AUTHORING_FVFILE_H
#define TAVREL_AUTHORING_FVFILE_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "authoring/GridChart.h"

namespace tavrel::authoring {

/// A line of the file by its number, from 1.
using LineNumber = std::uint32_t;

/// Lines that follow one another.
struct LineRange {
  LineNumber first = 0;
  LineNumber count = 0;
};

struct FvNode {
  LineRange text;
  LineRange comment;

  LineNumber linkLine() const { return comment.first + comment.count; }
};

/// A box cell. A direction that is none of the format's is none here.
struct FvBox {
  LineNumber line = 0;
  std::int32_t node = 0;
  Cell cell;
  ByAnswer<Direction> exits = {Direction::none, Direction::none};
};

struct FvConnector {
  LineNumber line = 0;
  Cell cell;
  Direction into = Direction::none;
  Direction outOf = Direction::none;
};

/// The texts stay in the bytes of the file, so that all this takes a few bytes a line.
struct FvFile {
  LineRange intro;
  std::vector<FvNode> nodes;
  std::vector<FvBox> boxes;
  std::vector<FvConnector> connectors;
  bool hasAllCells = true;  ///< false: a cell is missing or wrong, and the way makes no sense
};

/// Where numbers stand on the lines of cells, from 0.
constexpr std::size_t nodeColumn = 0, boxXColumn = 1, boxYColumn = 2, yesColumn = 5, noColumn = 6;
constexpr std::size_t intoColumn = 3, outOfColumn = 4, connectorXColumn = 5, connectorYColumn = 6;

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FVFILE_H
