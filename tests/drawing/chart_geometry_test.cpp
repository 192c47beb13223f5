#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/ChartGeometry.h"

namespace tavrel::drawing {
namespace {

std::string described(const Axis& axis) {
  std::string all;
  for (const Track& track : axis.tracks()) {
    all += std::to_string(track.cell) + ":" + std::to_string(track.start) + "|" +
           std::to_string(track.centre) + "|" + std::to_string(track.end) + " ";
  }
  return all;
}

std::string cellsWithin(const Axis& axis, std::int64_t from, std::int64_t to) {
  std::string all;
  for (auto [track, last] = axis.within(from, to); track != last; ++track) {
    all += std::to_string(track->cell) + " ";
  }
  return all;
}

TEST(Axis, StartsAtZeroWithTheFirstTrack) {
  EXPECT_EQ(described(Axis({{-7, -90, {2, 3}}}, 1)), "-7:0|2|5 ");
  EXPECT_EQ(described(Axis({}, 1)), "");
  EXPECT_EQ(Axis({}, 1).length(), 0);
}

TEST(Axis, KeepsTheDistancesOfTheLayout) {
  EXPECT_EQ(described(Axis({{0, 0, {1, 1}}, {5, 40, {1, 1}}}, 1)), "0:0|1|2 5:20|21|22 ");
}

TEST(Axis, RoundsHalfUnitsUp) {
  EXPECT_EQ(described(Axis({{0, 0, {0, 1}}, {5, 15, {0, 1}}}, 1)), "0:0|0|1 5:8|8|9 ");
}

TEST(Axis, WidensTheDistanceByWhatTracksNeed) {
  EXPECT_EQ(described(Axis({{0, 0, {1, 9}}, {5, 4, {3, 1}}}, 1)), "0:0|1|10 5:10|13|14 ");
}

TEST(Axis, LetsTheTracksOfNeighboursTouch) {
  EXPECT_EQ(described(Axis({{0, 0, {0, 1}}, {1, 12, {0, 1}}}, 1)), "0:0|0|3 1:3|6|7 ");
}

TEST(Axis, TakesTheFurthestReachOfEachTrack) {
  EXPECT_EQ(described(Axis({{0, 0, {4, 1}}, {0, 0, {1, 6}}, {0, 0, {2, 2}}}, 1)), "0:0|4|10 ");
}

TEST(Axis, SortsItsTracks) {
  EXPECT_EQ(described(Axis({{2, 20, {0, 1}}, {-2, -20, {0, 1}}, {0, 0, {0, 1}}}, 1)),
            "-2:0|0|1 0:10|10|11 2:20|20|21 ");
}

TEST(Axis, MeasuresInTheUnitsItIsGiven) {
  EXPECT_EQ(described(Axis({{0, 0, {0, 1}}, {2, 15, {0, 1}}}, 8)), "0:0|0|1 2:60|60|61 ");
}

TEST(Axis, FindsTheTrackOfACell) {
  const Axis axis({{-3, -30, {0, 1}}, {4, 40, {0, 1}}}, 1);
  ASSERT_NE(axis.find(4), nullptr);
  EXPECT_EQ(axis.find(4)->centre, 35);
  EXPECT_EQ(axis.find(0), nullptr);
  EXPECT_EQ(axis.find(5), nullptr);
}

TEST(Axis, FindsTheTracksThatShow) {
  const Axis axis({{0, 0, {0, 2}}, {2, 20, {0, 2}}, {4, 40, {0, 2}}}, 1);
  EXPECT_EQ(cellsWithin(axis, 0, 22), "0 2 4 ");
  EXPECT_EQ(cellsWithin(axis, 1, 11), "0 2 ");
  EXPECT_EQ(cellsWithin(axis, 2, 10), "");
  EXPECT_EQ(cellsWithin(axis, 11, 12), "2 ");
  EXPECT_EQ(cellsWithin(axis, 12, 20), "");
  EXPECT_EQ(cellsWithin(axis, 90, 99), "");
}

TEST(Axis, HoldsTracksAtTheEndsOfTheIntegers) {
  const std::int64_t far = INT32_MAX;
  const Axis axis({{-far - 1, -far, {0, 1}}, {far, far, {0, 1}}}, 1);
  EXPECT_EQ(axis.tracks().size(), 2U);
  EXPECT_EQ(axis.length(), far + 1);
}

}  // namespace
}  // namespace tavrel::drawing
