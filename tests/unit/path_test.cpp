// Selecting a flowchart and laying a string of answers onto it.

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class Path : public EngineTest {
 protected:
  // Root, two lines, a middle box, an end box that touches it, and a box that no answer of the
  // tests reaches:   0 --3-4-- 1 2      (5 below the root)
  static ChartFile threeBoxes() {
    return ChartFile()
        .box(0, 0, "Root", xPlus, yPlus)
        .box(3, 0, "Middle", noExit, xPlus)
        .box(4, 0, "End")
        .box(0, 1, "Below")
        .run(1, 0, xPlus, 2);
  }
  std::string start(const std::string& answers, std::int32_t fc = 0) {
    engine.mStartNewPath(fc, answers);
    return describe(engine);
  }
};

TEST_F(Path, NoAnswersMarkTheRootAlone) {
  write(threeBoxes());
  EXPECT_EQ(start(""), "0 Opening 0,0 #0 path=\"\" marks=0");
}

TEST_F(Path, EveryBoxAndLinePassedIsMarkedAndTheCursorWaitsOnTheRoot) {
  write(threeBoxes());
  EXPECT_EQ(start("yn"), "0 Opening 0,0 #0 path=\"\" marks=0,1,2,4,5");
}

TEST_F(Path, TheAnswerThatCannotBeFollowedIsKeptWithAllAfterIt) {
  write(threeBoxes());
  EXPECT_EQ(start("yny"), "0 Opening 0,0 #0 path=\"y\" marks=0,1,2,4,5");
  EXPECT_EQ(start("ynynY?y"), "0 Opening 0,0 #0 path=\"ynY?y\" marks=0,1,2,4,5");
  EXPECT_EQ(start("yyn"), "0 Opening 0,0 #0 path=\"yn\" marks=0,1,4,5");
}

TEST_F(Path, AFirstAnswerThatCannotBeFollowedKeepsTheWholeString) {
  write(ChartFile().box(0, 0, "Root", noExit, xPlus).box(1, 0, "End"));
  EXPECT_EQ(start("ynn"), "0 Opening 0,0 #0 path=\"ynn\" marks=0");
}

TEST_F(Path, EveryByteButLowerCaseYIsNo) {
  write(threeBoxes());
  engine.mSetStartLocation(0);
  for (int byte = 0; byte < 256; ++byte) {
    const std::string answer(1, static_cast<char>(byte));
    engine.mStartNewPath(0, answer);
    EXPECT_EQ(marks(engine, 0), byte == 'y' ? "0,1,4,5" : "0,3") << byte;
    EXPECT_EQ(EngineAccess::path(engine), "");
  }
}

TEST_F(Path, AnswersAreTakenWholeWithTheirNULBytes) {
  write(threeBoxes());
  const std::string answers("\0y\0y", 4);
  engine.mStartNewPath(0, answers);
  EXPECT_EQ(EngineAccess::path(engine), answers.substr(1));
  EXPECT_EQ(marks(engine, 0), "0,3");
}

TEST_F(Path, IndicesOutsideTheCatalogueThrowWithTheOperationsNameAndChangeNothing) {
  write(threeBoxes());
  start("ynyy");
  const std::string before = snapshot(engine);
  for (const std::int32_t fc : {-1, 45, 46, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(textThrown<std::out_of_range>([&] { engine.mStartNewPath(fc, "n"); }),
              "CTavrel::mStartNewPath()");
    EXPECT_EQ(textThrown<std::out_of_range>([&] { engine.mSetStartLocation(fc); }),
              "CTavrel::mSetStartLocation()");
  }
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(Path, ANewPathClearsTheMarksOfTheOldOne) {
  write(threeBoxes());
  start("yn");
  EXPECT_EQ(start("n"), "0 Opening 0,0 #0 path=\"\" marks=0,3");
  EXPECT_EQ(start(""), "0 Opening 0,0 #0 path=\"\" marks=0");
}

TEST_F(Path, MarksAreLeftWhereElement0HasNone) {
  write(threeBoxes());
  start("yn");
  EngineAccess::screenElements(engine).at(0).at(0).m_isOnPath = false;
  EXPECT_EQ(start("n"), "0 Opening 0,0 #0 path=\"\" marks=0,1,2,3,4,5");
}

TEST_F(Path, MarksAreClearedBeforeTheFlowchartIsRead) {
  // Not readable at first, the marked placeholder stays one element; a chart of one cell is
  // read again and its element 0 comes in without the mark.
  EXPECT_EQ(start(""), "0 Opening 0,0 #0 path=\"\" marks=0");
  write(threeBoxes());
  EXPECT_EQ(start("n"), "0 Opening 0,0 #0 path=\"\" marks=0,3");
}

TEST_F(Path, OldMarksAreGoneEvenWhereTheReadAfterThemThrows) {
  start("");
  write("h\nh\n1\nNew\n0\n1\n0 0 16777216 0 0 -1 -1\n0\n");  // no such node
  EXPECT_EQ(typeThrown([&] { start("y"); }), "out_of_range");
  start("", 1);
  write("h\nh\n1\nNew\n1\n0\n0\n\n1\n0 0 16777216 0 0 -1 -1\n0\n", "AOpening");
  EXPECT_EQ(typeThrown([&] { start("y", 1); }), "length_error");
  EXPECT_EQ(describe(engine), "1 AOpening 0,0 #0 path=\"\" marks=");
}

TEST_F(Path, MarksInOtherFlowchartsSurvive) {
  write(ChartFile().link(0, 0, "Root", "Stayman").box(1, 0, "Other"));
  write(threeBoxes(), "Stayman");
  start("yn");
  engine.mMoveOnPath();
  EXPECT_EQ(describe(engine), "27 Stayman 0,0 #0 path=\"\" marks=0,1,2,4,5");
  start("n");
  EXPECT_EQ(marks(engine, 27), "0,1,2,4,5");
  engine.mMoveOnPath();  // entering clears nothing either
  EXPECT_EQ(describe(engine), "27 Stayman 0,0 #0 path=\"\" marks=0,1,2,3,4,5");
}

TEST_F(Path, SelectingKeepsMarksAndAnswersAndGoesToTheRoot) {
  write(threeBoxes());
  start("yny");
  engine.mMoveYes();
  engine.mSetStartLocation(0);
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"y\" marks=0,1,2,4,5");
  engine.mSetStartLocation(5);
  EXPECT_EQ(describe(engine), "5 RespSuit 0,0 #0 path=\"y\" marks=");
  EXPECT_EQ(marks(engine, 0), "0,1,2,4,5");
}

TEST_F(Path, SelectingNamesTheFlowchartByItsFileName) {
  for (const auto& [fc, name] :
       {std::pair<std::int32_t, std::string>{0, "Opening"}, {26, "Convres2"}, {44, "PGF"}}) {
    engine.mSetStartLocation(fc);
    EXPECT_EQ(engine.mCurrentLocation().m_name, name);
    engine.mSetStartLocation(1);
    engine.mStartNewPath(fc, "");
    EXPECT_EQ(engine.mCurrentLocation().m_name, name);
  }
}

TEST_F(Path, AnUnreadFlowchartIsPreparedOnItsPlaceholder) {
  EXPECT_EQ(start("yy"), "0 Opening 0,0 #0 path=\"yy\" marks=0");
}

TEST_F(Path, AnEmptyElementListThrowsBeforeItIsReadWhereSelectingReads) {
  write(ChartFile().intro({"Nothing"}));
  engine.mSetStartLocation(0);
  engine.mSetStartLocation(1);
  write(threeBoxes());
  const std::string answersBefore = EngineAccess::path(engine);
  EXPECT_EQ(typeThrown([&] { start("yn"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 AOpening 0,0 #0 path=\"\" marks=");
  EXPECT_TRUE(elements().empty());
  engine.mSetStartLocation(0);
  EXPECT_EQ(elements().size(), 6u);
}

TEST_F(Path, PreparingOnAFileWithoutCellsThrowsAtTheRootWithTheAnswersGone) {
  write(ChartFile().intro({"Nothing"}));
  EXPECT_EQ(typeThrown([&] { start("yn"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"\" marks=");
  EXPECT_TRUE(elements().empty());
}

TEST_F(Path, AnExitIntoAnEmptyCellThrowsWithTheMarksSoFarAndTheAnswersGone) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "Middle", yPlus).box(5, 5, "Far"));
  EXPECT_EQ(typeThrown([&] { start("yyn"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 Opening 1,1 #-1 path=\"\" marks=0,1");
}

TEST_F(Path, ALineIntoAnEmptyCellThrowsWithTheMarksSoFarAndTheAnswersGone) {
  write(ChartFile().box(0, 0, "Root", xMinus).run(-1, 0, xMinus, 2));
  EXPECT_EQ(typeThrown([&] { start("yyn"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 Opening -3,0 #-1 path=\"\" marks=0,1,2");
}

TEST_F(Path, AnExitThatStepsNowhereLeadsToItsOwnBox) {
  write(ChartFile().box(0, 0, "Root", -2, xPlus).box(1, 0, "End"));
  EXPECT_EQ(start("yyn"), "0 Opening 0,0 #0 path=\"\" marks=0,1");
}

TEST_F(Path, TheRootIsElement0WhereverItStands) {
  write(ChartFile()
            .box(2, 0, "First", xPlus, noExit)
            .box(0, 0, "Origin", noExit, xPlus)
            .box(1, 0, "Next"));
  // Element 0 is marked and its exit is asked, but steps are taken from (0, 0).
  EXPECT_EQ(start("y"), "0 Opening 0,0 #0 path=\"\" marks=0,2");
  EXPECT_EQ(start("n"), "0 Opening 0,0 #0 path=\"n\" marks=0");
}

TEST_F(Path, ARootThatIsALineCellIsAskedForItsExitsAll4) {
  write(ChartFile().run(0, 0, xPlus, 3));
  EXPECT_EQ(start("yn"), "0 Opening 0,0 #0 path=\"yn\" marks=0");
}

TEST_F(Path, OfTwoCellsAtOnePlaceTheFirstIsMarked) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "First").box(1, 0, "Second"));
  EXPECT_EQ(start("y"), "0 Opening 0,0 #0 path=\"\" marks=0,1");
}

TEST_F(Path, PreparingAgainLaysWhatIsStoredAndAddsItsMarks) {
  write(threeBoxes());
  start("yn");
  EngineAccess::path(engine) = "n";
  engine.mMoveYes();
  engine.mPreparePath();
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"\" marks=0,1,2,3,4,5");
}

}  // namespace
}  // namespace tavrel
