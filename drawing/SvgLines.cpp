#include "drawing/SvgLines.h"

#include <algorithm>
#include <cstdlib>

#include "drawing/FontWidths.h"

namespace tavrel::drawing {

using namespace svg;

struct SvgLines::Cell {
  const ScreenElement& element;
  const CellSides& sides;
  const Track& column;
  const Track& row;

  SvgPoint centre() const { return {column.centre, row.centre}; }
};

namespace {

SvgPoint moved(SvgPoint from, XYDirection direction, std::int64_t distance) {
  const Step step = stepOf(direction);
  return {from.x + step.dx * distance, from.y + step.dy * distance};
}

std::string shown(SvgPoint point) {
  return std::to_string(point.x) + " " + std::to_string(point.y);
}

// The middle of a frame's side.
SvgPoint gate(const SvgBox& box, SvgPoint centre, XYDirection direction) {
  return moved(centre, direction, (isHorizontal(direction) ? box.width : box.height) / 2);
}

// Where the neighbour's line goes on.
SvgPoint edgeOf(const Track& column, const Track& row, XYDirection direction, SvgPoint from) {
  const Step step = stepOf(direction);
  if (step.dx != 0) return {step.dx > 0 ? column.end : column.start, from.y};
  return {from.x, step.dy > 0 ? row.end : row.start};
}

std::int64_t distance(SvgPoint a, SvgPoint b) { return std::abs(a.x - b.x) + std::abs(a.y - b.y); }

std::string straight(SvgPoint from, SvgPoint to) { return "M" + shown(from) + "L" + shown(to); }

// From one end by the corner to the other, round where the corner is one.
std::string bent(SvgPoint from, SvgPoint corner, SvgPoint to, XYDirection first,
                 XYDirection second) {
  if (isHorizontal(first) == isHorizontal(second)) return straight(from, to);
  const std::int64_t radius =
      std::min<std::int64_t>({bend, distance(from, corner), distance(corner, to)});
  return "M" + shown(from) + "L" + shown(moved(corner, first, radius)) + "Q" + shown(corner) + " " +
         shown(moved(corner, second, radius)) + "L" + shown(to);
}

std::int64_t lengthOfHead(bool lit) { return lit ? litHeadLength : headLength; }

// A triangle whose tip is next to the gate. A heavy line has a larger one, or it would hide it.
std::string head(SvgPoint gate, XYDirection direction, bool lit) {
  const SvgPoint tip = moved(gate, direction, headClearance);
  const SvgPoint base = moved(tip, direction, lengthOfHead(lit));
  const std::int64_t half = lit ? litHeadHalfWidth : headHalfWidth;
  const Step step = stepOf(direction);
  const SvgPoint left{base.x + step.dy * half, base.y + step.dx * half};
  const SvgPoint right{base.x - step.dy * half, base.y - step.dx * half};
  return "M" + shown(tip) + "L" + shown(left) + "L" + shown(right) + "Z";
}

}  // namespace

void SvgLines::add(const ScreenElement& element, const CellSides& sides) {
  const Cell cell{element, sides, *geometry_.columns.find(element.x()),
                  *geometry_.rows.find(element.y())};
  if (!element.isNode()) return addConnector(cell);
  for (const XYDirection direction : directions) addBoxSide(cell, direction);
}

void SvgLines::addBoxSide(const Cell& cell, XYDirection direction) {
  const CellSide& side = cell.sides[direction];
  if (!side.leaves && !side.arrives) return;
  const SvgPoint start = gate(svgBoxOf(cell.element), cell.centre(), direction);
  SvgPoint from = start;
  if (side.arrives) {
    shapes(side.onPath).heads += head(start, direction, side.onPath);
    from = moved(start, direction, headClearance + lengthOfHead(side.onPath) - 1);
  }
  const SvgPoint to = endOfLine(cell, direction, start);
  shapes(side.onPath).lines += straight(from, to);
  addCross(side, to);
  addLabel(side, direction, from);
}

void SvgLines::addLabel(const CellSide& side, XYDirection direction, SvgPoint start) {
  const std::string_view word = exitLabel(side);
  if (word.empty()) return;
  SvgPoint at = moved(start, direction, labelGap);
  if (isHorizontal(direction)) {
    at.y -= labelAbove;
  } else {
    at.x += labelGap;
    if (direction == XYDirectionYPlus) at.y += labelHeight - 2;
  }
  labels_.push_back({word, at, direction == XYDirectionXMinus, side.onPath});
}

// A line that passes is one stroke; where lines meet, each comes from the middle.
void SvgLines::addConnector(const Cell& cell) {
  std::vector<XYDirection> used;
  for (const XYDirection direction : directions) {
    const CellSide& side = cell.sides[direction];
    if (side.leaves || side.arrives) used.push_back(direction);
  }
  const SvgPoint centre = cell.centre();
  const auto end = [&](XYDirection direction) { return endOfLine(cell, direction, centre); };
  if (used.size() == 2 && cell.sides[used[0]].onPath == cell.sides[used[1]].onPath) {
    shapes(cell.sides[used[0]].onPath).lines +=
        bent(end(used[0]), centre, end(used[1]), used[0], used[1]);
  } else {
    for (const XYDirection direction : used) {
      shapes(cell.sides[direction].onPath).lines += straight(centre, end(direction));
    }
  }
  for (const XYDirection direction : used) addCross(cell.sides[direction], end(direction));
}

// At the cell's edge; in front of an empty cell no further than needed.
SvgPoint SvgLines::endOfLine(const Cell& cell, XYDirection direction, SvgPoint from) const {
  const CellSide& side = cell.sides[direction];
  if (!side.deadEnd) return edgeOf(cell.column, cell.row, direction, from);
  return moved(from, direction, svgLineLength(cell.element, side, direction) - crossSize);
}

void SvgLines::addCross(const CellSide& side, SvgPoint at) {
  if (!side.deadEnd) return;
  const std::int64_t size = crossSize;
  shapes(side.onPath).lines += straight({at.x - size, at.y - size}, {at.x + size, at.y + size}) +
                               straight({at.x - size, at.y + size}, {at.x + size, at.y - size});
}

}  // namespace tavrel::drawing
