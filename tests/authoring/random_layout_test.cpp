// What holds of every layout.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <variant>

#include "authoring/Layout.h"
#include "tests/authoring/Grid.h"
#include "tests/authoring/RandomGraph.h"

namespace tavrel::authoring {
namespace {

TEST(RandomLayout, OfATreeHoldsTogether) {
  for (std::uint32_t seed = 0; seed < 500; ++seed) {
    const ChartGraph graph = randomGraph(1 + seed % 60, 0, false, seed);
    const auto outcome = layOut(graph);
    ASSERT_TRUE(std::holds_alternative<Layout>(outcome)) << "seed " << seed;
    const GridChart& chart = std::get<Layout>(outcome).chart;
    ASSERT_EQ(GridCheck(chart, graph).fault(), "") << "seed " << seed;
    ASSERT_EQ(chart.boxes.size(), graph.boxes.size());
  }
}

TEST(RandomLayout, WithSharedBoxesHoldsTogether) {
  for (std::uint32_t seed = 0; seed < 500; ++seed) {
    const ChartGraph graph = randomGraph(2 + seed % 60, 2 + seed % 10, false, seed);
    const auto outcome = layOut(graph);
    ASSERT_TRUE(std::holds_alternative<Layout>(outcome)) << "seed " << seed;
    const GridChart& chart = std::get<Layout>(outcome).chart;
    ASSERT_EQ(GridCheck(chart, graph).fault(), "") << "seed " << seed;
    ASSERT_LE(chart.boxes.size(), 1000U) << "seed " << seed;
  }
}

TEST(RandomLayout, WithLoopsHoldsTogetherOrNamesOne) {
  std::size_t drawn = 0;
  for (std::uint32_t seed = 0; seed < 500; ++seed) {
    const ChartGraph graph = randomGraph(2 + seed % 40, 10, true, seed);
    const auto outcome = layOut(graph);
    if (const auto* const layout = std::get_if<Layout>(&outcome)) {
      ASSERT_EQ(GridCheck(layout->chart, graph).fault(), "") << "seed " << seed;
      ++drawn;
    } else {
      ASSERT_TRUE(std::holds_alternative<NoWayBack>(outcome)) << "seed " << seed;
    }
  }
  EXPECT_GT(drawn, 350U);
}

TEST(RandomLayout, IsAlwaysTheSame) {
  const ChartGraph graph = randomGraph(80, 8, false, 5);
  const GridChart first = std::get<Layout>(layOut(graph)).chart;
  const GridChart second = std::get<Layout>(layOut(graph)).chart;
  EXPECT_EQ(pictureOf(first), pictureOf(second));
}

std::map<BoxNumber, Cell> cellsOf(const ChartGraph& graph) {
  const GridChart chart = std::get<Layout>(layOut(graph)).chart;
  std::map<BoxNumber, Cell> cells;
  for (const PlacedBox& box : chart.boxes) cells[box.box] = box.cell;
  return cells;
}

// For each box the one it hangs from, in a tree.
std::map<BoxNumber, BoxNumber> parentsOf(const ChartGraph& graph) {
  std::map<BoxNumber, BoxNumber> parents;
  for (BoxNumber box = 0; box < static_cast<BoxNumber>(graph.boxes.size()); ++box) {
    for (const Answer answer : answers) parents[graph[box].exits[answer]] = box;
  }
  return parents;
}

TEST(RandomLayout, KeepsEverySubtreeThatAnAddedEndIsNotIn) {
  for (std::uint32_t seed = 0; seed < 50; ++seed) {
    const ChartGraph before = randomGraph(40, 0, false, seed);
    ChartGraph after = before;
    const auto end = static_cast<BoxNumber>(before.boxes.size());
    BoxNumber place = static_cast<BoxNumber>(seed % 40);
    while (!before[place].isEnd())
      place = before[place].exits[before[place].exits.yes != noBox ? Answer::yes : Answer::no];
    after.boxes[static_cast<std::size_t>(place)].exits.yes = end;
    after.boxes.push_back({});
    auto parents = parentsOf(before);
    std::map<BoxNumber, bool> holdsTheEnd;
    for (BoxNumber box = place; box != 0; box = parents[box]) holdsTheEnd[box] = true;
    auto were = cellsOf(before), are = cellsOf(after);
    for (BoxNumber box = 1; box < end; ++box) {
      const BoxNumber parent = parents[box];
      if (parent == 0 || holdsTheEnd[parent]) continue;
      EXPECT_EQ(are[box].x - are[parent].x, were[box].x - were[parent].x) << "seed " << seed;
      EXPECT_EQ(are[box].y - are[parent].y, were[box].y - were[parent].y) << "seed " << seed;
    }
  }
}

}  // namespace
}  // namespace tavrel::authoring
