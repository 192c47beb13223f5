// Read-only questions about the current flowchart.

#include "engine/CTavrel.h"

#include "engine/CheckedAccess.h"
#include "engine/Rows.h"

using namespace tavrel::engine;

const std::vector<sScreenElement>& CTavrel::currentElements() const {
  return at(m_screenElements, m_currentFlowchartIndex);
}

sFlowchartNameAndCoordinates CTavrel::mCurrentLocation() const { return m_currentLocation; }

std::int32_t CTavrel::mGetCurrentFlowchartMinX() const {
  return at(m_minX, m_currentFlowchartIndex);
}

std::int32_t CTavrel::mGetCurrentFlowchartMaxX() const {
  return at(m_maxX, m_currentFlowchartIndex);
}

std::int32_t CTavrel::mGetCurrentFlowchartMinY() const {
  return at(m_minY, m_currentFlowchartIndex);
}

std::int32_t CTavrel::mGetCurrentFlowchartMaxY() const {
  return at(m_maxY, m_currentFlowchartIndex);
}

std::vector<std::string> CTavrel::mCurrentCommentText() const {
  return at(currentElements(), m_currentElementIndex).m_commentText;
}

std::vector<sScreenElement> CTavrel::mGetAllElements() { return currentElements(); }

sScreenElement CTavrel::mGetXYElement(const std::int32_t& x, const std::int32_t& y) {
  return at(currentElements(), mFind(m_currentFlowchartIndex, x, y));
}

std::vector<sScreenElement> CTavrel::mGetElementsInBoundaries(const std::int32_t& minX,
                                                              const std::int32_t& maxX,
                                                              const std::int32_t& minY,
                                                              const std::int32_t& maxY) const {
  const std::vector<sScreenElement>& elements = currentElements();
  const Rows rows = rowsOf(m_currentFlowchartIndex);
  const Bounds bounds = {minX, maxX, minY, maxY};
  std::vector<sScreenElement> within;
  within.reserve(rows.countWithin(bounds));
  rows.forEachWithin(bounds, [&](std::int32_t index) { within.push_back(at(elements, index)); });
  return within;
}
