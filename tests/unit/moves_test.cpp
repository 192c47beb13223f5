// Moving the cursor: on the grid, along exits, along the marked path, to the root.

#include <memory>

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

using Move = void (CTavrel::*)();

struct GridMove {
  const char* name;
  Move move;
  std::int32_t direction, opposite, dx, dy;
};

const GridMove gridMoves[] = {
    {"x+", &CTavrel::mMoveXPlus, xPlus, xMinus, 1, 0},
    {"x-", &CTavrel::mMoveXMinus, xMinus, xPlus, -1, 0},
    {"y+", &CTavrel::mMoveYPlus, yPlus, yMinus, 0, 1},
    {"y-", &CTavrel::mMoveYMinus, yMinus, yPlus, 0, -1},
};

class Moves : public EngineTest {
 protected:
  /// A fresh engine on the chart's root, to which the test puts its question.
  CTavrel& selectFresh(const ChartFile& file) {
    write(file);
    fresh_ = std::make_unique<CTavrel>(directory.prefix());
    fresh_->mSetStartLocation(0);
    return *fresh_;
  }
  static std::string place(const CTavrel& on) {
    return describe(on).substr(0, describe(on).find(" path"));
  }
  static std::string at(std::int64_t x, std::int64_t y, int element) {
    return "0 Opening " + std::to_string(x) + "," + std::to_string(y) + " #" +
           std::to_string(element);
  }
  /// Makes the move on the engine, and expects nothing in it to change.
  void expectRefused(Move move) {
    const std::string before = snapshot(engine);
    (engine.*move)();
    EXPECT_EQ(snapshot(engine), before);
  }
  /// Follows a link at (1, 0) to an unknown name, with an answer left.
  void loseTheFlowchart() {
    write(ChartFile().box(0, 0, "Root", xPlus).link(1, 0, "End", "Lebensohl"));
    engine.mStartNewPath(0, "yn");
    engine.mMoveOnPath();
    EXPECT_EQ(typeThrown([this] { engine.mMoveOnPath(); }), "out_of_range");
    ASSERT_EQ(describe(engine), "-1 Opening 1,0 #1 path=\"n\" marks=?");
  }

 private:
  std::unique_ptr<CTavrel> fresh_;
};

// --- Grid moves -------------------------------------------------------------

TEST_F(Moves, AGridMoveFollowsAnExitThatWayThroughItsLineToTheNextBox) {
  for (const GridMove& grid : gridMoves) {
    for (const bool isYes : {true, false}) {
      SCOPED_TRACE(grid.name);
      CTavrel& on = selectFresh(
          ChartFile()
              .box(0, 0, "Root", isYes ? grid.direction : noExit, isYes ? noExit : grid.direction)
              .box(4 * grid.dx, 4 * grid.dy, "End")
              .run(grid.dx, grid.dy, grid.direction, 3));
      (on.*grid.move)();
      EXPECT_EQ(place(on), at(4 * grid.dx, 4 * grid.dy, 1));
    }
  }
}

TEST_F(Moves, AGridMoveGoesBackAlongALineThatArrivesFromThatSide) {
  for (const GridMove& grid : gridMoves) {
    SCOPED_TRACE(grid.name);
    // The line flows from the far box toward the root, against the move.
    CTavrel& on = selectFresh(ChartFile()
                                  .box(0, 0, "Root")
                                  .box(4 * grid.dx, 4 * grid.dy, "From", grid.opposite)
                                  .run(3 * grid.dx, 3 * grid.dy, grid.opposite, 3));
    (on.*grid.move)();
    EXPECT_EQ(place(on), at(4 * grid.dx, 4 * grid.dy, 1));
  }
}

TEST_F(Moves, AGridMoveGoesBackToABoxThatTouchesAndLeadsHere) {
  for (const GridMove& grid : gridMoves) {
    for (const bool isYes : {true, false}) {
      SCOPED_TRACE(grid.name);
      CTavrel& on = selectFresh(ChartFile()
                                    .box(0, 0, "Root")
                                    .box(grid.dx, grid.dy, "From", isYes ? grid.opposite : noExit,
                                         isYes ? noExit : grid.opposite));
      (on.*grid.move)();
      EXPECT_EQ(place(on), at(grid.dx, grid.dy, 1));
    }
  }
}

TEST_F(Moves, AGridMoveTowardAnEmptyCellOrACellThatDoesNotLeadHereChangesNothing) {
  for (const GridMove& grid : gridMoves) {
    SCOPED_TRACE(grid.name);
    CTavrel& alone = selectFresh(ChartFile().box(0, 0, "Root").box(5, 5, "Far"));
    const std::string before = snapshot(alone);
    (alone.*grid.move)();
    EXPECT_EQ(snapshot(alone), before);
    for (const std::int32_t other : {0, 1, 2, 3, 4, 5, -2}) {
      if (other == grid.opposite) continue;
      CTavrel& box =
          selectFresh(ChartFile().box(0, 0, "Root").box(grid.dx, grid.dy, "Beside", other, other));
      (box.*grid.move)();
      EXPECT_EQ(place(box), at(0, 0, 0)) << other;
      CTavrel& line =
          selectFresh(ChartFile().box(0, 0, "Root").line(grid.dx, grid.dy, grid.opposite, other));
      (line.*grid.move)();
      EXPECT_EQ(place(line), at(0, 0, 0)) << other;
    }
  }
}

TEST_F(Moves, AnExitThatWayDecidesEvenIfTheNeighbourAlsoLeadsBack) {
  // Taken as an arriving line, the cell (1, 0) would lead to the box above it.
  CTavrel& line = selectFresh(ChartFile()
                                  .box(0, 0, "Root", noExit, xPlus)
                                  .box(1, -1, "Above", yPlus)
                                  .line(1, 0, yPlus, xMinus));
  line.mMoveXPlus();
  EXPECT_EQ(place(line), at(0, 0, 0));  // followed forward, it comes back to the root
  CTavrel& box = selectFresh(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "Next", xMinus));
  box.mMoveXPlus();
  EXPECT_EQ(place(box), at(1, 0, 1));
}

TEST_F(Moves, LinesAreFollowedAroundCornersBothWays) {
  select(ChartFile()
             .box(0, 0, "Root", xPlus)
             .box(2, 3, "End", noExit, yPlus)
             .line(1, 0, xPlus, xPlus)
             .line(2, 0, xPlus, yPlus)
             .line(2, 1, yPlus, yPlus)
             .line(2, 2, yPlus, yPlus));
  engine.mMoveXPlus();
  EXPECT_EQ(cursor(), "2,3 #1");
  engine.mMoveYMinus();
  EXPECT_EQ(cursor(), "0,0 #0");
}

TEST_F(Moves, GoingBackFollowsTheWayTheLineCameNotTheWayItLeaves) {
  // Two lines merge at (2, 0); the cell there was entered from above.
  select(ChartFile()
             .box(3, 0, "End")
             .box(0, 0, "Left", xPlus)
             .box(2, -2, "Above", yPlus)
             .line(1, 0, xPlus, xPlus)
             .line(2, -1, yPlus, yPlus)
             .line(2, 0, yPlus, xPlus));
  putCursorOn(0);
  engine.mMoveXMinus();
  EXPECT_EQ(cursor(), "2,-2 #2");
}

TEST_F(Moves, AGridMoveNeverLooksBeyondTheNeighbour) {
  select(ChartFile().box(0, 0, "Root").box(2, 0, "From", xMinus));
  expectRefused(&CTavrel::mMoveXPlus);
}

TEST_F(Moves, AGridMoveIgnoresTheMarksAndLeavesThem) {
  write(ChartFile().box(0, 0, "Root", xPlus, yPlus).box(1, 0, "Yes").box(0, 1, "No"));
  engine.mStartNewPath(0, "y");
  engine.mMoveYPlus();
  EXPECT_EQ(describe(engine), "0 Opening 0,1 #2 path=\"\" marks=0,1");
}

TEST_F(Moves, TheForwardCaseHasWrittenTheCoordinatesWhenTheCellIsMissing) {
  for (const GridMove& grid : gridMoves) {
    SCOPED_TRACE(grid.name);
    CTavrel& on =
        selectFresh(ChartFile().box(0, 0, "Root", noExit, grid.direction).box(7, 7, "Far"));
    EXPECT_EQ(typeThrown([&] { (on.*grid.move)(); }), "out_of_range");
    EXPECT_EQ(place(on), at(grid.dx, grid.dy, -1));
  }
}

TEST_F(Moves, ALineThatEndsInAnEmptyCellThrowsThereBothWays) {
  select(ChartFile().box(0, 0, "Root", xPlus).line(1, 0, xPlus, xPlus).line(-1, 0, xPlus, xPlus));
  EXPECT_EQ(typeThrown([&] { engine.mMoveXPlus(); }), "out_of_range");
  EXPECT_EQ(cursor(), "2,0 #-1");
  engine.mMoveRoot();
  EXPECT_EQ(typeThrown([&] { engine.mMoveXMinus(); }), "out_of_range");
  EXPECT_EQ(cursor(), "-2,0 #-1");
}

TEST_F(Moves, ANeighbourLooksUpTheLowestOfTheCellsAtOnePlace) {
  select(ChartFile().box(0, 0, "Root").box(1, 0, "First").box(1, 0, "Second", xMinus));
  expectRefused(&CTavrel::mMoveXPlus);
}

TEST_F(Moves, ACursorOnNothingThrowsAndStays) {
  select(ChartFile().box(1, 0, "a").box(2, 0, "b"));
  engine.mMoveRoot();
  const std::string before = snapshot(engine);
  for (const Move move :
       {&CTavrel::mMoveXPlus, &CTavrel::mMoveXMinus, &CTavrel::mMoveYPlus, &CTavrel::mMoveYMinus,
        &CTavrel::mMoveYes, &CTavrel::mMoveNo, &CTavrel::mMoveOnPath}) {
    EXPECT_EQ(typeThrown([&] { (engine.*move)(); }), "out_of_range");
    EXPECT_EQ(snapshot(engine), before);
  }
}

TEST_F(Moves, CoordinatesAtTheEndsOf32BitsKeepTheirLow32Bits) {
  const struct {
    Move move;
    std::int32_t exit, x, y, toX, toY;
  } edges[] = {
      {&CTavrel::mMoveXPlus, xPlus, INT32_MAX, 0, INT32_MIN, 0},
      {&CTavrel::mMoveXMinus, xMinus, INT32_MIN, 0, INT32_MAX, 0},
      {&CTavrel::mMoveYPlus, yPlus, 0, INT32_MAX, 0, INT32_MIN},
      {&CTavrel::mMoveYMinus, yMinus, 0, INT32_MIN, 0, INT32_MAX},
  };
  for (const auto& edge : edges) {
    CTavrel& forward = selectFresh(ChartFile().box(0, 0, "Root", edge.exit).box(9, 9, "Far"));
    EngineAccess::currentLocation(forward).m_x = edge.x;
    EngineAccess::currentLocation(forward).m_y = edge.y;
    EXPECT_EQ(typeThrown([&] { (forward.*edge.move)(); }), "out_of_range");
    EXPECT_EQ(place(forward), at(edge.toX, edge.toY, -1));

    CTavrel& backward = selectFresh(ChartFile().box(0, 0, "Root").box(9, 9, "Far"));
    EngineAccess::currentLocation(backward).m_x = edge.x;
    EngineAccess::currentLocation(backward).m_y = edge.y;
    (backward.*edge.move)();
    EXPECT_EQ(place(backward), at(edge.x, edge.y, 0));
  }
}

TEST_F(Moves, OnThePlaceholderNoMoveButTheOneToTheRootDoesAnything) {
  for (const Move move :
       {&CTavrel::mMoveXPlus, &CTavrel::mMoveXMinus, &CTavrel::mMoveYPlus, &CTavrel::mMoveYMinus,
        &CTavrel::mMoveYes, &CTavrel::mMoveNo, &CTavrel::mMoveOnPath, &CTavrel::mMoveRoot}) {
    expectRefused(move);
  }
}

// --- Answer moves -----------------------------------------------------------

TEST_F(Moves, AnAnswerMoveLandsWhereTheGridMoveAlongThatExitDoes) {
  select(ChartFile()
             .box(0, 0, "Root", xPlus, yPlus)
             .box(4, 0, "Yes")
             .box(0, 2, "No")
             .run(1, 0, xPlus, 3)
             .run(0, 1, yPlus, 1));
  engine.mMoveYes();
  EXPECT_EQ(cursor(), "4,0 #1");
  engine.mMoveXMinus();
  EXPECT_EQ(cursor(), "0,0 #0");
  engine.mMoveXPlus();
  EXPECT_EQ(cursor(), "4,0 #1");
  engine.mMoveRoot();
  engine.mMoveNo();
  EXPECT_EQ(cursor(), "0,2 #2");
}

TEST_F(Moves, AnAnswerMoveWithoutThatExitChangesNothing) {
  select(ChartFile().box(0, 0, "Root", noExit, xPlus).box(1, 0, "Next", xPlus).box(2, 0, "End"));
  expectRefused(&CTavrel::mMoveYes);
  engine.mMoveNo();
  expectRefused(&CTavrel::mMoveNo);
}

TEST_F(Moves, AnAnswerMoveIgnoresTheMarksAndLeavesThem) {
  write(ChartFile().box(0, 0, "Root", xPlus, yPlus).box(1, 0, "Yes").box(0, 1, "No"));
  engine.mStartNewPath(0, "y");
  engine.mMoveNo();
  EXPECT_EQ(describe(engine), "0 Opening 0,1 #2 path=\"\" marks=0,1");
}

TEST_F(Moves, AnAnswerMoveIntoAnEmptyCellThrowsWithTheCoordinatesWritten) {
  select(ChartFile().box(0, 0, "Root", yMinus, xMinus).box(9, 9, "Far"));
  EXPECT_EQ(typeThrown([&] { engine.mMoveYes(); }), "out_of_range");
  EXPECT_EQ(cursor(), "0,-1 #-1");
  engine.mMoveRoot();
  EXPECT_EQ(typeThrown([&] { engine.mMoveNo(); }), "out_of_range");
  EXPECT_EQ(cursor(), "-1,0 #-1");
}

TEST_F(Moves, AnExitThatStepsNowhereLooksUpTheBoxesOwnPlace) {
  select(ChartFile().box(1, 0, "First", 9, -2).box(0, 0, "Origin"));
  // The cursor is on element 0 at (0, 0), where element 1 stands.
  engine.mMoveYes();
  EXPECT_EQ(cursor(), "0,0 #1");
  engine.mSetStartLocation(0);
  engine.mMoveNo();
  EXPECT_EQ(cursor(), "0,0 #1");
}

// --- Along the path ---------------------------------------------------------

TEST_F(Moves, AlongThePathGoesFromBoxToBoxAndStopsAtItsEnd) {
  write(ChartFile()
            .box(0, 0, "Root", xPlus, yPlus)
            .box(3, 0, "Middle", yPlus, xPlus)
            .box(4, 0, "End", xPlus)
            .box(5, 0, "Beyond")
            .box(0, 1, "Below")
            .box(3, 1, "Aside")
            .run(1, 0, xPlus, 2));
  engine.mStartNewPath(0, "yn");
  engine.mMoveOnPath();
  EXPECT_EQ(cursor(), "3,0 #1");
  engine.mMoveOnPath();
  EXPECT_EQ(cursor(), "4,0 #2");
  expectRefused(&CTavrel::mMoveOnPath);
}

TEST_F(Moves, AlongThePathOnAnUnmarkedBoxChangesNothing) {
  write(ChartFile()
            .box(0, 0, "Root", xPlus, yPlus)
            .box(1, 0, "Yes", xMinus)
            .link(0, 1, "No", "PGF", yMinus));
  engine.mStartNewPath(0, "y");
  engine.mMoveNo();  // its yes exit leads to the marked root, its link to another flowchart
  expectRefused(&CTavrel::mMoveOnPath);
}

TEST_F(Moves, AlongThePathTakesYesWhereBothFirstCellsAreMarked) {
  write(
      ChartFile().box(0, 0, "Root", xPlus, yPlus).box(1, 0, "Yes", xMinus).box(0, 1, "No", yMinus));
  engine.mStartNewPath(0, "yyn");
  ASSERT_EQ(marks(engine, 0), "0,1,2");
  engine.mMoveOnPath();
  EXPECT_EQ(cursor(), "1,0 #1");
}

TEST_F(Moves, AlongThePathAnOlderMarkMayWinTheTie) {
  write(ChartFile().link(0, 0, "Root", "PGF").box(1, 0, "Other"));
  write(ChartFile().box(0, 0, "Root", xPlus, yPlus).box(1, 0, "Yes").box(0, 1, "No"), "PGF");
  engine.mStartNewPath(0, "y");
  engine.mMoveOnPath();
  engine.mStartNewPath(0, "n");
  engine.mMoveOnPath();
  ASSERT_EQ(describe(engine), "44 PGF 0,0 #0 path=\"\" marks=0,1,2");
  engine.mMoveOnPath();
  EXPECT_EQ(cursor(), "1,0 #1");
}

TEST_F(Moves, AlongThePathLooksAtTheFirstCellBeyondTheBoxAlone) {
  // The yes line's first cell is unmarked though the box at its end is marked.
  write(ChartFile()
            .box(0, 0, "Root", xPlus, yPlus)
            .box(2, 0, "Yes")
            .box(0, 1, "No")
            .line(1, 0, 1, 1));
  engine.mStartNewPath(0, "n");
  EngineAccess::screenElements(engine).at(0).at(1).m_isOnPath = true;
  engine.mMoveOnPath();
  EXPECT_EQ(cursor(), "0,1 #2");
}

TEST_F(Moves, AlongThePathAnExitIntoAnEmptyCellThrowsWithNothingChanged) {
  write(ChartFile().box(0, 0, "Root", yMinus, xPlus).box(1, 0, "No"));
  engine.mStartNewPath(0, "n");
  const std::string before = snapshot(engine);
  EXPECT_EQ(typeThrown([&] { engine.mMoveOnPath(); }), "out_of_range");
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(Moves, AlongThePathTheNoExitsEmptyCellIsNotLookedAtWhereYesIsMarked) {
  write(ChartFile().box(0, 0, "Root", xPlus, yMinus).box(1, 0, "Yes"));
  engine.mStartNewPath(0, "y");
  engine.mMoveOnPath();
  EXPECT_EQ(cursor(), "1,0 #1");
}

TEST_F(Moves, AlongThePathALinkEntersTheFlowchartAndLaysTheRemainingAnswers) {
  write(ChartFile().box(0, 0, "Root", xPlus).link(1, 0, "1NT", "RespNT"));
  write(ChartFile()
            .box(0, 0, "Root", noExit, xPlus)
            .link(1, 0, "2C", "Stayman", yPlus)
            .box(1, 1, "End"),
        "RespNT");
  engine.mStartNewPath(0, "ynyny");
  engine.mMoveOnPath();
  EXPECT_EQ(describe(engine), "0 Opening 1,0 #1 path=\"nyny\" marks=0,1");
  engine.mMoveOnPath();
  EXPECT_EQ(describe(engine), "6 RespNT 0,0 #0 path=\"ny\" marks=0,1,2");
  engine.mMoveOnPath();
  engine.mMoveOnPath();  // no file for Stayman: its placeholder takes no answer
  EXPECT_EQ(describe(engine), "27 Stayman 0,0 #0 path=\"ny\" marks=0");
  EXPECT_EQ(chart(27), unreadChart);
}

TEST_F(Moves, AlongThePathALinkIsTestedBeforeTheExits) {
  write(ChartFile().link(0, 0, "Root", "PGF", xPlus).box(1, 0, "Yes"));
  engine.mStartNewPath(0, "y");
  engine.mMoveOnPath();
  EXPECT_EQ(describe(engine), "44 PGF 0,0 #0 path=\"\" marks=0");
}

TEST_F(Moves, AlongThePathALinkMayLeadIntoItsOwnFlowchart) {
  write(ChartFile().box(0, 0, "Root", xPlus, yPlus).link(1, 0, "Again", "Opening").box(0, 1, "No"));
  engine.mStartNewPath(0, "yn");
  engine.mMoveOnPath();
  engine.mMoveOnPath();
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"\" marks=0,1,2");
}

TEST_F(Moves, FollowingALinkTriesAnUnreadFileAgain) {
  write(ChartFile().link(0, 0, "Root", "PGF").box(1, 0, "Other"));
  engine.mStartNewPath(0, "");
  engine.mMoveOnPath();
  EXPECT_EQ(chart(44), unreadChart);
  write(ChartFile().box(0, 0, "a").box(1, 0, "b"), "PGF");
  engine.mStartNewPath(0, "");
  engine.mMoveOnPath();
  EXPECT_EQ(elements(44).size(), 2u);
}

TEST_F(Moves, AlongThePathALinkToAnUnknownNameLeavesNoFlowchartCurrentUntilASelection) {
  for (const std::string name : {"opening", "Lebensohl", "Opening ", "Opening\r"}) {
    write(ChartFile().link(0, 0, "Root", name).box(1, 0, "Other"));
    CTavrel on(directory.prefix());
    on.mStartNewPath(0, "yy");
    EXPECT_EQ(typeThrown([&] { on.mMoveOnPath(); }), "out_of_range");
    EXPECT_EQ(describe(on), "-1 Opening 0,0 #0 path=\"yy\" marks=?");
    EXPECT_EQ(marks(on, 0), "0");
    for (const Move move : {&CTavrel::mMoveXPlus, &CTavrel::mMoveXMinus, &CTavrel::mMoveYPlus,
                            &CTavrel::mMoveYMinus, &CTavrel::mMoveYes, &CTavrel::mMoveNo,
                            &CTavrel::mMoveOnPath, &CTavrel::mMoveRoot, &CTavrel::mPreparePath}) {
      EXPECT_EQ(typeThrown([&] { (on.*move)(); }), "out_of_range");
    }
    on.mSetStartLocation(0);
    EXPECT_EQ(marks(on, 0), "0");
    on.mMoveXPlus();
    EXPECT_EQ(place(on), at(0, 0, 0));
  }
}

TEST_F(Moves, WhileNoFlowchartIsCurrentTheMoveToTheRootWritesTheOriginAndThrows) {
  loseTheFlowchart();
  EXPECT_EQ(typeThrown([this] { engine.mMoveRoot(); }), "out_of_range");
  EXPECT_EQ(describe(engine), "-1 Opening 0,0 #1 path=\"n\" marks=?");
}

TEST_F(Moves, WhileNoFlowchartIsCurrentPreparingThrowsWithTheAnswersKept) {
  loseTheFlowchart();
  EXPECT_EQ(typeThrown([this] { engine.mPreparePath(); }), "out_of_range");
  EXPECT_EQ(describe(engine), "-1 Opening 1,0 #1 path=\"n\" marks=?");
}

TEST_F(Moves, AlongThePathALineCellUnderTheCursorLeadsWhereItsLinkSays) {
  // Lines carry the link of the file's last box. The path goes round through the origin and
  // ends on the first box again.
  write(ChartFile()
            .box(1, 0, "First", yPlus)
            .link(5, 5, "Last", "PGF")
            .line(0, 1, yPlus, yMinus)
            .line(0, 0, yMinus, xPlus));
  engine.mStartNewPath(0, "yn");
  ASSERT_EQ(marks(engine, 0), "0,2,3");
  engine.mMoveRoot();
  ASSERT_EQ(cursor(), "0,0 #3");
  engine.mMoveOnPath();
  EXPECT_EQ(describe(engine), "44 PGF 0,0 #0 path=\"n\" marks=0");
}

TEST_F(Moves, ALinkWhoseFileThrowsLeavesThatFlowchartCurrent) {
  write(ChartFile().link(0, 0, "Root", "PGF").box(1, 0, "Other"));
  write("h\nh\n0\n0\n-1\n", "PGF");
  engine.mStartNewPath(0, "yn");
  EXPECT_EQ(typeThrown([&] { engine.mMoveOnPath(); }), "length_error");
  EXPECT_EQ(describe(engine), "44 Opening 0,0 #0 path=\"yn\" marks=");
  EXPECT_TRUE(elements(44).empty());
}

// --- To the root ------------------------------------------------------------

TEST_F(Moves, ToTheRootKeepsFlowchartMarksAndAnswers) {
  write(ChartFile().box(0, 0, "Root", xPlus, yPlus).box(1, 0, "Yes").box(0, 1, "No"), "PGF");
  engine.mStartNewPath(44, "yn");
  engine.mMoveOnPath();
  engine.mMoveRoot();
  EXPECT_EQ(describe(engine), "44 PGF 0,0 #0 path=\"n\" marks=0,1");
}

TEST_F(Moves, TheRootOfASelectionIsElement0AndThatOfAMoveWhateverStandsAtTheOrigin) {
  select(ChartFile().box(2, 0, "First").box(0, 0, "Origin"));
  EXPECT_EQ(cursor(), "0,0 #0");
  engine.mMoveRoot();
  EXPECT_EQ(cursor(), "0,0 #1");
  engine.mStartNewPath(0, "");
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"\" marks=0");
}

TEST_F(Moves, ToTheRootMayEndOnALineCell) {
  select(ChartFile().box(1, 0, "First").line(0, 0, xPlus, xPlus));
  engine.mMoveRoot();
  EXPECT_EQ(cursor(), "0,0 #1");
}

TEST_F(Moves, ToTheRootMayEndOnNothingWithoutAnException) {
  select(ChartFile().box(1, 0, "First", xPlus).box(2, 0, "Second"));
  engine.mMoveRoot();
  EXPECT_EQ(cursor(), "0,0 #-1");
}

TEST_F(Moves, ToTheRootBringsACursorBackFromWhereALineEnded) {
  select(ChartFile().box(0, 0, "Root", xPlus).box(9, 9, "Far"));
  EXPECT_EQ(typeThrown([&] { engine.mMoveYes(); }), "out_of_range");
  engine.mMoveRoot();
  EXPECT_EQ(cursor(), "0,0 #0");
}

}  // namespace
}  // namespace tavrel
