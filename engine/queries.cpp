// Read-only questions about the current flowchart.

#include "engine/CTavrel.h"

#include <algorithm>

#include "engine/CheckedAccess.h"

using tavrel::engine::at;

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
  const std::int64_t base = at(m_minY, m_currentFlowchartIndex);
  const std::vector<std::int32_t>& starts = at(m_rowStarts, m_currentFlowchartIndex);
  const std::int64_t rows = static_cast<std::int64_t>(starts.size()) - 1;
  const std::int64_t firstRow = std::max<std::int64_t>(minY - base, 0);
  const std::int64_t lastRow = maxY - base;
  if (firstRow >= rows || lastRow < firstRow) return {};

  const std::vector<sScreenElement>& elements = currentElements();
  const std::vector<std::int32_t>& indices = at(m_rowElementIndices, m_currentFlowchartIndex);
  const std::int32_t begin = at(starts, firstRow);
  const std::int32_t end = at(starts, std::min(lastRow + 1, rows));
  const auto forEachInside = [&](auto visit) {
    for (std::int32_t k = begin; k < end; ++k) {
      const sScreenElement& element = at(elements, at(indices, k));
      if (minX <= element.m_x && element.m_x <= maxX) visit(element);
    }
  };

  std::size_t count = 0;
  forEachInside([&](const sScreenElement&) { ++count; });
  std::vector<sScreenElement> inside;
  inside.reserve(count);
  forEachInside([&](const sScreenElement& element) { inside.push_back(element); });
  return inside;
}
