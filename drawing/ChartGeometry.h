// Where a chart's columns and rows stand. Knows sizes but no glyphs: a drawing
// says how far each of its elements reaches, in units of its own choice, and is
// told where the cells are.
//
// Columns and rows keep at least the distances of the elements' layout offsets,
// and stand further apart where elements reach further. Positions run from 0 at
// the drawing's left and top; larger x is further right, larger y further down.
// Memory follows the number of elements, whatever their coordinates.

#ifndef TAVREL_DRAWING_CHARTGEOMETRY_H
#define TAVREL_DRAWING_CHARTGEOMETRY_H

#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "drawing/CellSides.h"
#include "drawing/ElementGrid.h"

namespace tavrel::drawing {

/// One column or one row that holds an element. Positions are in units; the
/// track takes those from `start` to before `end`. The tracks of neighbouring
/// cells touch: the one ends where the next starts.
struct Track {
  std::int64_t cell;    ///< the grid column (x) or row (y)
  std::int64_t start;   ///< the first position
  std::int64_t centre;  ///< where lines run; start <= centre <= end
  std::int64_t end;     ///< one past the last position
};

/// How far something reaches from its centre, in units: `before` it and, counted
/// from the centre itself, `after` it. Three characters around a character in
/// the middle reach 1 before and 2 after.
struct Reach {
  std::int64_t before = 0;
  std::int64_t after = 0;
};

/// One axis of a chart: its columns from left to right, or its rows from top to
/// bottom, used ones only.
class Axis {
 public:
  /// What one element asks of its column or row.
  struct Demand {
    std::int64_t cell;
    std::int64_t offset;  ///< of the layout, in half characters or half lines
    Reach reach;
  };

  /// `unitsPerStep` is the size of one character or line in units, at least 1.
  Axis(std::vector<Demand> demands, std::int64_t unitsPerStep);

  /// The track of a column or row, nullptr for one that holds no element.
  const Track* find(std::int64_t cell) const;

  /// The tracks that show in the positions from `from` to before `to`: the first
  /// of them and one past the last; two equal pointers when there are none or
  /// `to` is not beyond `from`.
  std::pair<const Track*, const Track*> within(std::int64_t from, std::int64_t to) const;

  const std::vector<Track>& tracks() const { return tracks_; }
  std::int64_t length() const { return tracks_.empty() ? 0 : tracks_.back().end; }

 private:
  std::vector<Track> tracks_;  // by cell, and so by position
};

/// How far an element reaches around the centre of its cell.
struct ElementReach {
  Reach across;  ///< left and right of the column's centre
  Reach down;    ///< above and below the row's centre
};

/// Makes room for the lines at the sides: `lineLength` tells how long the one at a direction is,
/// and `besideLine` how far what is written beside a line up or down reaches to the right of it.
template <typename LineLength, typename BesideLine>
ElementReach withLines(ElementReach reach, const CellSides& sides, LineLength lineLength,
                       BesideLine besideLine) {
  reach.across.before += lineLength(XYDirectionXMinus);
  reach.across.after += lineLength(XYDirectionXPlus);
  reach.down.before += lineLength(XYDirectionYMinus);
  reach.down.after += lineLength(XYDirectionYPlus);
  for (const XYDirection direction : {XYDirectionYPlus, XYDirectionYMinus}) {
    reach.across.after = std::max<std::int64_t>(reach.across.after, besideLine(sides[direction]));
  }
  return reach;
}

using Measure = std::function<ElementReach(const ScreenElement&, const CellSides&)>;

/// The columns and rows of one flowchart.
struct ChartGeometry {
  Axis columns;
  Axis rows;
};

/// Measures every element of the grid, which holds a whole flowchart, once.
/// `character` and `line` are the sizes of a character and of a line in units.
/// Cost: a sort of the elements.
ChartGeometry geometryOf(const ElementGrid& grid, const Measure& measure,
                         std::int64_t character = 1, std::int64_t line = 1);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_CHARTGEOMETRY_H
