// From what a source says of hands to its conditions.

#include "hands/ConditionCompiler.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "authoring/ChartCheck.h"

namespace tavrel::hands {
namespace {

using authoring::Diagnostic;
using authoring::Diagnostics;
using authoring::SourceFile;
using Strings = std::vector<std::string>;

const authoring::Catalogue catalogue = {"Opening", "RespNT", "Stayman"};

// What is found, as "9:21 T0833".
Strings placesOf(const Diagnostics& found) {
  Strings places;
  for (const Diagnostic& each : found.sorted()) {
    places.push_back(std::to_string(each.place.line) + ":" + std::to_string(each.place.column) +
                     " " + nameOf(each.code));
  }
  return places;
}

Strings foundIn(const std::string& text) {
  Diagnostics found;
  compileWithConditions(SourceFile("Opening.yaml", text), catalogue, found);
  return placesOf(found);
}

Conditions conditionsIn(const std::string& text) {
  Diagnostics found;
  const auto chart = compileWithConditions(SourceFile("Opening.yaml", text), catalogue, found);
  EXPECT_EQ(placesOf(found), Strings{}) << text;
  return chart ? conditionsOf(*chart) : Conditions();
}

// A chart whose first lines are these.
std::string chartWith(const std::string& applies, const std::string& when = "hcp >= 12",
                      const std::string& call = "1C") {
  return "chart: Opening\n" + applies +
         "start: a\nboxes:\n  a:\n    text: Strong?\n    when: " + when +
         "\n    yes: {text: \"Bid\", call: " + call + "}\n    no: {text: \"Pass\", call: P}\n";
}

TEST(ConditionCheck, PointsToTheCharacterInAnExpression) {
  EXPECT_EQ(foundIn(chartWith("")), Strings{});
  EXPECT_EQ(foundIn(chartWith("", "15 <= hcp <= 17")), Strings{"6:21 T0833"});
  EXPECT_EQ(foundIn(chartWith("", "\"hcp >= 12\n      && HCP < 15\"")), Strings{"7:10 T0835"});
}

TEST(ConditionCheck, LooksAtEveryExpression) {
  EXPECT_EQ(foundIn(chartWith("applies: {hand: \"hcp = 3\"}\n")), Strings{"2:22 T0832"});
  EXPECT_EQ(foundIn(chartWith("", "hcp", "[{when: \"hcp + 1\", call: 1C}, {call: 1D}]")),
            (Strings{"6:11 T0837", "7:39 T0837"}));
  EXPECT_EQ(foundIn("chart: Opening\nstart: a\nboxes:\n"
                    "  a: {text: \"Bid\", call: 1C, shows: \"clubs >= 3 and hcp > 11\"}\n"),
            Strings{"4:49 T0831"});
}

TEST(ConditionCheck, PointsToTheCharacterInAPattern) {
  EXPECT_EQ(foundIn(chartWith("applies: {auction: \"P? foo\"}\n")), Strings{"2:24 T0841"});
  EXPECT_EQ(foundIn(chartWith("applies:\n  auction:\n  - P? P?\n  - 1C 1C\n")),
            Strings{"5:8 T0842"});
}

TEST(ConditionCheck, RefusesPatternsOfTooManyAuctions) {
  const std::string many =
      "(1C|1D|1H|1S|1NT) (P|X|2C|2D|2H|2S|2NT) (3C|3D|3H|3S|3NT) "
      "(P|X|4C|4D|4H|4S|4NT) (5C|5D|5H|5S|5NT)";
  EXPECT_EQ(foundIn(chartWith("applies: {auction: [\"" + many + "\", \"" + many + "\"]}\n",
                              "hcp > 3", "7C")),
            Strings{"2:123 T0843"});
}

TEST(ConditionCheck, RefusesWhatIsNoCall) {
  EXPECT_EQ(foundIn(chartWith("", "hcp > 3", "8C")), Strings{"7:30 T0840"});
  EXPECT_EQ(foundIn(chartWith("", "hcp > 3", "[{when: \"hcp > 5\", call: 1C}, {call: sign-off}]")),
            Strings{"7:67 T0840"});
}

TEST(ConditionCheck, RefusesCallsThatNoAuctionAllows) {
  EXPECT_EQ(foundIn(chartWith("applies: {auction: \"(1D|1H) P\"}\n", "hcp > 3", "1C")),
            Strings{"8:30 T0844"});
  EXPECT_EQ(foundIn(chartWith("applies: {auction: \"(1D|1H) P\"}\n", "hcp > 3", "X")),
            Strings{"8:30 T0844"});
  EXPECT_EQ(foundIn(chartWith("applies: {auction: [\"1D P\", \"P P\"]}\n", "hcp > 3", "1C")),
            Strings{});
}

TEST(ConditionCheck, TrustsNoAuctionsOfWhichOneIsWrong) {
  EXPECT_EQ(foundIn(chartWith("applies: {auction: [\"1D P\", \"P P foo\"]}\n", "hcp > 3", "1C")),
            Strings{"2:34 T0841"});
  EXPECT_EQ(foundIn(chartWith("applies: {hand: \"hcp > 5\"}\n", "hcp > 3", "X")), Strings{});
}

TEST(ConditionCheck, LooksAtASourceThatHasOtherErrors) {
  const std::string text =
      "chart: Opening\nstart: b\nboxes:\n"
      "  a: {text: \"Bid\", call: 9C, coment: x}\n"
      "  c: {text: \"Five?\", when: \"hcp = 5\", yes: a, no: d}\n";
  const Strings found = foundIn(text);
  EXPECT_EQ(std::count(found.begin(), found.end(), "4:26 T0840"), 1)
      << testing::PrintToString(found);
  EXPECT_EQ(std::count(found.begin(), found.end(), "5:33 T0832"), 1)
      << testing::PrintToString(found);
  EXPECT_GE(found.size(), 4U);
  EXPECT_EQ(foundIn("- nothing\n").size(), 1U);
}

TEST(ConditionCheck, IsPartOfTheCheckOfASource) {
  const SourceFile file("Opening.yaml", chartWith("", "hcp = 3"));
  const Diagnostics found = authoring::checkChart(file, catalogue, checkConditions).found;
  const Strings places = placesOf(found);
  EXPECT_EQ(std::count(places.begin(), places.end(), "6:15 T0832"), 1);
}

// --- conditions -------------------------------------------------------------------

TEST(ConditionCompiler, KnowsWhetherASourceSaysAnythingOfHands) {
  const auto says = [](const std::string& text) {
    Diagnostics found;
    return hasConditions(
        compileWithConditions(SourceFile("Opening.yaml", text), catalogue, found)->source);
  };
  EXPECT_TRUE(says(chartWith("")));
  EXPECT_FALSE(says("chart: Opening\nstart: a\nboxes:\n  a: {text: \"Bid\"}\n"));
}

TEST(ConditionCompiler, TakesOverWhatTheSourceSaysOfTheChart) {
  const Conditions conditions = conditionsIn(
      chartWith("applies: {auction: [\"P? P?\", \"P P P\", \"P\"], hand: \"hcp >= 6\"}\n"));
  EXPECT_EQ(conditions.chart, "Opening");
  EXPECT_EQ(conditions.patterns, (Strings{"P? P?", "P P P", "P"}));
  Strings auctions;
  for (const Auction& auction : conditions.auctions) auctions.push_back(written(auction));
  EXPECT_EQ(auctions, (Strings{"", "P", "P P", "P P P"}));
  EXPECT_EQ(conditions.hand, "hcp >= 6");
}

TEST(ConditionCompiler, HasTheDigestOfTheFlowchartFile) {
  Diagnostics found;
  const auto chart =
      compileWithConditions(SourceFile("Opening.yaml", chartWith("")), catalogue, found);
  EXPECT_EQ(conditionsOf(*chart).digest, digestOf(chart->bytes));
}

TEST(ConditionCompiler, TakesOverWhatTheSourceSaysOfBoxes) {
  const Conditions conditions = conditionsIn(
      "chart: Opening\nstart: a\nboxes:\n"
      "  a: {text: \"Five?\", when: \"hcp >= 12\", yes: b, no: c, never: {no: \"all have\"}}\n"
      "  b: {text: \"Upgrade?\", asks: judgement, yes: c, no: d}\n"
      "  c: {text: \"Bid\", call: [{when: \"spades >= 5\", call: 1S}, {call: 1H}],\n"
      "      shows: \"hcp > 3\", forcing: game, chart: RespNT, next: partner}\n"
      "  d: {text: \"Pass\", call: pass}\n");
  ASSERT_EQ(conditions.boxes.size(), 4U);
  EXPECT_EQ(conditions.boxes[0].id, "a");
  EXPECT_EQ(conditions.boxes[0].when, "hcp >= 12");
  EXPECT_FALSE(conditions.boxes[0].asksJudgement);
  EXPECT_EQ(conditions.boxes[0].never.yes, std::nullopt);
  EXPECT_EQ(conditions.boxes[0].never.no, "all have");
  EXPECT_TRUE(conditions.boxes[1].asksJudgement);
  EXPECT_EQ(conditions.boxes[1].when, std::nullopt);
  const BoxConditions& end = conditions.boxes[2];
  ASSERT_EQ(end.calls.size(), 2U);
  EXPECT_EQ(end.calls[0].when, "spades >= 5");
  EXPECT_EQ(nameOf(end.calls[0].call), "1S");
  EXPECT_EQ(end.calls[1].when, std::nullopt);
  EXPECT_EQ(end.shows, "hcp > 3");
  EXPECT_EQ(end.forcing, Forcing::game);
  EXPECT_EQ(end.next, Next::partner);
  EXPECT_EQ(conditions.boxes[3].calls[0].call, Call::pass);
  EXPECT_EQ(conditions.boxes[3].forcing, std::nullopt);
}

TEST(ConditionCompiler, LeavesOutBoxesOfWhichNothingIsSaid) {
  const Conditions conditions = [] {
    Diagnostics found;
    return conditionsOf(
        *compileWithConditions(SourceFile("Opening.yaml",
                                          "chart: Opening\nstart: a\nboxes:\n"
                                          "  a: {text: \"Five?\", yes: b, no: c}\n"
                                          "  b: {text: \"Bid\"}\n  c: {text: \"Pass\", call: P}\n"),
                               catalogue, found));
  }();
  ASSERT_EQ(conditions.boxes.size(), 1U);
  EXPECT_EQ(conditions.boxes[0].id, "c");
}

// An end that several answers lead to stands at each of them.
TEST(ConditionCompiler, NamesAllCellsOfABoxAndNoOther) {
  std::string text = "chart: Opening\nstart: q0\nboxes:\n  end: {text: \"Pass\", call: P}\n";
  for (int i = 0; i < 8; ++i) {
    const std::string next = i < 7 ? "q" + std::to_string(i + 1) : "end";
    text += "  q" + std::to_string(i) + ": {text: \"Is it " + std::to_string(i) +
            "?\", when: \"hcp == " + std::to_string(i) + "\", yes: end, no: " + next + "}\n";
  }
  Diagnostics found;
  const auto chart = compileWithConditions(SourceFile("Opening.yaml", text), catalogue, found);
  ASSERT_TRUE(chart);
  std::map<std::string, std::vector<Cell>> cells;
  for (const authoring::PlacedBox& placed : chart->grid.boxes) {
    cells[chart->source[placed.box].id].push_back({placed.cell.x, placed.cell.y});
  }
  EXPECT_GT(cells["end"].size(), 1U);
  const Conditions conditions = conditionsOf(*chart);
  ASSERT_EQ(conditions.boxes.size(), 9U);
  for (const BoxConditions& box : conditions.boxes) {
    std::sort(cells[box.id].begin(), cells[box.id].end());
    EXPECT_EQ(box.cells, cells[box.id]) << box.id;
  }
}

}  // namespace
}  // namespace tavrel::hands
