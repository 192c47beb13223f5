#include "drawing/TextChart.h"

#include <algorithm>
#include <tuple>

#include "drawing/CellPainter.h"
#include "drawing/ElementGrid.h"
#include "drawing/TextBox.h"
#include "drawing/TextCanvas.h"

namespace tavrel {

using namespace drawing;

namespace {

ElementGrid wholeChart(const Tavrel& navigator) {
  return ElementGrid(navigator.elementsInBounds(navigator.currentFlowchartBounds()));
}

ChartGeometry textGeometry(const ElementGrid& grid, Charset charset) {
  return geometryOf(grid, [charset](const ScreenElement& element, const CellSides& sides) {
    return textReach(element, sides, charset);
  });
}

Cursor cursorOf(const Tavrel& navigator) {
  Cursor cursor{};
  navigator.getCurrentLocationWithXY(&cursor.x, &cursor.y);
  return cursor;
}

struct Span {
  std::int64_t start;
  std::int64_t end;  // exclusive
};

// The part of a window's side that lies on the drawing's, which starts at 0.
Span onDrawing(std::int64_t from, std::int64_t length, std::int64_t size) {
  if (length <= 0 || from <= -length || from >= size) return {0, 0};
  return {std::max<std::int64_t>(from, 0), std::min(from + length, size)};
}

struct CellRange {
  std::int64_t first;
  std::int64_t last;  // inclusive; less than first for no cells
};

// The grid columns or rows that show in a part of the drawing, and one more on both sides, for
// what their elements say about the lines at the edges. None outside the chart: a coordinate
// beyond the navigator's integers would mean another cell to it.
CellRange cellsWithin(const Axis& axis, const Span& span) {
  const auto [first, last] = axis.within(span.start, span.end);
  if (first == last) return {0, -1};
  return {std::max(first->cell - 1, axis.tracks().front().cell),
          std::min((last - 1)->cell + 1, axis.tracks().back().cell)};
}

}  // namespace

TextChart::TextChart(const Tavrel& navigator, Charset charset)
    : TextChart(wholeChart(navigator), charset) {}

TextChart::TextChart(const drawing::ElementGrid& grid, Charset charset)
    : charset_(charset), geometry_(textGeometry(grid, charset)) {
  places_.reserve(grid.elements().size());
  for (const ScreenElement& element : grid.elements()) {
    places_.push_back({element.x(), element.y(), measured(element)});
  }
}

std::int64_t TextChart::width() const { return geometry_.columns.length(); }

std::int64_t TextChart::height() const { return geometry_.rows.length(); }

TextWindow TextChart::frameOf(std::int64_t x, std::int64_t y) const {
  const auto found = std::lower_bound(
      places_.begin(), places_.end(), std::tuple(y, x),
      [](const Place& place, const auto& cell) { return std::tuple(place.y, place.x) < cell; });
  if (found == places_.end() || found->x != x || found->y != y) return {0, 0, 0, 0};
  return found->frame;
}

TextPicture TextChart::paint(const Tavrel& navigator, const TextWindow& window) const {
  TextCanvas canvas(window, charset_);
  const ElementGrid grid(navigator.elementsInBounds(cellsIn(window)));
  CellPainter painter(canvas, grid, geometry_, charset_, cursorOf(navigator));
  for (const ScreenElement& element : grid.elements()) painter.paint(element);
  return canvas.picture();
}

TextWindow TextChart::measured(const ScreenElement& element) const {
  const Track& column = *geometry_.columns.find(element.x());
  const Track& row = *geometry_.rows.find(element.y());
  if (element.isNode()) {
    return frameAround(column.centre, row.centre, textBoxOf(element, charset_));
  }
  return {column.start, row.start, static_cast<int>(column.end - column.start),
          static_cast<int>(row.end - row.start)};
}

ScreenBounds TextChart::cellsIn(const TextWindow& window) const {
  const CellRange columns =
      cellsWithin(geometry_.columns, onDrawing(window.left, window.width, width()));
  const CellRange rows =
      cellsWithin(geometry_.rows, onDrawing(window.top, window.height, height()));
  return {columns.first, columns.last, rows.first, rows.last};
}

}  // namespace tavrel
