// Where boxes stand, and which way their lines go.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "authoring/Layout.h"
#include "tests/authoring/Grid.h"
#include "tests/authoring/RandomGraph.h"

namespace tavrel::authoring {
namespace {

using Picture = std::vector<std::string>;

Layout laidOut(const ChartGraph& graph) {
  const auto outcome = layOut(graph);
  const auto* const layout = std::get_if<Layout>(&outcome);
  if (layout == nullptr) {
    ADD_FAILURE() << "no layout";
    return {};
  }
  EXPECT_EQ(GridCheck(layout->chart, graph).fault(), "");
  return *layout;
}

std::ptrdiff_t timesOf(BoxNumber box, const Layout& layout) {
  return std::count_if(layout.chart.boxes.begin(), layout.chart.boxes.end(),
                       [box](const PlacedBox& each) { return each.box == box; });
}

Picture picture(const ChartGraph& graph) { return pictureOf(laidOut(graph).chart); }

TEST(Layout, OfOneBoxIsThatBox) { EXPECT_EQ(picture(graphOf({{-1, -1}})), (Picture{"0"})); }

TEST(Layout, PutsYesBesideAndNoBelow) {
  EXPECT_EQ(picture(graphOf({{1, 2}, {-1, -1}, {-1, -1}})), (Picture{"01",  //
                                                                     "|",   //
                                                                     "2"}));
}

TEST(Layout, TurnsABoxThatIsToldTo) {
  ChartGraph graph = graphOf({{1, 2}, {-1, -1}, {-1, -1}});
  graph.boxes[0].turn = Turn::down;
  EXPECT_EQ(picture(graph), (Picture{"02",  //
                                     "|",   //
                                     "1"}));
}

TEST(Layout, PacksSubtreesByTheirOutlines) {
  // What hangs below 0 moves up beside what hangs below 1, one column further.
  EXPECT_EQ(picture(graphOf({{1, 2}, {-1, 3}, {-1, 5}, {-1, 4}, {-1, -1}, {-1, -1}})),
            (Picture{"01",  //
                     "||",  //
                     "23",  //
                     "||",  //
                     "54"}));
}

TEST(Layout, KeepsSubtreesApart) {
  EXPECT_EQ(picture(graphOf({{1, 2}, {-1, 3}, {4, -1}, {-1, -1}, {-1, -1}})), (Picture{"01",  //
                                                                                       "||",  //
                                                                                       "|3",  //
                                                                                       "24"}));
}

TEST(Layout, RepeatsAnEndThatSeveralLeadTo) {
  const Layout layout = laidOut(graphOf({{1, 2}, {-1, -1}, {1, 1}}));
  EXPECT_EQ(pictureOf(layout.chart), (Picture{"01",  //
                                              "|",   //
                                              "21",  //
                                              "|",   //
                                              "1"}));
  EXPECT_TRUE(layout.repeated.empty());
}

TEST(Layout, DrawsALineToABoxThatSeveralLeadTo) {
  const Layout layout =
      laidOut(graphOf({{1, 2}, {-1, -1}, {3, 4}, {-1, 4}, {5, 6}, {-1, -1}, {-1, -1}}));
  EXPECT_EQ(pictureOf(layout.chart), (Picture{"0-1",    //
                                              "|",      //
                                              "2-3",    //
                                              "| |",    //
                                              "+-4-5",  //
                                              "  |",    //
                                              "  6"}));
  EXPECT_TRUE(layout.repeated.empty());
}

TEST(Layout, TakesABoxWithOneExitForNoEnd) {
  EXPECT_EQ(laidOut(graphOf({{1, 2}, {-1, 3}, {1, -1}, {-1, -1}})).chart.boxes.size(), 4U);
}

TEST(Layout, DrawsALineBackToAnEarlierBox) {
  EXPECT_EQ(picture(graphOf({{1, 2}, {-1, 0}, {-1, -1}})), (Picture{"+-+",  //
                                                                    "0-1",  //
                                                                    "|",    //
                                                                    "2"}));
}

TEST(Layout, DrawsALineFromABoxToItself) {
  EXPECT_EQ(
      GridCheck(laidOut(graphOf({{0, 1}, {-1, -1}})).chart, graphOf({{0, 1}, {-1, -1}})).fault(),
      "");
}

TEST(Layout, RepeatsWhatNoLineLeadsTo) {
  // Five questions lead to 6, which has but two free sides.
  const ChartGraph graph =
      graphOf({{6, 1}, {6, 2}, {6, 3}, {6, 4}, {6, 5}, {-1, -1}, {7, 8}, {-1, -1}, {-1, -1}});
  const Layout layout = laidOut(graph);
  EXPECT_EQ(layout.repeated, (std::vector<BoxNumber>{6}));
}

// So many questions in a column lead to one behind them, which has two exits.
ChartGraph hub(BoxNumber questions) {
  ChartGraph graph;
  for (BoxNumber box = 0; box < questions; ++box) {
    graph.boxes.push_back({{questions + 1, box + 1}});
  }
  graph.boxes.resize(graph.boxes.size() + 4);
  graph[questions + 1].exits = {questions + 2, questions + 3};
  return graph;
}

TEST(Layout, RepeatsABoxOnceForEveryTwoThatLeadToIt) {
  for (const BoxNumber questions : {2, 3, 4, 8, 15, 200}) {
    EXPECT_EQ(timesOf(questions + 1, laidOut(hub(questions))), (questions + 1) / 2);
  }
}

TEST(Layout, SharesACopyAmongThoseThatCanReachIt) {
  EXPECT_EQ(picture(hub(4)), (Picture{"0-+",    //
                                      "| |",    //
                                      "1-5-6",  //
                                      "| |",    //
                                      "2+7",    //
                                      "|++",    //
                                      "3-5-6",  //
                                      "| |",    //
                                      "4 7"}));
}

// Every question leads to the next and to the one behind that.
ChartGraph stairs(BoxNumber count) {
  ChartGraph graph;
  for (BoxNumber box = 0; box < count; ++box) graph.boxes.push_back({{box + 1, box + 2}});
  graph.boxes.resize(graph.boxes.size() + 2);
  return graph;
}

TEST(Layout, TurnsABoxWhereThatSavesALine) {
  EXPECT_EQ(picture(stairs(6)), (Picture{"0-1-+",      //
                                         "| | |",      //
                                         "+-2-3-+",    //
                                         "  | | |",    //
                                         "  +-4-5-7",  //
                                         "    | |",    //
                                         "    6 6"}));
  EXPECT_TRUE(laidOut(stairs(400)).repeated.empty());
}

TEST(Layout, TurnsNoBoxThatItsAuthorTurned) {
  ChartGraph graph = stairs(6);
  for (GraphBox& box : graph.boxes) box.isTurnFixed = true;
  const GridChart chart = laidOut(graph).chart;
  for (const PlacedBox& each : chart.boxes) {
    if (each.box < 6 && each.exits.yes == Direction::down) ADD_FAILURE() << each.box;
  }
}

TEST(Layout, TellsARepeatedPartOnceAndNotWhatItHolds) {
  // The same with a question behind 6: it stands more than once because 6 does.
  const Layout layout = laidOut(graphOf(
      {{6, 1}, {6, 2}, {6, 3}, {6, 4}, {6, 5}, {-1, -1}, {7, 5}, {8, 9}, {-1, -1}, {-1, -1}}));
  EXPECT_GT(timesOf(7, layout), 1);
  EXPECT_EQ(layout.repeated, (std::vector<BoxNumber>{6}));
}

TEST(Layout, TellsARepeatedPartWithinOneThatIsRepeatedByItself) {
  // 6 and 7 are both led to from everywhere, and 7 is within 6 too.
  const Layout layout = laidOut(graphOf(
      {{6, 1}, {6, 2}, {6, 3}, {7, 4}, {7, 5}, {7, -1}, {7, 8}, {8, 9}, {-1, -1}, {-1, -1}}));
  EXPECT_GT(timesOf(6, layout), 1);
  EXPECT_GT(timesOf(7, layout), timesOf(6, layout));
  EXPECT_EQ(layout.repeated, (std::vector<BoxNumber>{6, 7}));
}

// Questions in a column, so many of which lead back to the root.
ChartGraph leadingBack(BoxNumber count) {
  ChartGraph graph = graphOf({{count + 1, 1}});
  for (BoxNumber box = 1; box <= count; ++box) graph.boxes.push_back({{0, box + 1}, Turn::right});
  graph.boxes.push_back({});
  return graph;
}

TEST(Layout, DrawsTwoLinesBackToTheTwoFreeSidesOfTheRoot) {
  laidOut(leadingBack(1));
  laidOut(leadingBack(2));
}

TEST(Layout, HasNoWayForAThird) {
  const auto outcome = layOut(leadingBack(3));
  const auto* const problem = std::get_if<NoWayBack>(&outcome);
  ASSERT_NE(problem, nullptr);
  EXPECT_EQ(problem->from, 3);
  EXPECT_EQ(problem->to, 0);
}

TEST(Layout, SaysWhichLineBackHasNoWay) {
  // Every box leads back to the root, which has two exits and four sides.
  const auto outcome = layOut(graphOf({{1, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {0, -1}, {0, -1}}));
  const auto* const problem = std::get_if<NoWayBack>(&outcome);
  ASSERT_NE(problem, nullptr);
  EXPECT_EQ(problem->to, 0);
}

TEST(Layout, LeavesOutWhatCannotBeReached) {
  EXPECT_EQ(picture(graphOf({{1, -1}, {-1, -1}, {1, -1}})), (Picture{"01"}));
}

TEST(Layout, StartsAtTheRootWhereverItStandsInTheSource) {
  ChartGraph graph = graphOf({{-1, -1}, {0, 2}, {-1, -1}});
  graph.root = 1;
  EXPECT_EQ(picture(graph), (Picture{"10",  //
                                     "|",   //
                                     "2"}));
}

// Questions in a chain, each of which leads to the next by yes and by no.
ChartGraph ladder(BoxNumber count) {
  ChartGraph graph;
  for (BoxNumber box = 0; box < count; ++box)
    graph.boxes.push_back({{box + 1, box + 1}, Turn::right});
  graph.boxes.push_back({});
  return graph;
}

TEST(Layout, DrawsChainsThatBothAnswersFollow) { laidOut(ladder(40)); }

// Every box of a layer leads to two of the next, so that copies would double from layer to
// layer.
ChartGraph layers(BoxNumber count, BoxNumber width) {
  ChartGraph graph;
  const BoxNumber last = count * width;
  for (BoxNumber box = 0; box < last; ++box) {
    const BoxNumber next = (box / width + 1) * width;
    graph.boxes.push_back(
        {{next + (box * 7 + 1) % width, next + (box * 3 + 2) % width}, Turn::right});
  }
  for (BoxNumber end = 0; end < width; ++end) graph.boxes.push_back({});
  return graph;
}

TEST(Layout, EndsWhereCopiesWouldTakeTooManyCells) {
  const auto outcome = layOut(layers(30, 8));
  const auto* const problem = std::get_if<TooManyCells>(&outcome);
  ASSERT_NE(problem, nullptr);
  EXPECT_GT(problem->times, 1U);
}

// Every question leads to the next, and to the fifth behind it: each can be reached in more ways
// than the one before.
ChartGraph forks(BoxNumber count) {
  ChartGraph graph;
  for (BoxNumber box = 0; box < count; ++box) {
    graph.boxes.push_back({{box + 1, box + 5}, Turn::right});
  }
  for (int end = 0; end < 5; ++end) graph.boxes.push_back({});
  return graph;
}

TEST(Layout, TakesAThousandCellsInASmallChartAndNoMore) {
  std::size_t mostCells = 0;
  BoxNumber count = 1;
  auto outcome = layOut(forks(count));
  for (; std::holds_alternative<Layout>(outcome) && count < 100; outcome = layOut(forks(++count))) {
    mostCells = std::max(mostCells, std::get<Layout>(outcome).chart.boxes.size());
  }
  const auto boxes = static_cast<std::size_t>(count) + 5;
  EXPECT_LE(mostCells, 1000U);
  EXPECT_GT(mostCells, 8 * boxes);
  const auto* const problem = std::get_if<TooManyCells>(&outcome);
  ASSERT_NE(problem, nullptr);
  EXPECT_GE(problem->times * boxes, 1000U);  // no box stands there more often
}

TEST(Layout, TakesEightCellsForEachBoxOfALargeChart) {
  // The small chart that needs most, beside others that need one cell each.
  const auto withMore = [](BoxNumber more) {
    ChartGraph graph = forks(100);
    for (; more > 0; --more) graph.boxes.push_back({});
    return layOut(graph);
  };
  const auto times = [](const auto& outcome) { return std::get<TooManyCells>(outcome).times; };
  EXPECT_EQ(times(withMore(0)), times(withMore(20)));  // 125 boxes: a thousand cells
  EXPECT_GT(times(withMore(1000)), times(withMore(20)));
}

TEST(Layout, EndsWhereEveryBoxLeadsBack) {
  constexpr BoxNumber count = 4'000;
  ChartGraph graph;
  for (BoxNumber box = 0; box < count; ++box) {
    graph.boxes.push_back({{box / 2, box + 1}, Turn::right});
  }
  graph.boxes.push_back({});
  EXPECT_TRUE(std::holds_alternative<NoWayBack>(layOut(graph)));
}

TEST(Layout, EndsWhereLinesLeadEverywhere) {
  const ChartGraph graph = randomGraph(4'000, 2, false, 3);
  EXPECT_FALSE(std::holds_alternative<NoWayBack>(layOut(graph)));
}

}  // namespace
}  // namespace tavrel::authoring
