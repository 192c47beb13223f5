// How a chart unfolds, and what a copy holds.

#include "authoring/Unfolding.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "tests/authoring/Grid.h"

namespace tavrel::authoring {
namespace {

// A question with two ends, reached from two places: five nodes and a line.
const ChartGraph shared = graphOf({{1, 2}, {3, 4}, {1, -1}, {-1, -1}, {-1, -1}});

Unfolding unfolded(const ChartGraph& graph) { return Unfolding(graph, Hanging(graph)); }

TEST(Unfolding, CopiesAsManyNodesAsThereMayBe) {
  for (const bool isWhole : {false, true}) {
    Unfolding tree = unfolded(shared);
    ASSERT_EQ(tree.nodes().size(), 5U);
    ASSERT_EQ(tree.lines().size(), 1U);
    EXPECT_TRUE(isWhole ? tree.repeatWhole(tree.lines(), 8) : tree.repeat(tree.lines(), 8));
    EXPECT_EQ(tree.nodes().size(), 8U);
    EXPECT_TRUE(tree.lines().empty());
  }
}

TEST(Unfolding, StopsACopyBeforeTheFirstNodeTooMany) {
  for (std::size_t most = 5; most < 8; ++most) {
    for (const bool isWhole : {false, true}) {
      Unfolding tree = unfolded(shared);
      EXPECT_FALSE(isWhole ? tree.repeatWhole(tree.lines(), most)
                           : tree.repeat(tree.lines(), most));
      EXPECT_EQ(tree.nodes().size(), most);
    }
  }
}

// The same with a question behind the one that is shared.
const ChartGraph longer = graphOf({{1, 2}, {3, 4}, {1, -1}, {-1, -1}, {5, -1}, {-1, -1}});

TEST(Unfolding, LeadsFromACopyByALineToWhatFollows) {
  Unfolding tree = unfolded(longer);
  ASSERT_TRUE(tree.repeat(tree.lines(), 100));
  EXPECT_EQ(tree.nodesOf(1).size(), 2U);
  ASSERT_EQ(tree.lines().size(), 1U);
  EXPECT_EQ(tree.targetOf(tree.lines()[0]), 4);
}

TEST(Unfolding, CopiesAllThatFollowsIfAskedTo) {
  Unfolding tree = unfolded(longer);
  ASSERT_TRUE(tree.repeatWhole(tree.lines(), 100));
  EXPECT_EQ(tree.nodesOf(4).size(), 2U);
  EXPECT_TRUE(tree.lines().empty());
}

// So many questions in a column lead to one box behind them all, which has one exit or two.
ChartGraph columnTo(BoxNumber questions, bool hasTwoExits) {
  ChartGraph graph;
  for (BoxNumber box = 0; box < questions; ++box) {
    graph.boxes.push_back({{questions + 1, box + 1}});
  }
  graph.boxes.resize(graph.boxes.size() + 3);
  graph[questions + 1].exits = {questions + 2, hasTwoExits ? questions + 2 : noBox};
  return graph;
}

TEST(Unfolding, MakesOneCopyForAsManyLinesAsItHasSidesFor) {
  const ChartGraph withTwoExits = columnTo(7, true);
  Unfolding two = unfolded(withTwoExits);
  ASSERT_EQ(two.lines().size(), 6U);
  ASSERT_TRUE(two.repeat(two.lines(), 100));
  EXPECT_EQ(two.nodesOf(8).size(), 1U + 3U);
  EXPECT_EQ(two.lines().size(), 3U);
  const ChartGraph withOneExit = columnTo(7, false);
  Unfolding one = unfolded(withOneExit);
  ASSERT_TRUE(one.repeat(one.lines(), 100));
  EXPECT_EQ(one.nodesOf(8).size(), 1U + 2U);
}

TEST(Unfolding, HangsACopyFromTheLastOfTheLinesThatItIsFor) {
  const ChartGraph graph = columnTo(5, true);
  Unfolding tree = unfolded(graph);
  ASSERT_TRUE(tree.repeat(tree.lines(), 100));
  EXPECT_EQ(tree[tree[tree.nodesOf(6)[1]].parent].box, 1);
  EXPECT_EQ(tree[tree[tree.nodesOf(6)[2]].parent].box, 3);
}

TEST(Hanging, DoesNotHangABoxFromWhatComesBehindIt) {
  // 0 leads to 1 and that to 2, which leads back to 1.
  const ChartGraph graph = graphOf({{1, -1}, {2, -1}, {1, -1}});
  Hanging hanging(graph);
  EXPECT_FALSE(hanging.hang(graph, {2, Answer::yes}));
  EXPECT_EQ(hanging.of(1).box, 0);
}

}  // namespace
}  // namespace tavrel::authoring
