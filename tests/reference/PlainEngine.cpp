#include "tests/reference/PlainEngine.h"

#include <stdexcept>
#include <utility>

#include "tests/reference/Integers.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::reference {
namespace {

std::int32_t opposite(std::int32_t direction) { return (direction + 2) % 4; }

bool hasExit(const PlainElement& box, std::int32_t direction) {
  return box.yes == direction || box.no == direction;
}

}  // namespace

PlainEngine::PlainEngine(std::string prefix, ChartFiles& files, Behaviours& met)
    : prefix_(std::move(prefix)), files_(files), met_(met) {
  static const std::vector<PlainChart> unread(catalogue.size());
  charts = unread;
}

Lines PlainEngine::titles() {
  Lines all;
  for (const CatalogueEntry& entry : catalogue) all.push_back(entry.title);
  return all;
}

std::int32_t PlainEngine::indexOf(const std::string& fileName) {
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    if (catalogue[i].fileName == fileName) return static_cast<std::int32_t>(i);
  }
  return -1;
}

std::int32_t PlainEngine::stepX(std::int64_t direction) {
  return direction == 1 ? 1 : direction == 3 ? -1 : 0;
}

std::int32_t PlainEngine::stepY(std::int64_t direction) {
  return direction == 0 ? 1 : direction == 2 ? -1 : 0;
}

// --- Reading and selecting --------------------------------------------------------

void PlainEngine::readChart(std::int32_t fc) {
  PlainChart& chart = chartOf(fc);
  if (chart.elements.size() > 1) return met_.meet(Behaviour::readAlready);
  std::istream* const in = files_.open(prefix_ + catalogue[at(fc)].fileName + ".fv");
  if (in == nullptr) {
    met_.meet(Behaviour::fileMissing);
    chart.wasMissing = true;
    return;
  }
  if (std::exchange(chart.wasMissing, false)) met_.meet(Behaviour::fileAppeared);
  if (chart.hasBeenRead && !chart.elements.empty()) met_.meet(Behaviour::oneCellReadAgain);
  chart.read(*in, met_);
}

Lines PlainEngine::introOf(std::int32_t fc) {
  if (fc < 0 || at(fc) >= charts.size()) {
    met_.meet(Behaviour::introOutside);
    return {"No such flowchart"};
  }
  readChart(fc);
  return chartOf(fc).intro;
}

void PlainEngine::setStartLocation(std::int32_t fc) {
  checkIndex(fc, "CTavrel::mSetStartLocation()", Behaviour::resetOutside);
  current = fc;
  readChart(fc);
  toStart();
}

void PlainEngine::startNewPath(std::int32_t fc, const std::string& answers) {
  checkIndex(fc, "CTavrel::mStartNewPath()", Behaviour::startOutside);
  current = fc;
  PlainChart& chart = chartOf(fc);
  if (chart.elements.empty()) met_.meet(Behaviour::rootMissing);
  const bool hasMarks = chart.elements.at(0).isOnPath;
  met_.meet(hasMarks ? Behaviour::marksCleared : Behaviour::marksNotCleared);
  if (hasMarks) {
    for (PlainElement& each : chart.elements) each.isOnPath = false;
  }
  readChart(fc);
  path = answers;
  preparePath();
}

void PlainEngine::preparePath() {
  chartOf(current);
  toStart();
  const std::string answers = std::exchange(path, "");
  if (currentChart().elements.empty()) met_.meet(Behaviour::rootMissingAfterRead);
  currentElement().isOnPath = true;
  if (answers.empty()) met_.meet(Behaviour::answersNone);
  for (std::size_t i = 0; i < answers.size(); ++i) {
    if (answers[i] != 'y' && answers[i] != 'n') met_.meet(Behaviour::answerOtherByte);
    const std::int32_t exit = answers[i] == 'y' ? currentElement().yes : currentElement().no;
    if (exit == noDirection) {
      met_.meet(i == 0 ? Behaviour::answersAllLeft : Behaviour::answersLeft);
      path = answers.substr(i);
      break;
    }
    step(exit, 1);
    lookUp(true);
    follow(Way::forward, true);
  }
  if (!answers.empty() && path.empty()) met_.meet(Behaviour::answersLaid);
  toStart();
}

void PlainEngine::buildIndex(std::int32_t fc) { chartOf(fc).index(); }

std::int32_t PlainEngine::find(std::int32_t fc, std::int64_t atX, std::int64_t atY) const {
  const PlainChart& chart = charts.at(at(fc));
  if (chart.isIndexOld()) met_.meet(Behaviour::staleIndex);
  return chart.find(atX, atY);
}

void PlainEngine::checkIndex(std::int32_t fc, const char* text, Behaviour outside) const {
  if (fc >= 0 && at(fc) < charts.size()) return;
  met_.meet(outside);
  throw std::out_of_range(text);
}

void PlainEngine::toStart() {
  name = catalogue.at(at(current)).fileName;
  x = y = 0;
  element = 0;
}

// --- Moving -----------------------------------------------------------------------

void PlainEngine::step(std::int32_t direction, int sign) {
  x = low32(std::int64_t{x} + sign * stepX(direction));
  y = low32(std::int64_t{y} + sign * stepY(direction));
}

void PlainEngine::lookUp(bool isMarking) {
  element = find(current, x, y);
  if (element < 0) met_.meet(isMarking ? Behaviour::pathIntoNothing : Behaviour::moveIntoNothing);
  if (isMarking) currentElement().isOnPath = true;
}

// A line may have as many cells as the flowchart, and the walk along it one step more.
void PlainEngine::follow(Way way, bool isMarking) {
  for (std::size_t steps = 0; !currentElement().isNode; ++steps) {
    if (isMarking) met_.meet(Behaviour::pathOntoLines);
    if (steps > currentChart().elements.size()) {
      met_.meet(isMarking             ? Behaviour::loopMarked
                : way == Way::forward ? Behaviour::loopForward
                                      : Behaviour::loopBackward);
      throw std::out_of_range("loop");
    }
    const PlainElement& cell = currentElement();
    const std::int32_t direction = way == Way::forward ? cell.outOf : cell.into;
    if (stepX(direction) == 0 && stepY(direction) == 0) met_.meet(Behaviour::nowhere);
    step(direction, way == Way::forward ? 1 : -1);
    lookUp(isMarking);
  }
}

void PlainEngine::moveOnGrid(std::int32_t direction) {
  if (hasExit(currentElement(), direction)) {
    met_.meet(Behaviour::gridForward);
    const PlainElement* const next = standingAhead(direction);
    if (next && hasExit(*next, opposite(direction))) met_.meet(Behaviour::gridForwardFirst);
    return moveAlong(direction);
  }
  moveBackOnGrid(direction, find(current, std::int64_t{x} + stepX(direction),
                                 std::int64_t{y} + stepY(direction)));
}

void PlainEngine::moveBackOnGrid(std::int32_t direction, std::int32_t neighbour) {
  if (neighbour < 0) return met_.meet(Behaviour::gridEmpty);
  const PlainElement& next = currentChart().elements.at(at(neighbour));
  const std::int32_t back = opposite(direction);
  if (next.isNode && !hasExit(next, back)) return met_.meet(Behaviour::gridBoxElsewhere);
  if (!next.isNode && next.outOf != back) return met_.meet(Behaviour::gridLineElsewhere);
  met_.meet(next.isNode ? Behaviour::gridBackToBox : Behaviour::gridBackAlongLine);
  step(direction, 1);
  element = neighbour;
  follow(Way::backward, false);
}

void PlainEngine::moveAlong(std::int32_t exit) {
  if (exit == noDirection) return met_.meet(Behaviour::answerRefused);
  step(exit, 1);
  lookUp(false);
  follow(Way::forward, false);
}

void PlainEngine::moveYes() {
  met_.meet(Behaviour::answerMove);
  moveAlong(currentElement().yes);
}

void PlainEngine::moveNo() {
  met_.meet(Behaviour::answerMove);
  moveAlong(currentElement().no);
}

void PlainEngine::moveOnPath() {
  const PlainElement& box = currentElement();
  if (!box.isOnPath) return met_.meet(Behaviour::pathOff);
  if (!box.link.empty()) return followLink(box.link);
  if (box.yes != noDirection && isMarkedAhead(box.yes)) {
    const PlainElement* const other = box.no == box.yes ? nullptr : standingAhead(box.no);
    if (box.no != noDirection && other && other->isOnPath) met_.meet(Behaviour::pathTie);
    met_.meet(Behaviour::pathYes);
    return moveAlong(box.yes);
  }
  if (box.no != noDirection && isMarkedAhead(box.no)) {
    met_.meet(Behaviour::pathNo);
    return moveAlong(box.no);
  }
  met_.meet(Behaviour::pathEnd);
}

bool PlainEngine::isMarkedAhead(std::int32_t exit) const {
  const std::int32_t next =
      find(current, std::int64_t{x} + stepX(exit), std::int64_t{y} + stepY(exit));
  if (next < 0) met_.meet(Behaviour::pathAheadEmpty);
  return currentChart().elements.at(at(next)).isOnPath;
}

// For the figures alone: what stands one step away, by the cells themselves.
const PlainElement* PlainEngine::standingAhead(std::int32_t direction) const {
  const std::int64_t aheadX = std::int64_t{x} + stepX(direction);
  const std::int64_t aheadY = std::int64_t{y} + stepY(direction);
  for (const PlainElement& each : currentChart().elements) {
    if (each.x == aheadX && each.y == aheadY) return &each;
  }
  return nullptr;
}

// The name is taken as a copy: reading may replace the box that it stands in.
void PlainEngine::followLink(std::string link) {
  const std::int32_t from = std::exchange(current, indexOf(link));
  if (current < 0) met_.meet(Behaviour::linkUnknown);
  if (current == from) met_.meet(Behaviour::linkToItself);
  if (!path.empty()) met_.meet(Behaviour::linkWithAnswers);
  if (current >= 0 && !currentChart().hasBeenRead) met_.meet(Behaviour::linkUnread);
  try {
    readChart(current);
    const std::vector<PlainElement>& entered = currentChart().elements;
    if (!entered.empty() && entered[0].isOnPath) met_.meet(Behaviour::marksOfOlderPath);
    preparePath();
  } catch (...) {
    met_.meet(Behaviour::linkFailed);
    throw;
  }
  met_.meet(Behaviour::linkEntered);
}

void PlainEngine::moveRoot() {
  x = y = 0;
  element = find(current, x, y);
  if (element < 0) met_.meet(Behaviour::rootIsEmpty);
  if (element >= 0 && !currentChart().elements.at(at(element)).isNode) {
    met_.meet(Behaviour::rootOnLine);
  }
}

// --- Asking -----------------------------------------------------------------------

PlainChart& PlainEngine::chartOf(std::int32_t fc) { return charts.at(at(fc)); }

const PlainChart& PlainEngine::currentChart() const { return charts.at(at(current)); }

PlainElement& PlainEngine::currentElement() {
  if (current < 0) met_.meet(Behaviour::noFlowchart);
  PlainChart& chart = chartOf(current);
  if (at(element) >= chart.elements.size()) met_.meet(Behaviour::noElement);
  return chart.elements.at(at(element));
}

const Lines& PlainEngine::currentCommentText() const {
  const PlainChart& chart = currentChart();
  if (at(element) >= chart.elements.size()) met_.meet(Behaviour::commentWithoutElement);
  return chart.elements.at(at(element)).commentText;
}

const PlainElement& PlainEngine::elementAt(std::int32_t atX, std::int32_t atY) const {
  const PlainChart& chart = currentChart();
  if (atY < chart.minY || atY > chart.maxY) met_.meet(Behaviour::cellOutside);
  const std::int32_t found = find(current, atX, atY);
  if (found < 0) met_.meet(Behaviour::cellEmpty);
  return chart.elements.at(at(found));
}

std::vector<PlainElement> PlainEngine::elementsIn(std::int32_t minX, std::int32_t maxX,
                                                  std::int32_t minY, std::int32_t maxY) const {
  const PlainChart& chart = currentChart();
  if (minY > chart.maxY) met_.meet(Behaviour::rectangleBelow);
  if (maxY < chart.minY) met_.meet(Behaviour::rectangleAbove);
  if (minX > maxX || minY > maxY) met_.meet(Behaviour::rectangleReversed);
  std::vector<PlainElement> found;
  for (const std::int32_t each : chart.inside(minX, maxX, minY, maxY)) {
    found.push_back(chart.elements[at(each)]);
  }
  const bool isCell = minX == maxX && minY == maxY;
  if (found.empty()) met_.meet(Behaviour::rectangleEmpty);
  if (isCell && !found.empty()) met_.meet(Behaviour::rectangleOfOneCell);
  if (minX < chart.minX && maxX > chart.maxX && minY < chart.minY && maxY > chart.maxY) {
    met_.meet(Behaviour::rectangleWhole);
  }
  return found;
}

}  // namespace tavrel::reference
