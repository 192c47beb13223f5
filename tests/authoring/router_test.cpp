// Lines have the fewest bends and, among those, the least length: compared with all lines that
// there are, on small grids.

#include "authoring/Router.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace tavrel::authoring {
namespace {

using Price = std::pair<int, int>;  // bends and cells
constexpr Price noWay = {1'000, 1'000};
const std::vector<Direction> allExits(directions.begin(), directions.end());

// A square of cells, walled in, with some cells taken.
struct Grid {
  std::set<std::pair<int, int>> taken;
  Cell from, to;

  bool isFree(Cell cell) const { return taken.count({cell.x, cell.y}) == 0; }
};

Grid randomGrid(std::mt19937& random) {
  constexpr int size = 5;
  const auto anywhere = [&random] {
    return Cell{static_cast<int>(random() % size), static_cast<int>(random() % size)};
  };
  Grid grid;
  for (int i = -3; i < size + 3; ++i) {
    for (const int wall : {-3, -2, -1, size, size + 1, size + 2}) {
      grid.taken.insert({i, wall});
      grid.taken.insert({wall, i});
    }
  }
  for (std::size_t some = random() % 14; some > 0; --some) {
    const Cell cell = anywhere();
    grid.taken.insert({cell.x, cell.y});
  }
  grid.from = anywhere();
  grid.to = anywhere();
  grid.taken.insert({grid.from.x, grid.from.y});
  grid.taken.insert({grid.to.x, grid.to.y});
  return grid;
}

// Tries every line that doesn't meet itself.
class AllLines {
 public:
  explicit AllLines(const Grid& grid) : grid_(grid) {}

  Price best() {
    for (const Direction exit : directions) goOn(moved(grid_.from, exit), exit, {0, 0});
    return best_;
  }

 private:
  void goOn(Cell cell, Direction direction, Price price) {
    if (price >= best_) return;
    if (cell == grid_.to && price.second > 0) best_ = price;
    if (!grid_.isFree(cell)) return;
    grid_.taken.insert({cell.x, cell.y});
    for (const Direction next : directions) {
      if (next == opposite(direction)) continue;
      goOn(moved(cell, next), next, {price.first + (next == direction ? 0 : 1), price.second + 1});
    }
    grid_.taken.erase({cell.x, cell.y});
  }

  Grid grid_;
  Price best_ = noWay;
};

Line routed(const Grid& grid, std::size_t mostSteps = 10'000) {
  std::size_t stepsLeft = mostSteps;
  Router router(mostSteps, stepsLeft);
  for (const auto& [x, y] : grid.taken) router.take({x, y});
  return router.route(grid.from, grid.to, Direction::right, allExits);
}

Price priceOf(const Line& line) {
  if (line.exit == Direction::none) return noWay;
  Price price = {0, static_cast<int>(line.connectors.size())};
  for (const PlacedConnector& each : line.connectors) {
    price.first += each.into == each.outOf ? 0 : 1;
  }
  return price;
}

// Whether a line leads from cell to cell, each free and none twice.
bool holdsTogether(const Grid& grid, const Line& line) {
  std::set<std::pair<int, int>> walked;
  Cell at = moved(grid.from, line.exit);
  Direction direction = line.exit;
  for (const PlacedConnector& each : line.connectors) {
    if (each.cell != at || each.into != direction || !grid.isFree(at)) return false;
    if (!walked.insert({at.x, at.y}).second) return false;
    direction = each.outOf;
    at = moved(at, direction);
  }
  return at == grid.to;
}

TEST(Router, FindsTheFewestBendsThenTheShortest) {
  std::mt19937 random(1);
  std::size_t found = 0;
  for (int i = 0; i < 5'000; ++i) {
    const Grid grid = randomGrid(random);
    const Line line = routed(grid);
    ASSERT_EQ(priceOf(line), AllLines(grid).best()) << "grid " << i;
    if (line.exit == Direction::none) continue;
    ASSERT_TRUE(holdsTogether(grid, line)) << "grid " << i;
    ++found;
  }
  EXPECT_GT(found, 4'000U);
}

// A box, and one two columns and two rows further.
Grid cornerToCorner() { return {{{0, 0}, {2, 2}}, {0, 0}, {2, 2}}; }

TEST(Router, TakesTheWantedExitOfTwoThatAreAsGood) {
  for (const Direction wanted : {Direction::right, Direction::down}) {
    std::size_t stepsLeft = 1'000;
    Router router(1'000, stepsLeft);
    router.take({0, 0});
    router.take({2, 2});
    EXPECT_EQ(router.route({0, 0}, {2, 2}, wanted, allExits).exit, wanted);
  }
}

TEST(Router, TakesNoOtherExitThanItMay) {
  std::size_t stepsLeft = 1'000;
  Router router(1'000, stepsLeft);
  router.take({0, 0});
  router.take({2, 2});
  EXPECT_EQ(router.route({0, 0}, {2, 2}, Direction::right, {Direction::up}).exit, Direction::up);
  EXPECT_EQ(router.route({0, 0}, {2, 2}, Direction::right, {}).exit, Direction::none);
}

TEST(Router, FindsNothingWithoutSteps) {
  EXPECT_EQ(priceOf(routed(cornerToCorner(), 2)), noWay);
  EXPECT_EQ(priceOf(routed(cornerToCorner())), Price(1, 3));
}

}  // namespace
}  // namespace tavrel::authoring
