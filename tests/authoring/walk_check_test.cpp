// What is said of cells that can't be walked.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/authoring/Charts.h"

namespace tavrel::authoring {
namespace {

using Said = std::vector<std::string>;

TEST(WalkCheck, SaysNothingOfExitsThatLeadToBoxesInEachDirection) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "0 1 0 0 0 2 1", "0 0 1 0 0 0 3", "2 1 -1 0 0 -1 -1",
                         "1 2 0 0 0 -1 -1", "1 0 2 0 0 -1 -1", "2 -1 1 0 0 -1 -1"}),
            (Said{"23:1 T0607", "24:1 T0607"}));
}

TEST(WalkCheck, SaysNothingOfLinesThatTurnAndGoBack) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "1 1 1 0 0 -1 -1", "1 0 1 0 0 -1 -1"}, {"0 0 0 1 0 1 0"}),
            (Said{"22:1 T0608"}));
}

TEST(WalkCheck, WantsTheRootAtTheOrigin) {
  EXPECT_EQ(saidOfCells({"1 0 1 0 0 -1 -1"}), (Said{"22:3 T0501"}));
}

TEST(WalkCheck, FindsCellsOnOnePlaceWhateverTheyAre) {
  EXPECT_EQ(saidOfCells({"1 0 0 0 0 -1 -1", "1 0 0 0 0 -1 -1"}, {"0 0 0 1 1 0 0"}),
            (Said{"23:3 T0502", "25:9 T0503", "25:11 T0502"}));
}

TEST(WalkCheck, FindsExitsAndLinesThatLeadNowhere) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0"}, {"0 0 0 1 1 1 0"}), (Said{"22:13 T0503", "24:9 T0503"}));
}

TEST(WalkCheck, GoesToTheEdgeOfTheGridAndNotBeyond) {
  const std::string edge = "2147483647";
  const Said said = saidOfCells({"0 0 0 0 0 1 -1", "1 1 0 0 0 -1 -1"},
                                {"0 0 0 1 1 " + edge + " 0", "0 0 0 3 3 -2147483648 0"});
  EXPECT_EQ(said, (Said{"25:11 T0509"}));
}

TEST(WalkCheck, FindsALineIntoAnother) {
  // The yes of (1, 0) comes down to (1, 1) and goes left into the line below the root.
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "0 1 0 0 0 0 1", "1 2 0 0 0 -1 -1", "1 0 2 0 0 -1 -1"},
                        {"0 0 0 0 0 0 1", "0 0 0 0 3 1 1"}),
            (Said{"28:9 T0504"}));
}

TEST(WalkCheck, FindsALineThatCantBeWalkedBack) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "1 2 0 0 0 -1 -1", "1 0 1 0 0 -1 -1"}, {"0 0 0 3 1 1 0"}),
            (Said{"26:7 T0506"}));
}

TEST(WalkCheck, FindsALoopOnceAndNotTheLinesThatLeadIntoIt) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "1 0 1 0 0 -1 -1"},
                        {"0 0 0 1 1 1 0", "0 0 0 1 0 2 0", "0 0 0 0 3 2 1", "0 0 0 3 2 1 1"}),
            (Said{"25:11 T0505", "28:9 T0504"}));
}

TEST(WalkCheck, FindsTheFirstCellOfALineThatNothingLeadsTo) {
  EXPECT_EQ(saidOfCells({"1 0 0 0 0 -1 -1", "1 7 5 0 0 -1 -1"}, {"0 0 0 1 1 5 5", "0 0 0 1 1 6 5"}),
            (Said{"25:11 T0507"}));
}

TEST(WalkCheck, LooksAtTheMeaningOnlyOfWhatCanBeWalked) {
  EXPECT_EQ(saidOfCells({"1 0 0 0 0 1 -1"}), (Said{"22:11 T0503"}));
}

// Every box leads into the same long line, so that following it from each would take hours.
TEST(WalkCheck, FollowsALineOnceHoweverManyLeadIntoIt) {
  std::vector<std::string> boxes = {"0 0 0 0 0 0 -1"}, connectors;
  const int length = 200'000;
  for (int x = 0; x < length; ++x) {
    boxes.push_back("0 " + std::to_string(x + 1) + " 0 0 0 0 -1");
    connectors.push_back("0 0 0 1 1 " + std::to_string(x) + " 1");
  }
  boxes.push_back("1 " + std::to_string(length) + " 1 0 0 -1 -1");
  EXPECT_EQ(saidOfCells(boxes, connectors).size(), 10'000U);
}

// Finding the place in the line for each of the boxes would take minutes.
TEST(WalkCheck, LooksOnceForThePlaceInALongLineThatManyLeadInto) {
  const std::vector<std::string> boxes(20'000, "0 0 0 0 0 1 -1");
  const std::string zeros(1'000'000, '0');
  const std::string file = fvWith(boxes, {zeros + " 0 0 0 0 1 0"});
  const CheckedChart checked = checkChart(SourceFile("Opening.fv", file), fewCharts);
  EXPECT_EQ(checked.found.count(Severity::error), 40'000U);
}

}  // namespace
}  // namespace tavrel::authoring
