// Sets of cells, and finding them by their places.

#include "authoring/CellSet.h"

#include <gtest/gtest.h>

#include "authoring/CellIndex.h"

namespace tavrel::authoring {
namespace {

TEST(CellSet, HoldsWhatWasInsertedAndNothingElse) {
  CellSet cells;
  EXPECT_FALSE(cells.holds({0, 0}));
  EXPECT_TRUE(cells.insert({0, 0}));
  EXPECT_TRUE(cells.insert({-1, 5}, 3));
  EXPECT_FALSE(cells.insert({-1, 5}, 3));
  EXPECT_TRUE(cells.holds({0, 0}));
  EXPECT_FALSE(cells.holds({0, 0}, 1));
  EXPECT_FALSE(cells.holds({-1, 5}));
  EXPECT_FALSE(cells.holds({5, -1}, 3));
  EXPECT_EQ(cells.size(), 2U);
}

TEST(CellSet, KeepsAllOfMany) {
  CellSet cells;
  for (int x = -100; x < 100; ++x) {
    for (int y = -10; y < 10; ++y) EXPECT_TRUE(cells.insert({x, y}));
  }
  EXPECT_EQ(cells.size(), 4000U);
  EXPECT_TRUE(cells.holds({-100, -10}));
  EXPECT_TRUE(cells.holds({99, 9}));
  EXPECT_FALSE(cells.holds({100, 9}));
}

TEST(CellIndex, FindsTheFirstOfThoseThatShareAPlace) {
  CellIndex index;
  for (const Cell& cell : {Cell{3, 0}, Cell{-2, 7}, Cell{3, 0}}) index.add(cell);
  index.finish();
  EXPECT_EQ(index.find({3, 0}), 0);
  EXPECT_EQ(index.find({-2, 7}), 1);
  EXPECT_EQ(index.find({3, 1}), CellIndex::none);
  EXPECT_EQ(index.find({9, 9}), CellIndex::none);
}

}  // namespace
}  // namespace tavrel::authoring
