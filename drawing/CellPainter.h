// Draws the elements of a chart as text, one cell at a time. What is drawn of an
// element stays inside its cell; lines of neighbouring cells meet at the edge
// that the cells have in common.

#ifndef TAVREL_DRAWING_CELLPAINTER_H
#define TAVREL_DRAWING_CELLPAINTER_H

#include <cstdint>

#include "drawing/CellSides.h"
#include "drawing/ChartGeometry.h"
#include "drawing/ElementGrid.h"
#include "drawing/TextBox.h"
#include "drawing/TextCanvas.h"
#include "facade/Tavrel.h"
#include "text/Text.h"

namespace tavrel::drawing {

/// The grid cell that the navigator's cursor is on.
struct Cursor {
  std::int64_t x;
  std::int64_t y;
};

/// Refers to all it is made of, which must outlive it.
class CellPainter {
 public:
  CellPainter(TextCanvas& canvas, const ElementGrid& grid, const ChartGeometry& geometry,
              Charset charset, Cursor cursor);

  /// Draws one of the grid's elements. An element in a column or row that the
  /// geometry doesn't have is not drawn.
  void paint(const ScreenElement& element);

 private:
  struct Cell;

  void paintBox(const Cell& cell);
  void paintFrame(const TextBox& box, const TextWindow& frame, const Pen& pen);
  void roundCorners(const TextWindow& frame, const Pen& pen);
  void paintText(const TextBox& box, const TextWindow& frame, const Pen& pen);
  void paintLink(const TextBox& box, const TextWindow& frame, const Pen& pen);
  void paintBoxSide(const Cell& cell, const TextWindow& frame, XYDirection direction);
  void paintLabel(const CellSide& side, XYDirection direction, Point start, const Pen& pen);
  void paintConnector(const Cell& cell);
  void paintLine(const Cell& cell, XYDirection direction, Point from, int shortest, const Pen& pen);

  TextCanvas& canvas_;
  const ElementGrid& grid_;
  const ChartGeometry& geometry_;
  Charset charset_;
  Cursor cursor_;
};

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_CELLPAINTER_H
