// The cursor's moves.

#include "engine/CTavrel.h"

#include "engine/CheckedAccess.h"

using namespace tavrel::engine;

namespace {

// Swaps 0 with 2 and 1 with 3; a number that steps nowhere becomes another such.
constexpr std::int32_t opposite(std::int32_t direction) noexcept { return direction ^ 2; }

// A coordinate after a step, its low 32 bits.
std::int32_t stepped(std::int32_t coordinate, std::int32_t step) noexcept {
  return static_cast<std::int32_t>(std::int64_t{coordinate} + step);
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
  m_currentLocation.m_x = 0;
  m_currentLocation.m_y = 0;
  stepTo(eNoDirection);
}

sScreenElement& CTavrel::currentElement() {
  return at(at(m_screenElements, m_currentFlowchartIndex), m_currentElementIndex);
}

// Moves the cursor by one cell and looks up what stands there, be it nothing.
void CTavrel::stepTo(std::int32_t direction) {
  standOn(direction, m_currentElementIndex);
  m_currentElementIndex =
      mFind(m_currentFlowchartIndex, m_currentLocation.m_x, m_currentLocation.m_y);
}

// Moves the cursor by one cell, onto an element known to stand there.
void CTavrel::standOn(std::int32_t direction, std::int32_t elementIndex) {
  const auto code = static_cast<eXYDirection>(direction);
  m_currentLocation.m_x = stepped(m_currentLocation.m_x, mDirectionX(code));
  m_currentLocation.m_y = stepped(m_currentLocation.m_y, mDirectionY(code));
  m_currentElementIndex = elementIndex;
}

// Goes on to the first box. A line has no more cells than the flowchart; one that
// takes more steps goes round in a loop, or stands still.
void CTavrel::followLine(Line way, Marks marks) {
  std::vector<sScreenElement>& elements = at(m_screenElements, m_currentFlowchartIndex);
  for (std::size_t steps = 0;; ++steps) {
    sScreenElement& cell = at(elements, m_currentElementIndex);
    if (marks == Marks::set) cell.m_isOnPath = true;
    if (cell.m_isNode) return;
    if (steps > elements.size()) throwOutOfRange();
    stepTo(way == Line::forward ? cell.m_directionOutOf : opposite(cell.m_directionInto));
  }
}

void CTavrel::moveOnGrid(eXYDirection direction) {
  const sScreenElement& box = currentElement();
  if (box.m_yesDir == direction || box.m_noDir == direction) {
    moveAlongExit(direction);
  } else {
    moveBackOnGrid(direction);
  }
}

// The exit is trusted: the cursor moves before anything is known of the next cell.
void CTavrel::moveAlongExit(std::int32_t exit) {
  if (exit == eNoDirection) return;
  stepTo(exit);
  followLine(Line::forward, Marks::keep);
}

// The neighbour is looked at first: only one that leads here lets the cursor in.
void CTavrel::moveBackOnGrid(eXYDirection direction) {
  const std::int32_t neighbourIndex = findNeighbour(direction);
  if (neighbourIndex == -1) return;
  const sScreenElement& neighbour = at(currentElements(), neighbourIndex);
  const std::int32_t here = opposite(direction);
  const bool leadsHere = neighbour.m_isNode
                             ? neighbour.m_yesDir == here || neighbour.m_noDir == here
                             : neighbour.m_directionOutOf == here;
  if (!leadsHere) return;
  standOn(direction, neighbourIndex);
  followLine(Line::backward, Marks::keep);
}

void CTavrel::followLink() {
  m_currentFlowchartIndex = mWhichFlowchartIndex(currentElement().m_newFlowchartName);
  mReadFVFileIfNotAlready(m_currentFlowchartIndex);
  mPreparePath();
}

// False, with nothing done, where there is no exit or its first cell is unmarked.
bool CTavrel::moveAlongMarkedExit(std::int32_t exit) {
  if (exit == eNoDirection) return false;
  const std::int32_t next = findNeighbour(exit);
  if (!at(currentElements(), next).m_isOnPath) return false;
  standOn(exit, next);
  followLine(Line::forward, Marks::keep);
  return true;
}

std::int32_t CTavrel::findNeighbour(std::int32_t direction) const {
  const auto code = static_cast<eXYDirection>(direction);
  return mFind(m_currentFlowchartIndex, stepped(m_currentLocation.m_x, mDirectionX(code)),
               stepped(m_currentLocation.m_y, mDirectionY(code)));
}
