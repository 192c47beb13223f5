// The lines of a picture, cell by cell, gathered into as few shapes as can be:
// one for all plain lines, one for all lit ones, and so for the arrowheads.

#ifndef TAVREL_DRAWING_SVGLINES_H
#define TAVREL_DRAWING_SVGLINES_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/CellSides.h"
#include "drawing/ChartGeometry.h"
#include "drawing/SvgBox.h"
#include "facade/Tavrel.h"

namespace tavrel::drawing {

/// A place in a picture, in its units.
struct SvgPoint {
  std::int64_t x;
  std::int64_t y;
};

/// A word at an exit.
struct SvgLabel {
  std::string_view word;
  SvgPoint at;   ///< on its baseline
  bool atRight;  ///< `at` is the word's end, not its start
  bool lit;
};

/// Shapes as the data of SVG paths.
struct SvgShapes {
  std::string lines;
  std::string heads;  ///< to be filled
};

class SvgLines {
 public:
  /// The geometry must outlive it.
  explicit SvgLines(const ChartGeometry& geometry) : geometry_(geometry) {}

  /// Adds what is drawn of the element but a box itself.
  /// REQUIRES: the geometry was measured with it.
  void add(const ScreenElement& element, const CellSides& sides);

  const SvgShapes& plain() const { return plain_; }
  const SvgShapes& lit() const { return lit_; }
  const std::vector<SvgLabel>& labels() const { return labels_; }

 private:
  struct Cell;

  void addBoxSide(const Cell& cell, XYDirection direction);
  void addLabel(const CellSide& side, XYDirection direction, SvgPoint start);
  void addConnector(const Cell& cell);
  SvgPoint endOfLine(const Cell& cell, XYDirection direction, SvgPoint from) const;
  void addCross(const CellSide& side, SvgPoint at);
  SvgShapes& shapes(bool lit) { return lit ? lit_ : plain_; }

  const ChartGeometry& geometry_;
  SvgShapes plain_, lit_;
  std::vector<SvgLabel> labels_;
};

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_SVGLINES_H
