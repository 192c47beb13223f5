#include "tests/failures/Model.h"

#include <cstddef>

#include "tests/reference/State.h"

namespace tavrel {
namespace {

using reference::PlainElement;

std::vector<sScreenElement> recordsOf(const std::vector<PlainElement>& plain) {
  std::vector<sScreenElement> records;
  for (const PlainElement& element : plain) records.push_back(reference::asRecord(element));
  return records;
}

// The client interface takes any number that is no direction for one toward larger x.
std::int32_t knownDirection(std::int32_t number) {
  return number >= eYPlus && number <= eXMinus ? number : std::int32_t{eXPlus};
}

}  // namespace

Model::Model(const std::string& prefix, reference::ChartFiles& files)
    : engine_(prefix, files, behaviours_) {}

std::vector<std::string> Model::mGetVectorOfFlowchartTitles() const { return engine_.titles(); }

std::int32_t Model::mWhichFlowchartIndex(const std::string& fileName) const {
  return engine_.indexOf(fileName);
}

void Model::mStartNewPath(std::int32_t fc, const std::string& answers) {
  engine_.startNewPath(fc, answers);
}

std::int32_t Model::mFind(std::int32_t fc, std::int32_t x, std::int32_t y) const {
  return engine_.find(fc, x, y);
}

sFlowchartNameAndCoordinates Model::mCurrentLocation() const {
  return {engine_.name, engine_.x, engine_.y};
}

std::vector<sScreenElement> Model::mGetAllElements() const {
  return recordsOf(engine_.currentChart().elements);
}

sScreenElement Model::mGetXYElement(std::int32_t x, std::int32_t y) const {
  return reference::asRecord(engine_.elementAt(x, y));
}

std::vector<sScreenElement> Model::mGetElementsInBoundaries(std::int32_t minX, std::int32_t maxX,
                                                            std::int32_t minY,
                                                            std::int32_t maxY) const {
  return recordsOf(engine_.elementsIn(minX, maxX, minY, maxY));
}

sScreenElement Model::currentElement() const { return mGetXYElement(engine_.x, engine_.y); }

void Model::moveWithDirection(std::int32_t direction) {
  if (direction != eNoDirection) engine_.moveOnGrid(knownDirection(direction));
}

void Model::moveBack() {
  const std::int32_t x = engine_.x, y = engine_.y;
  for (const PlainElement& box : engine_.elementsIn(x - 1, x + 1, y - 1, y + 1)) {
    if (!box.isNode) continue;
    for (const std::int32_t stored : {box.yes, box.no}) {
      if (stored == eNoDirection) continue;
      const std::int32_t exit = knownDirection(stored);
      const std::int32_t nextX = box.x + engine_.stepX(exit), nextY = box.y + engine_.stepY(exit);
      engine_.elementAt(nextX, nextY);
      if (nextX == x && nextY == y) return moveWithDirection((exit + 2) % 4);
    }
  }
}

bool Model::isRead(std::int32_t index) const {
  return engine_.charts.at(static_cast<std::size_t>(index)).elements.size() > 1;
}

}  // namespace tavrel
