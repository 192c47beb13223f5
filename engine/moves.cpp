// The cursor's moves.

#include "engine/CTavrel.h"

#include "engine/CheckedAccess.h"
#include "engine/Rows.h"

using namespace tavrel::engine;

namespace {

// Swaps 0 with 2 and 1 with 3; a number that steps nowhere becomes another such.
constexpr std::int32_t opposite(std::int32_t direction) noexcept { return direction ^ 2; }

// A coordinate after a step, its low 32 bits.
std::int32_t stepped(std::int32_t coordinate, std::int32_t step) noexcept {
  return static_cast<std::int32_t>(std::int64_t{coordinate} + step);
}

// A position after a step. Where a line goes straight on, the branches are foreseen,
// and the next cell is looked for before the direction of this one is known.
Position stepped(const Position& position, std::int32_t direction) noexcept {
  switch (direction) {
    case eYPlus:
      return {position.x, stepped(position.y, +1)};
    case eXPlus:
      return {stepped(position.x, +1), position.y};
    case eYMinus:
      return {position.x, stepped(position.y, -1)};
    case eXMinus:
      return {stepped(position.x, -1), position.y};
    default:
      return position;
  }
}

}  // namespace

std::int32_t CTavrel::mDirectionX(const eXYDirection& direction) noexcept {
  return direction == eXPlus ? 1 : direction == eXMinus ? -1 : 0;
}

std::int32_t CTavrel::mDirectionY(const eXYDirection& direction) noexcept {
  return direction == eYPlus ? 1 : direction == eYMinus ? -1 : 0;
}

void CTavrel::mMoveXPlus() { moveOnGrid(eXPlus); }
void CTavrel::mMoveXMinus() { moveOnGrid(eXMinus); }
void CTavrel::mMoveYPlus() { moveOnGrid(eYPlus); }
void CTavrel::mMoveYMinus() { moveOnGrid(eYMinus); }

void CTavrel::mMoveYes() { moveAlongExit(currentElement().m_yesDir); }
void CTavrel::mMoveNo() { moveAlongExit(currentElement().m_noDir); }

void CTavrel::mMoveOnPath() {
  const sScreenElement& box = currentElement();
  if (!box.m_isOnPath) return;
  if (!box.m_newFlowchartName.empty()) return followLink();
  if (!moveAlongMarkedExit(box.m_yesDir)) moveAlongMarkedExit(box.m_noDir);
}

void CTavrel::mMoveRoot() {
  standOn({0, 0});
  m_currentElementIndex = rowsOf(m_currentFlowchartIndex).find({0, 0});
}

sScreenElement& CTavrel::currentElement() {
  return at(at(m_screenElements, m_currentFlowchartIndex), m_currentElementIndex);
}

Position CTavrel::neighbour(std::int32_t direction) const noexcept {
  return stepped({m_currentLocation.m_x, m_currentLocation.m_y}, direction);
}

// What stands there is looked up afterwards: an exit is trusted.
void CTavrel::standOn(const Position& position) noexcept {
  m_currentLocation.m_x = position.x;
  m_currentLocation.m_y = position.y;
}

// Goes one step in a direction and on along the line to the first box. A line has no
// more cells than the flowchart; one that takes more steps goes round in a loop, or
// stands still.
void CTavrel::followLine(std::int32_t direction, Line way, Marks marks) {
  const Items elements(at(m_screenElements, m_currentFlowchartIndex));
  Position position = neighbour(eNoDirection);
  LineOfLookUps line(rowsOf(m_currentFlowchartIndex), position.y);
  for (std::size_t steps = 0;; ++steps) {
    position = stepped(position, direction);
    standOn(position);
    m_currentElementIndex = line.find(position);
    sScreenElement& cell = at(elements, m_currentElementIndex);
    if (marks == Marks::set) cell.m_isOnPath = true;
    if (cell.m_isNode) return;
    if (steps > elements.size()) throwOutOfRange();
    direction = way == Line::forward ? cell.m_directionOutOf : opposite(cell.m_directionInto);
  }
}

void CTavrel::moveOnGrid(std::int32_t direction) {
  const sScreenElement& box = currentElement();
  if (box.m_yesDir == direction || box.m_noDir == direction) {
    moveAlongExit(direction);
  } else {
    moveBackOnGrid(direction);
  }
}

void CTavrel::moveAlongExit(std::int32_t exit) {
  if (exit != eNoDirection) followLine(exit, Line::forward, Marks::keep);
}

// The neighbour is looked at first: only one that leads here lets the cursor in.
void CTavrel::moveBackOnGrid(std::int32_t direction) {
  const std::int32_t index = rowsOf(m_currentFlowchartIndex).find(neighbour(direction));
  if (index == -1) return;
  const sScreenElement& cell = at(currentElements(), index);
  const std::int32_t here = opposite(direction);
  const bool leadsHere =
      cell.m_isNode ? cell.m_yesDir == here || cell.m_noDir == here : cell.m_directionOutOf == here;
  if (leadsHere) followLine(direction, Line::backward, Marks::keep);
}

void CTavrel::followLink() {
  m_currentFlowchartIndex = mWhichFlowchartIndex(currentElement().m_newFlowchartName);
  mReadFVFileIfNotAlready(m_currentFlowchartIndex);
  mPreparePath();
}

// False, with nothing done, where there is no exit or its first cell is unmarked.
bool CTavrel::moveAlongMarkedExit(std::int32_t exit) {
  if (exit == eNoDirection) return false;
  const std::int32_t next = rowsOf(m_currentFlowchartIndex).find(neighbour(exit));
  if (!at(currentElements(), next).m_isOnPath) return false;
  followLine(exit, Line::forward, Marks::keep);
  return true;
}
