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

}  // namespace

Model::Model(const std::string& prefix, reference::ChartFiles& files)
    : navigator_(prefix, files, behaviours_) {}

std::vector<std::string> Model::mGetVectorOfFlowchartTitles() const { return engine().titles(); }

std::int32_t Model::mWhichFlowchartIndex(const std::string& fileName) const {
  return engine().indexOf(fileName);
}

void Model::mStartNewPath(std::int32_t fc, const std::string& answers) {
  engine().startNewPath(fc, answers);
}

std::int32_t Model::mFind(std::int32_t fc, std::int32_t x, std::int32_t y) const {
  return engine().find(fc, x, y);
}

sFlowchartNameAndCoordinates Model::mCurrentLocation() const {
  return {engine().name, engine().x, engine().y};
}

std::vector<sScreenElement> Model::mGetAllElements() const {
  return recordsOf(engine().currentChart().elements);
}

sScreenElement Model::mGetXYElement(std::int32_t x, std::int32_t y) const {
  return reference::asRecord(engine().elementAt(x, y));
}

std::vector<sScreenElement> Model::mGetElementsInBoundaries(std::int32_t minX, std::int32_t maxX,
                                                            std::int32_t minY,
                                                            std::int32_t maxY) const {
  return recordsOf(engine().elementsIn(minX, maxX, minY, maxY));
}

sScreenElement Model::currentElement() const { return mGetXYElement(engine().x, engine().y); }

std::string Model::debugDescription() {
  return navigator_.descriptionOf(engine().elementAt(engine().x, engine().y));
}

bool Model::isRead(std::int32_t index) const {
  return engine().charts.at(static_cast<std::size_t>(index)).elements.size() > 1;
}

}  // namespace tavrel
