// Charts that hands walk: their boxes, exits and conditions.

#include "hands/HandChart.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::hands {
namespace {

// A question at 0,0 whose yes leads to a box at 2,0, and whose no leads down.
const std::string header =
    "Opening\nTavrel flowchart\n0\n2 nodes\n1 line\n12+ HCP?\n0 lines\n\n"
    "1 line\nPass\n0 lines\n\n";
const std::string boxes = "2 box cells\n0 0 0 0 0 1 -1\n1 2 0 0 0 -1 -1\n";
const std::string line = "1 connector cell\n0 0 0 1 1 1 0\n";

std::variant<HandChart, std::string> chartOf(const std::string& file, Conditions conditions = {}) {
  const TemporaryDirectory folder;
  writeFile(folder.chart("Opening"), file);
  Tavrel navigator(folder.path());
  navigator.resetToStartLocationForFlowchartAtIndex(navigator.indexOfFlowchartWithTitle("Opening"));
  return HandChart::of(navigator.allElements(), std::move(conditions));
}

std::string faultOf(const std::string& file, Conditions conditions = {}) {
  const auto chart = chartOf(file, std::move(conditions));
  const auto* const fault = std::get_if<std::string>(&chart);
  return fault == nullptr ? "none" : *fault;
}

Conditions conditionsAt(Cell cell, const std::string& id) {
  Conditions conditions;
  conditions.boxes.push_back({{cell}, id, {}, true, {}, {}, {}, {}, {}});
  return conditions;
}

TEST(HandChart, FollowsLinesToTheirBoxes) {
  const auto chart = chartOf(header + boxes + line);
  ASSERT_TRUE(std::holds_alternative<HandChart>(chart)) << std::get<std::string>(chart);
  const auto& made = std::get<HandChart>(chart);
  ASSERT_EQ(made.boxes().size(), 2U);
  EXPECT_EQ(made[0].exits.yes, 1U);
  EXPECT_EQ(made[0].exits.no, noBox);
  EXPECT_TRUE(made[1].isEnd());
  EXPECT_EQ(made.at({2, 0}), 1U);
  EXPECT_EQ(made.at({1, 0}), noBox);
}

TEST(HandChart, NamesABoxByItsIdOrElseByItsText) {
  const auto chart = chartOf(header + boxes + line, conditionsAt({0, 0}, "strong"));
  EXPECT_EQ(std::get<HandChart>(chart).nameOf(0), "strong");
  EXPECT_EQ(std::get<HandChart>(chart).nameOf(1), "\"Pass\"");
}

TEST(HandChart, SaysWhereALineLeadsToNoBox) {
  EXPECT_EQ(faultOf(header + boxes + "0 connector cells\n"), "a line from 0,0 leads to no box");
  const std::string apart = "2 box cells\n0 0 0 0 0 1 -1\n1 5 5 0 0 -1 -1\n";
  EXPECT_EQ(faultOf(header + apart +
                    "4 connector cells\n0 0 0 1 1 1 0\n0 0 0 1 0 2 0\n"
                    "0 0 0 0 3 2 1\n0 0 0 3 2 1 1\n"),
            "a line from 0,0 leads to no box");
}

TEST(HandChart, SaysThatATextIsNoText) {
  std::string file = header + boxes + line;
  file.replace(file.find("Pass"), 4, "P\xFFss");
  EXPECT_EQ(faultOf(file), "the text of the box at 2,0 is not UTF-8");
}

TEST(HandChart, SaysWhereConditionsHaveNoBox) {
  EXPECT_EQ(faultOf(header + boxes + line, conditionsAt({7, 1}, "lost")),
            "it has conditions for 7,1, where no box is");
}

TEST(HandChart, NeedsABoxAtTheRoot) {
  const auto chart = HandChart::of({}, {});
  EXPECT_EQ(std::get<std::string>(chart), "there is no box at 0,0");
}

}  // namespace
}  // namespace tavrel::hands
