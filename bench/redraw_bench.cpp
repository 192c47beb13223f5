// How long does a redraw take? A rectangle of 80x24 around a box is asked for, and all
// texts in it are read, through the facade and through the engine.

#include <Tavrel/Tavrel.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/Charts.h"
#include "bench/Checksum.h"
#include "bench/Contest.h"
#include "bench/Random.h"
#include "engine/CTavrel.h"
#include "engine/Position.h"

namespace tavrel::bench {
namespace {

constexpr double seconds = 3;
constexpr double timesTheEngine = 2;
constexpr std::size_t rectangleCount = 16;
constexpr std::uint64_t seed = 9;

std::vector<engine::Bounds> rectanglesIn(const Charts& charts) {
  Random random(seed);
  const std::vector<sScreenElement> elements = elementsOf(charts);
  std::vector<engine::Bounds> all;
  while (all.size() < rectangleCount) {
    const sScreenElement& box = elements[random.below(elements.size())];
    if (box.m_isNode) all.push_back({box.m_x - 40, box.m_x + 39, box.m_y - 12, box.m_y + 11});
  }
  return all;
}

std::vector<sScreenElement> elementsIn(const CTavrel& engine, const engine::Bounds& b) {
  return engine.mGetElementsInBoundaries(b.minX, b.maxX, b.minY, b.maxY);
}

std::vector<ScreenElement> elementsIn(const Tavrel& navigator, const engine::Bounds& b) {
  return navigator.elementsInBounds({b.minX, b.maxX, b.minY, b.maxY});
}

void read(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) keep(line.data());
}

// What a program that draws has to hold in its hands.
void readTexts(const sScreenElement& element) {
  read(element.m_boxText);
  read(element.m_commentText);
  keep(element.m_newFlowchartName.data());
}

void readTexts(const ScreenElement& element) {
  read(element.boxText());
  read(element.commentaryText());
  const std::optional<std::string> next = element.nameOfNextFlowchart();
  if (next) keep(next->data());
}

void add(Checksum& sum, const sScreenElement& element) { sum.add(element); }

void add(Checksum& sum, const ScreenElement& element) {
  sScreenElement record;
  const auto low = [](std::int64_t value) { return static_cast<std::int32_t>(value); };
  record.m_x = low(element.x());
  record.m_y = low(element.y());
  record.m_xOffset = low(element.xOffset());
  record.m_yOffset = low(element.yOffset());
  record.m_isOnPath = element.isOnPath();
  record.m_isNode = element.isNode();
  record.m_newFlowchartName = element.nameOfNextFlowchart().value_or("");
  record.m_boxText = element.boxText();
  record.m_commentText = element.commentaryText();
  record.m_yesDir = low(element.yesDirection());
  record.m_noDir = low(element.noDirection());
  record.m_directionInto = low(element.intoDirection());
  record.m_directionOutOf = low(element.outOfDirection());
  sum.add(record);
}

template <typename Library>
Contestant redrawing(const std::string& name, Rival rival, double bar,
                     const std::shared_ptr<Library>& library,
                     const std::vector<engine::Bounds>& rectangles) {
  const auto work = [library, &rectangles] {
    for (const engine::Bounds& bounds : rectangles) {
      for (const auto& element : elementsIn(*library, bounds)) readTexts(element);
    }
  };
  const auto checksum = [library, &rectangles] {
    Checksum sum;
    for (const engine::Bounds& bounds : rectangles) {
      for (const auto& element : elementsIn(*library, bounds)) add(sum, element);
    }
    return sum.value();
  };
  return {name, rival, bar, work, checksum};
}

void contest(const Charts& charts, double time) {
  const auto navigator = std::make_shared<Tavrel>(charts.directory());
  const auto engine = std::make_shared<CTavrel>(charts.directory());
  navigator->resetToStartLocationForFlowchartAtIndex(0);
  engine->mSetStartLocation(0);
  const std::vector<engine::Bounds> rectangles = rectanglesIn(charts);
  compete({"redraw 80x24, all texts read", charts.name(), rectangleCount},
          {redrawing("Tavrel", Rival::itself, noBar, navigator, rectangles),
           redrawing("the engine alone", Rival::floor, timesTheEngine, engine, rectangles)},
          time);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contest(smallChart(), time);
  contest(bigChart(), time);
  contest(realCharts(), time);
}
