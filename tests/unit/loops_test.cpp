// Lines that never reach a box: they end in an exception, at an exact cell.

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class Loops : public EngineTest {
 protected:
  // Five cells. From the root toward larger x onto a ring of four:
  //   0 2 .      (1,0) -> (2,0)
  //     1 3        ^        v
  //              (1,1) <- (2,1)
  static ChartFile ring() {
    return ChartFile()
        .box(0, 0, "Root", xPlus, xPlus)
        .line(1, 1, xMinus, yMinus)
        .line(1, 0, xPlus, xPlus)
        .line(2, 1, yPlus, xMinus)
        .line(2, 0, xPlus, yPlus);
  }
  void expectToThrow(void (CTavrel::*move)()) {
    EXPECT_EQ(typeThrown([&] { (engine.*move)(); }), "out_of_range");
  }
};

// Onto (1,0); then as many steps as there are cells, and one more: (2,0) (2,1) (1,1) (1,0) (2,0)
// (2,1).
const std::string ringEnd = "2,1 #3";

TEST_F(Loops, AMoveAlongAnExitEndsAfterOneStepMoreThanThereAreCells) {
  select(ring());
  for (void (CTavrel::*move)() : {&CTavrel::mMoveYes, &CTavrel::mMoveNo, &CTavrel::mMoveXPlus}) {
    engine.mSetStartLocation(0);
    expectToThrow(move);
    EXPECT_EQ(cursor(), ringEnd);
  }
}

TEST_F(Loops, PreparingAPathKeepsTheMarksOfEveryCellPassed) {
  write(ring());
  EXPECT_EQ(typeThrown([&] { engine.mStartNewPath(0, "yny"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 Opening 2,1 #3 path=\"\" marks=0,1,2,3,4");
}

TEST_F(Loops, AMoveAlongThePathEndsToo) {
  select(ring());
  EngineAccess::screenElements(engine).at(0).at(0).m_isOnPath = true;
  EngineAccess::screenElements(engine).at(0).at(2).m_isOnPath = true;
  expectToThrow(&CTavrel::mMoveOnPath);
  EXPECT_EQ(cursor(), ringEnd);
}

TEST_F(Loops, AMoveBackEndsAtTheCellItHasReached) {
  // The line into the root, walked backward, goes round a ring:
  // (1,0) was entered from (2,0), that from (2,1), that from (1,1), that from (1,0).
  select(ChartFile()
             .box(0, 0, "Root")
             .line(1, 0, xMinus, xMinus)
             .line(2, 0, yMinus, xMinus)
             .line(2, 1, xPlus, yMinus)
             .line(1, 1, yPlus, xPlus));
  expectToThrow(&CTavrel::mMoveXPlus);
  EXPECT_EQ(cursor(), "2,1 #3");  // (2,0) (2,1) (1,1) (1,0) (2,0) (2,1)
}

TEST_F(Loops, ACellThatStepsNowhereEndsWhereItStands) {
  for (const std::int32_t nowhere : {none, -1, 7}) {
    write(ChartFile().box(0, 0, "Root", yPlus).line(0, 1, yPlus, nowhere));
    CTavrel fresh(directory.prefix());
    EXPECT_EQ(typeThrown([&] { fresh.mStartNewPath(0, "y"); }), "out_of_range");
    EXPECT_EQ(describe(fresh), "0 Opening 0,1 #1 path=\"\" marks=0,1");
  }
}

TEST_F(Loops, TheFirstOfTwoCellsInOnePlaceIsTheOneThatStepsNowhere) {
  write(ChartFile().box(0, 0, "Root", xPlus).line(1, 0, xPlus, none).line(1, 0, xPlus, xPlus));
  EXPECT_EQ(typeThrown([&] { engine.mStartNewPath(0, "y"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 Opening 1,0 #1 path=\"\" marks=0,1");
}

TEST_F(Loops, ACellThatWasEnteredFromNowhereEndsAMoveBackWhereItStands) {
  select(ChartFile().box(0, 0, "Root").line(0, -1, none, yPlus));
  expectToThrow(&CTavrel::mMoveYMinus);
  EXPECT_EQ(cursor(), "0,-1 #1");
}

TEST_F(Loops, TwoCellsThatPointAtEachOtherEndByTheCountOfAllCells) {
  // Four cells, one of them apart: onto (1,0), then five steps to and fro.
  select(ChartFile()
             .box(0, 0, "Root", xPlus)
             .box(9, 9, "Apart")
             .line(1, 0, 1, xPlus)
             .line(2, 0, 1, xMinus));
  expectToThrow(&CTavrel::mMoveYes);
  EXPECT_EQ(cursor(), "2,0 #3");
}

TEST_F(Loops, ALineThroughEveryCellOfTheChartReachesItsBox) {
  select(ChartFile().box(0, 0, "Root", xPlus).box(301, 0, "End").run(1, 0, xPlus, 300));
  engine.mMoveYes();
  EXPECT_EQ(cursor(), "301,0 #1");
  engine.mMoveXMinus();
  EXPECT_EQ(cursor(), "0,0 #0");
}

TEST_F(Loops, ALineThatComesBackToItsOwnBoxIsNoLoop) {
  select(ChartFile()
             .box(0, 0, "Root", xPlus)
             .line(1, 0, xPlus, yPlus)
             .line(1, 1, yPlus, xMinus)
             .line(0, 1, xMinus, yMinus));
  engine.mMoveYes();
  EXPECT_EQ(cursor(), "0,0 #0");
}

TEST_F(Loops, AnswersMayGoRoundAsOftenAsTheyLike) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "Back", xMinus));
  engine.mStartNewPath(0, std::string(10000, 'y') + "n");
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"n\" marks=0,1");
}

TEST_F(Loops, ACursorLeftOnALineGoesOnFromThere) {
  select(ring());
  expectToThrow(&CTavrel::mMoveYes);
  // A line cell has no exits; a grid move looks at the neighbour alone.
  engine.mMoveYes();
  EXPECT_EQ(cursor(), ringEnd);
  engine.mMoveRoot();
  EXPECT_EQ(cursor(), "0,0 #0");
}

}  // namespace
}  // namespace tavrel
