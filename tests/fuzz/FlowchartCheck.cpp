#include "tests/fuzz/FlowchartCheck.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>

#include "tests/fuzz/Finding.h"
#include "tests/support/EngineAccess.h"

namespace tavrel::fuzz {
namespace {

using Elements = std::vector<sScreenElement>;
using Indices = std::vector<std::int32_t>;

const Elements& elementsOf(const CTavrel& engine, std::int32_t fc) {
  return EngineAccess::screenElements(engine).at(static_cast<std::size_t>(fc));
}

struct Bounds {
  std::int32_t minX, maxX, minY, maxY;

  Bounds(const CTavrel& engine, std::size_t fc)
      : minX(EngineAccess::minX(engine).at(fc)),
        maxX(EngineAccess::maxX(engine).at(fc)),
        minY(EngineAccess::minY(engine).at(fc)),
        maxY(EngineAccess::maxY(engine).at(fc)) {}

  bool hold(std::int32_t x, std::int32_t y) const {
    return minX <= x && x <= maxX && minY <= y && y <= maxY;
  }
};

void checkElement(const sScreenElement& element) {
  require(!element.m_isOnPath, "nothing read is marked");
  if (element.m_isNode) {
    require(element.m_directionInto == eNoDirection && element.m_directionOutOf == eNoDirection,
            "a box has no directions of a line");
    require(element.m_yesDir != -1 && element.m_noDir != -1, "a missing exit is no direction");
  } else {
    require(element.m_yesDir == eNoDirection && element.m_noDir == eNoDirection,
            "a connector cell has no exits");
    require(element.m_boxText.empty() && element.m_commentText.empty(),
            "a connector cell has no text");
  }
}

// An offset grows with its coordinate, by the gap at least, and is 0 at 0.
void checkOffsets(std::vector<std::pair<std::int32_t, std::int32_t>> offsets, std::int64_t gap) {
  offsets.emplace_back(0, 0);
  std::sort(offsets.begin(), offsets.end());
  for (std::size_t i = 1; i < offsets.size(); ++i) {
    const std::int64_t step = std::int64_t{offsets[i].first} - offsets[i - 1].first;
    const std::int64_t distance = std::int64_t{offsets[i].second} - offsets[i - 1].second;
    require(step > 0 ? distance >= gap * step : distance == 0, "offsets grow with coordinates");
  }
}

void checkLayout(const Elements& elements) {
  std::vector<std::pair<std::int32_t, std::int32_t>> columns, rows;
  for (const sScreenElement& element : elements) {
    columns.emplace_back(element.m_x, element.m_xOffset);
    rows.emplace_back(element.m_y, element.m_yOffset);
  }
  checkOffsets(std::move(columns), 15);
  checkOffsets(std::move(rows), 2);
}

void checkStarts(const Indices& starts, std::int64_t rows, std::size_t count) {
  require(static_cast<std::int64_t>(starts.size()) == rows + 1, "every row has its start");
  require(starts.front() == 0 && static_cast<std::size_t>(starts.back()) == count,
          "the rows hold all elements");
  require(std::is_sorted(starts.begin(), starts.end()), "no row ends before it starts");
}

// Row by row, and in their order within a row.
Indices inOrder(const Elements& elements) {
  std::vector<std::pair<std::int32_t, std::int32_t>> rowsAndIndices;
  for (const sScreenElement& element : elements) {
    rowsAndIndices.emplace_back(element.m_y, static_cast<std::int32_t>(rowsAndIndices.size()));
  }
  std::sort(rowsAndIndices.begin(), rowsAndIndices.end());
  Indices indices;
  for (const auto& [row, index] : rowsAndIndices) indices.push_back(index);
  return indices;
}

void checkPlaces(const Indices& indices, const Indices& starts, const Elements& elements,
                 std::int32_t minY) {
  for (std::size_t k = 0; k < indices.size(); ++k) {
    const std::int64_t y = elements[static_cast<std::size_t>(indices[k])].m_y;
    const auto row = static_cast<std::size_t>(y - minY);
    const auto place = static_cast<std::int32_t>(k);
    require(starts[row] <= place && place < starts[row + 1], "an element's place is in its row");
  }
}

// Of the cells in one place the first is found.
void checkFinds(const CTavrel& engine, std::int32_t fc, const Elements& elements) {
  std::vector<std::tuple<std::int32_t, std::int32_t, std::int32_t>> places;
  for (const sScreenElement& element : elements) {
    places.emplace_back(element.m_y, element.m_x, static_cast<std::int32_t>(places.size()));
  }
  std::sort(places.begin(), places.end());
  std::int32_t first = -1;
  for (std::size_t k = 0; k < places.size(); ++k) {
    const auto [y, x, element] = places[k];
    const bool isFirst =
        k == 0 || std::get<0>(places[k - 1]) != y || std::get<1>(places[k - 1]) != x;
    if (isFirst) first = element;
    require(engine.mFind(fc, x, y) == first, "a cell is found");
  }
}

// Where no cell is, none is found: beside each cell and outside the bounds.
void checkEmptyPlaces(const CTavrel& engine, std::int32_t fc, const Elements& elements,
                      const Bounds& bounds) {
  std::vector<std::pair<std::int32_t, std::int32_t>> places;
  for (const sScreenElement& element : elements) places.emplace_back(element.m_x, element.m_y);
  std::sort(places.begin(), places.end());
  const auto check = [&](std::int32_t x, std::int32_t y) {
    const bool isTaken = std::binary_search(places.begin(), places.end(), std::pair(x, y));
    require((engine.mFind(fc, x, y) >= 0) == isTaken, "what is found stands there");
  };
  for (const auto& [x, y] : places) {
    if (x > INT32_MIN) check(x - 1, y);
    if (x < INT32_MAX) check(x + 1, y);
  }
  if (bounds.minY > INT32_MIN) check(0, bounds.minY - 1);
  if (bounds.maxY < INT32_MAX) check(0, bounds.maxY + 1);
}

bool areEqual(const sScreenElement& a, const sScreenElement& b) {
  const auto all = [](const sScreenElement& e) {
    return std::tie(e.m_x, e.m_y, e.m_xOffset, e.m_yOffset, e.m_isOnPath, e.m_isNode,
                    e.m_newFlowchartName, e.m_boxText, e.m_commentText, e.m_yesDir, e.m_noDir,
                    e.m_directionInto, e.m_directionOutOf);
  };
  return all(a) == all(b);
}

void checkRectangle(CTavrel& engine, std::int32_t fc, const Indices& indices,
                    const Bounds& bounds) {
  EngineAccess::currentFlowchartIndex(engine) = fc;
  const Elements& all = elementsOf(engine, fc);
  const Elements inside =
      engine.mGetElementsInBoundaries(bounds.minX, bounds.maxX, bounds.minY, bounds.maxY);
  require(inside.size() == all.size(), "the rectangle of the bounds holds everything");
  for (std::size_t k = 0; k < inside.size(); ++k) {
    require(areEqual(inside[k], all[static_cast<std::size_t>(indices[k])]),
            "a rectangle lists its elements row by row");
  }
}

}  // namespace

void checkElements(const CTavrel& engine, std::int32_t fc) {
  const Bounds bounds(engine, static_cast<std::size_t>(fc));
  require(bounds.hold(0, 0), "the origin lies within the bounds");
  bool isPastBoxes = false;
  for (const sScreenElement& element : elementsOf(engine, fc)) {
    require(bounds.hold(element.m_x, element.m_y), "the bounds hold every element");
    require(!(isPastBoxes && element.m_isNode), "boxes come before connector cells");
    isPastBoxes = !element.m_isNode;
    checkElement(element);
  }
}

void checkWhole(CTavrel& engine, std::int32_t fc) {
  const auto chart = static_cast<std::size_t>(fc);
  const Elements& elements = elementsOf(engine, fc);
  const Indices& indices = EngineAccess::rowElementIndices(engine).at(chart);
  const Indices& starts = EngineAccess::rowStarts(engine).at(chart);
  const Bounds bounds(engine, chart);
  checkLayout(elements);
  checkStarts(starts, std::int64_t{bounds.maxY} - bounds.minY + 1, elements.size());
  require(indices == inOrder(elements), "the rows list their elements in order");
  checkPlaces(indices, starts, elements, bounds.minY);
  checkFinds(engine, fc, elements);
  checkEmptyPlaces(engine, fc, elements, bounds);
  checkRectangle(engine, fc, indices, bounds);
}

std::size_t sizeOf(const Elements& elements) {
  std::size_t size = 0;
  const auto add = [&size](const std::string& text) { size += sizeof(text) + text.size() + 1; };
  for (const sScreenElement& element : elements) {
    size += sizeof(element);
    add(element.m_newFlowchartName);
    for (const std::string& line : element.m_boxText) add(line);
    for (const std::string& line : element.m_commentText) add(line);
  }
  return size;
}

}  // namespace tavrel::fuzz
