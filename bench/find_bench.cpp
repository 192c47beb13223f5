// How long does it take to find the element in a cell?

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "bench/CellFinders.h"
#include "bench/CellSearches.h"
#include "bench/Charts.h"
#include "bench/Checksum.h"
#include "bench/Contest.h"
#include "bench/Random.h"
#include "engine/CTavrel.h"
#include "engine/Position.h"

namespace tavrel::bench {
namespace {

constexpr double seconds = 1.5;
constexpr double notSlower = 1;  // than std::unordered_map
constexpr std::size_t cellCount = 8192;
constexpr std::uint64_t seed = 5;

using Cells = std::vector<engine::Position>;

engine::Position positionOf(const sScreenElement& element) { return {element.m_x, element.m_y}; }

Cells occupiedCells(const Elements& elements) {
  Random random(seed);
  Cells cells;
  while (cells.size() < cellCount) {
    cells.push_back(positionOf(elements[random.below(elements.size())]));
  }
  return cells;
}

// Any within the bounds and one beyond: mostly empty ones.
Cells anyCells(const CTavrel& engine) {
  Random random(seed);
  Cells cells;
  while (cells.size() < cellCount) {
    cells.push_back({random.between(engine.mGetCurrentFlowchartMinX() - 1,
                                    engine.mGetCurrentFlowchartMaxX() + 1),
                     random.between(engine.mGetCurrentFlowchartMinY() - 1,
                                    engine.mGetCurrentFlowchartMaxY() + 1)});
  }
  return cells;
}

// Those that yes leads through from the first box on, again and again.
Cells cellsAlongLine(const CTavrel& engine, const Elements& elements) {
  Cells cells;
  std::int32_t at = 0;
  while (cells.size() < cellCount) {
    const sScreenElement& element = elements[static_cast<std::size_t>(at)];
    cells.push_back(positionOf(element));
    const std::int32_t exit = element.m_isNode ? element.m_yesDir : element.m_directionOutOf;
    const auto way = static_cast<eXYDirection>(exit);
    at = exit == eNoDirection ? 0
                              : engine.mFind(0, element.m_x + CTavrel::mDirectionX(way),
                                             element.m_y + CTavrel::mDirectionY(way));
  }
  return cells;
}

// A contestant that finds all cells; what it finds is kept in a list.
template <typename Find>
Contestant finding(const std::string& name, Rival rival, double bar, const Cells& cells,
                   const Find& find) {
  const auto found = std::make_shared<std::vector<std::int32_t>>(cells.size());
  const auto work = [found, &cells, find] {
    std::int32_t* next = found->data();
    for (const engine::Position& cell : cells) *next++ = find(cell.x, cell.y);
    keep(found->data());
  };
  const auto checksum = [found] {
    Checksum sum;
    for (const std::int32_t element : *found) sum.add(element);
    return sum.value();
  };
  return {name, rival, bar, work, checksum};
}

void contestOf(const CTavrel& engine, const Elements& elements, const std::string& input,
               const Cells& cells, double time) {
  const auto tavrel = [&engine](std::int32_t x, std::int32_t y) { return engine.mFind(0, x, y); };
  const auto peer = [&](const std::string& name, double bar, const auto& finder) {
    const auto find = [&finder](std::int32_t x, std::int32_t y) { return finder.find(x, y); };
    return finding(name, Rival::peer, bar, cells, find);
  };
  const HashFinder hash(elements);
  const FlatHashFinder flatHash(elements);
  const SortedFinder sorted(elements);
  const DenseSearch dense(elements);
  const TreeFinder tree(elements);
  compete({"find a cell", input, cells.size()},
          {finding("Tavrel", Rival::itself, noBar, cells, tavrel),
           peer("std::unordered_map", notSlower, hash),
           peer("boost::unordered_flat_map", noBar, flatHash), peer("sorted vector", noBar, sorted),
           peer("dense array", noBar, dense), peer("std::map", noBar, tree)},
          time);
}

void contests(const Charts& charts, double time) {
  CTavrel engine(charts.directory());
  engine.mSetStartLocation(0);
  const Elements elements = engine.mGetAllElements();
  const std::string input = charts.name() + ", ";
  contestOf(engine, elements, input + "hit", occupiedCells(elements), time);
  contestOf(engine, elements, input + "any cell", anyCells(engine), time);
  contestOf(engine, elements, input + "along a line", cellsAlongLine(engine, elements), time);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contests(smallChart(), time);
  contests(bigChart(), time);
}
