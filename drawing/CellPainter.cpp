#include "drawing/CellPainter.h"

#include <string_view>

namespace tavrel::drawing {

struct CellPainter::Cell {
  const ScreenElement& element;
  CellSides sides;
  const Track& column;
  const Track& row;
  bool current;

  Point centre() const { return {column.centre, row.centre}; }
};

namespace {

Point moved(Point from, XYDirection direction, std::int64_t distance) {
  const Step step = stepOf(direction);
  return {from.x + step.dx * distance, from.y + step.dy * distance};
}

// The last position inside the track, looking from its centre in a direction along its axis.
std::int64_t edgeOf(const Track& track, int step) { return step > 0 ? track.end - 1 : track.start; }

// Where the axis of a frame's cell crosses the frame.
Point gate(const TextWindow& frame, Point centre, XYDirection direction) {
  const Step step = stepOf(direction);
  if (step.dx != 0) return {step.dx > 0 ? frame.left + frame.width - 1 : frame.left, centre.y};
  return {centre.x, step.dy > 0 ? frame.top + frame.height - 1 : frame.top};
}

}  // namespace

CellPainter::CellPainter(TextCanvas& canvas, const ElementGrid& grid, const ChartGeometry& geometry,
                         Charset charset, Cursor cursor)
    : canvas_(canvas), grid_(grid), geometry_(geometry), charset_(charset), cursor_(cursor) {}

void CellPainter::paint(const ScreenElement& element) {
  const Track* const column = geometry_.columns.find(element.x());
  const Track* const row = geometry_.rows.find(element.y());
  if (column == nullptr || row == nullptr) return;
  const bool current = element.x() == cursor_.x && element.y() == cursor_.y;
  const Cell cell{element, sidesOf(grid_, element), *column, *row, current};
  if (element.isNode()) {
    paintBox(cell);
  } else {
    paintConnector(cell);
  }
}

void CellPainter::paintBox(const Cell& cell) {
  const TextBox box = textBoxOf(cell.element, charset_);
  const TextWindow frame = frameAround(cell.column.centre, cell.row.centre, box);
  const Pen pen{Ink::frame, cell.element.isOnPath(), cell.current};
  canvas_.mark(frame, {Ink::blank, pen.lit, pen.current});
  paintFrame(box, frame, pen);
  paintText(box, frame, pen);
  for (const XYDirection direction : directions) paintBoxSide(cell, frame, direction);
  paintLink(box, frame, pen);
}

void CellPainter::paintFrame(const TextBox& box, const TextWindow& frame, const Pen& pen) {
  const std::int64_t right = frame.left + frame.width - 1;
  const std::int64_t bottom = frame.top + frame.height - 1;
  canvas_.line({frame.left, frame.top}, {right, frame.top}, pen);
  canvas_.line({frame.left, bottom}, {right, bottom}, pen);
  canvas_.line({frame.left, frame.top}, {frame.left, bottom}, pen);
  canvas_.line({right, frame.top}, {right, bottom}, pen);
  if (box.isEnd && !pen.lit && charset_ == Charset::utf8) roundCorners(frame, pen);
}

// There are no heavy round corners.
void CellPainter::roundCorners(const TextWindow& frame, const Pen& pen) {
  const std::int64_t right = frame.left + frame.width - 1;
  const std::int64_t bottom = frame.top + frame.height - 1;
  canvas_.glyph({frame.left, frame.top}, "╭", pen);
  canvas_.glyph({right, frame.top}, "╮", pen);
  canvas_.glyph({frame.left, bottom}, "╰", pen);
  canvas_.glyph({right, bottom}, "╯", pen);
}

void CellPainter::paintText(const TextBox& box, const TextWindow& frame, const Pen& pen) {
  std::int64_t y = frame.top;
  for (const InkedText& line : box.lines) {
    canvas_.text({frame.left + (frame.width - widthOf(line)) / 2, ++y}, line, pen);
  }
}

// After all else: where a line starts from under the name, the name stays whole.
void CellPainter::paintLink(const TextBox& box, const TextWindow& frame, const Pen& pen) {
  if (box.link.empty()) return;
  const Point head{frame.left + 2, frame.top + frame.height - 1};
  const Pen link{Ink::link, pen.lit, pen.current};
  canvas_.glyph(head, arrowhead(XYDirectionXPlus, charset_), link);
  canvas_.glyph(moved(head, XYDirectionXPlus, 1), " ", link);
  canvas_.text(moved(head, XYDirectionXPlus, 2), box.link, link);
  canvas_.glyph(moved(head, XYDirectionXPlus, 2 + widthOf(box.link)), " ", link);
}

void CellPainter::paintBoxSide(const Cell& cell, const TextWindow& frame, XYDirection direction) {
  const CellSide& side = cell.sides[direction];
  if (!side.leaves && !side.arrives) return;
  const Pen pen{Ink::line, side.onPath};
  const Point start = gate(frame, cell.centre(), direction);
  const int head = side.arrives ? 1 : 0;
  const int length = lineLength(cell.element, side, direction);
  paintLine(cell, direction, moved(start, direction, head), length - head, pen);
  if (side.arrives) {
    canvas_.glyph(moved(start, direction, 1), arrowhead(reversed(direction), charset_), pen);
  }
  paintLabel(side, direction, moved(start, direction, head + 1), pen);
}

// Beside a line that runs up or down, in the line where it starts; amidst one that runs to the
// left or right, after its first piece.
void CellPainter::paintLabel(const CellSide& side, XYDirection direction, Point start,
                             const Pen& pen) {
  const InkedText words = inked(exitLabel(side), Ink::label, charset_);
  if (direction == XYDirectionXMinus) {
    canvas_.text({start.x - widthOf(words), start.y}, words, pen);
  } else {
    canvas_.text({start.x + (isHorizontal(direction) ? 1 : 2), start.y}, words, pen);
  }
}

void CellPainter::paintConnector(const Cell& cell) {
  for (const XYDirection direction : directions) {
    const CellSide& side = cell.sides[direction];
    if (!side.leaves && !side.arrives) continue;
    const Pen pen{Ink::line, side.onPath, cell.current};
    paintLine(cell, direction, cell.centre(), lineLength(cell.element, side, direction), pen);
  }
}

// To the cell's edge, where the neighbour's line goes on; in front of an empty cell only as far
// as the line's words and its cross need.
void CellPainter::paintLine(const Cell& cell, XYDirection direction, Point from, int shortest,
                            const Pen& pen) {
  if (cell.sides[direction].deadEnd) {
    const Point cross = moved(from, direction, shortest);
    canvas_.line(from, cross, pen);
    canvas_.glyph(cross, deadEnd(charset_), pen);
    return;
  }
  const Step step = stepOf(direction);
  const Point edge = isHorizontal(direction) ? Point{edgeOf(cell.column, step.dx), from.y}
                                             : Point{from.x, edgeOf(cell.row, step.dy)};
  canvas_.line(from, edge, pen);
  canvas_.stroke(edge, direction, pen);
}

}  // namespace tavrel::drawing
