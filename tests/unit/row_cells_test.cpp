// The rows sorted by column, which stand beside the row index for speed.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

#include "engine/RowIndex.h"
#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

using engine::findInRow;
using engine::placesByColumn;
using engine::Position;
using engine::RowCell;
using Numbers = std::vector<std::int32_t>;

std::int32_t find(const std::vector<RowCell>& row, std::int32_t x) {
  return findInRow({row.data(), row.size()}, x);
}

TEST(RowCells, NothingIsFoundInAnEmptyRow) { EXPECT_EQ(find({}, 0), -1); }

TEST(RowCells, ARowWithoutGapsIsFoundThrough) {
  const std::vector<RowCell> row = {{-1, 7}, {0, 3}, {1, 9}};
  EXPECT_EQ(find(row, -2), -1);
  EXPECT_EQ(find(row, -1), 7);
  EXPECT_EQ(find(row, 0), 3);
  EXPECT_EQ(find(row, 1), 9);
  EXPECT_EQ(find(row, 2), -1);
}

TEST(RowCells, OfSeveralInOneColumnTheLowestElementIsFound) {
  const std::vector<RowCell> row = {{0, 5}, {1, 2}, {1, 4}, {1, 6}, {2, 1}, {3, 0}};
  EXPECT_EQ(find(row, 0), 5);
  EXPECT_EQ(find(row, 1), 2);
  EXPECT_EQ(find(row, 2), 1);
  EXPECT_EQ(find(row, 3), 0);
}

TEST(RowCells, ColumnsAtTheLimitsAreToldApart) {
  const std::vector<RowCell> row = {{INT32_MIN, 1}, {0, 0}, {INT32_MAX, 2}};
  EXPECT_EQ(find(row, INT32_MIN), 1);
  EXPECT_EQ(find(row, INT32_MIN + 1), -1);
  EXPECT_EQ(find(row, INT32_MAX - 1), -1);
  EXPECT_EQ(find(row, INT32_MAX), 2);
}

TEST(RowCells, FindWhatALookAtEachFinds) {
  std::mt19937 random(20);
  for (int round = 0; round < 2000; ++round) {
    std::vector<RowCell> row;
    for (std::int32_t x = -4; x < 8; ++x) {
      for (unsigned count = random() % 4; count > 1; --count) {
        row.push_back({x, static_cast<std::int32_t>(row.size())});
      }
    }
    for (std::int32_t x = -6; x < 10; ++x) {
      const auto found =
          std::find_if(row.begin(), row.end(), [x](const RowCell& cell) { return cell.x == x; });
      EXPECT_EQ(find(row, x), found == row.end() ? -1 : found->element);
    }
  }
}

Numbers sortedPlaces(const std::vector<Position>& positions) {
  Numbers places(positions.size());
  std::iota(places.begin(), places.end(), 0);
  std::stable_sort(places.begin(), places.end(), [&](std::int32_t a, std::int32_t b) {
    return positions[static_cast<std::size_t>(a)].x < positions[static_cast<std::size_t>(b)].x;
  });
  return places;
}

TEST(PlacesByColumn, OfNoPositionsAreNone) { EXPECT_EQ(placesByColumn({}, 0, 0), Numbers{}); }

TEST(PlacesByColumn, KeepTheOrderOfEqualColumnsHoweverFarTheColumnsReach) {
  std::mt19937 random(21);
  for (const std::int32_t reach : {1, 3, 50, 1000, INT32_MAX}) {
    std::uniform_int_distribution<std::int32_t> column(-reach, reach);
    std::vector<Position> positions(100);
    for (std::size_t i = 0; i < positions.size(); ++i) {
      positions[i] = {i % 3 == 2 ? positions[i - 2].x : column(random), 0};
    }
    EXPECT_EQ(placesByColumn(positions, -reach, reach), sortedPlaces(positions)) << reach;
  }
}

class RowCellsOfAnEngine : public EngineTest {};

TEST_F(RowCellsOfAnEngine, AreNotUsedAfterAReadThatThrew) {
  write(ChartFile().box(0, 1, "only"));
  engine.mSetStartLocation(0);
  EXPECT_EQ(engine.mFind(0, 0, 1), 0);
  write("h\nh\n0\n1\n0\n0\n\n2\n0 5 1 0 0 -1 -1\n9 0 0 0 0 -1 -1\n0\n");
  EXPECT_THROW(engine.mSetStartLocation(0), std::out_of_range);
  EXPECT_EQ(engine.mFind(0, 0, 1), -1);
  EXPECT_EQ(engine.mFind(0, 5, 1), 0);
}

TEST(RowCells, AsManyElementsCanBeIndexedAs32BitsCount) {
  EXPECT_TRUE(engine::canBeIndexed(0, 0, 2147483647));
  EXPECT_FALSE(engine::canBeIndexed(0, 0, 2147483648));
}

}  // namespace
}  // namespace tavrel
