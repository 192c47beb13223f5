// How much memory do a move and the list of a rectangle ask for? Counted, in a program
// of its own: counting takes time.

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "bench/Charts.h"
#include "bench/Contest.h"
#include "engine/CTavrel.h"
#include "tests/support/Allocations.h"
#include "tests/support/Require.h"

namespace tavrel::bench {
namespace {

constexpr std::size_t steps = 999;

// Where a path of so many answers ends: at the last of the elements that are marked.
std::pair<std::int32_t, std::int32_t> endOfWalk(const Charts& charts) {
  CTavrel engine(charts.directory());
  engine.mStartNewPath(0, std::string(steps, 'y'));
  std::pair<std::int32_t, std::int32_t> end = {0, 0};
  std::size_t boxes = 0;
  for (const sScreenElement& element : engine.mGetAllElements()) {
    if (!element.m_isNode || !element.m_isOnPath) continue;
    end = {element.m_x, element.m_y};
    ++boxes;
  }
  require(boxes == steps + 1, "the path has another length");
  return end;
}

void countForMoves(const Charts& charts) {
  const auto [endX, endY] = endOfWalk(charts);
  CTavrel engine(charts.directory());
  engine.mStartNewPath(0, std::string(steps, 'y'));
  const auto count = [&](const std::string& name, const auto& move) {
    engine.mMoveRoot();
    const Cost cost = costOf([&] {
      for (std::size_t step = 0; step < steps; ++step) move();
    });
    const sFlowchartNameAndCoordinates location = engine.mCurrentLocation();
    require(location.m_x == endX && location.m_y == endY, "a walk came to another end");
    reportCount({"allocations of 999 steps", charts.name() + ", " + name, 1}, "Tavrel", cost.count,
                0);
  };
  count("on the path", [&] { engine.mMoveOnPath(); });
  count("yes", [&] { engine.mMoveYes(); });
}

// Those of the answer, less those of copying its records.
std::size_t allocationsOfList(const CTavrel& engine, std::int32_t width, std::int32_t height) {
  std::vector<sScreenElement> answer;
  const Cost all = costOf(
      [&] { answer = engine.mGetElementsInBoundaries(-width / 2, width / 2, 0, height - 1); });
  require(!answer.empty(), "a rectangle is empty");
  std::vector<sScreenElement> copies;
  copies.reserve(answer.size());
  const Cost ofRecords = costOf([&] {
    for (const sScreenElement& record : answer) copies.push_back(record);
  });
  return all.count - ofRecords.count;
}

void countForRectangles(const Charts& charts) {
  CTavrel engine(charts.directory());
  engine.mSetStartLocation(0);
  const auto count = [&](const std::string& name, std::int32_t width, std::int32_t height) {
    reportCount({"allocations of the list", charts.name() + ", " + name, 1}, "Tavrel",
                allocationsOfList(engine, width, height), 1);
  };
  count("9x5", 9, 5);
  count("20x12", 20, 12);
  count("80x24", 80, 24);
  count("whole", 1'000'000, 1'000'000);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  static_cast<void>(secondsAsked(argc, argv, 0));
  const Charts charts = bigChart();
  countForMoves(charts);
  countForRectangles(charts);
}
