#include "tests/reference/State.h"
#include "tests/support/ChartFile.h"
#include "tests/support/Thrown.h"
#include "tests/worlds/Worlds.h"

namespace tavrel::worlds {
namespace {

// The grid lies around the origin, and a cell's breadth of nothing around the grid.
constexpr int side = 4;
constexpr std::int32_t left = -1, top = -2;
constexpr std::int32_t firstX = left - 1, lastX = left + side;
constexpr std::int32_t firstY = top - 1, lastY = top + side;

void tryCell(std::int32_t x, std::int32_t y, Sheet& sheet) {
  const std::int32_t fc = sheet.plain().current;
  const std::int32_t expected = sheet.plain().find(fc, x, y);
  const std::int32_t found = sheet.engine().mFind(fc, x, y);
  if (found != expected) {
    sheet.fail("mFind " + std::to_string(x) + " " + std::to_string(y), std::to_string(expected),
               std::to_string(found));
  }
  const bool isOnGrid = x > firstX && x < lastX && y > firstY && y < lastY;
  if (!isOnGrid) return;
  reference::Request request{reference::What::elementAt};
  request.numbers = {x, y, 0, 0};
  sheet.ask(request);
}

bool isEqual(const std::vector<reference::PlainElement>& expected,
             const std::vector<sScreenElement>& found) {
  if (expected.size() != found.size()) return false;
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!reference::isEqual(expected[i], found[i])) return false;
  }
  return true;
}

void tryRectangle(std::int32_t minX, std::int32_t maxX, std::int32_t minY, std::int32_t maxY,
                  Sheet& sheet) {
  const auto expected = sheet.plain().elementsIn(minX, maxX, minY, maxY);
  const auto found = sheet.engine().mGetElementsInBoundaries(minX, maxX, minY, maxY);
  if (isEqual(expected, found)) return;
  sheet.fail("rectangle " + std::to_string(minX) + " " + std::to_string(maxX) + " " +
                 std::to_string(minY) + " " + std::to_string(maxY),
             std::to_string(expected.size()) + " elements",
             std::to_string(found.size()) + " elements or others");
}

void tryRectangles(std::int32_t minY, std::int32_t maxY, Sheet& sheet) {
  for (std::int32_t minX = firstX; minX <= lastX; ++minX) {
    for (std::int32_t maxX = minX - 1; maxX <= lastX; ++maxX) {
      tryRectangle(minX, maxX, minY, maxY, sheet);
    }
  }
}

}  // namespace

std::string Occupancies::file(std::size_t number) const {
  ChartFile chart;
  chart.node({});
  for (int i = 0; i < side * side; ++i) {
    if ((number >> i & 1) != 0) chart.cell(0, left + i % side, top + i / side);
  }
  return chart.text();
}

void Occupancies::tryChart(std::size_t index, Sheet& sheet) const {
  sheet.ask(reference::resetRequest(static_cast<std::int64_t>(index)));
  sheet.compareChart(index);
  for (std::int32_t y = firstY; y <= lastY; ++y) {
    for (std::int32_t x = firstX; x <= lastX; ++x) tryCell(x, y, sheet);
    for (std::int32_t maxY = y - 1; maxY <= lastY; ++maxY) tryRectangles(y, maxY, sheet);
  }
}

}  // namespace tavrel::worlds
