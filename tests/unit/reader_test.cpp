// Reading well-formed flowchart files: texts, cells, bounds, layout, row index.

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class Reader : public EngineTest {
 protected:
  std::string element(std::size_t i) const { return describe(elements().at(i)); }
  const std::vector<std::string>& intro() const { return EngineAccess::flowchartIntros(engine)[0]; }
};

const std::string exampleFile =
    "Example chart\n"
    "version 1\n"
    "1\n"
    "Use this chart to decide whether to open.\n"
    "2\n"
    "2\n"
    "12 or more points?\n"
    "(count honours)\n"
    "1\n"
    "Count high-card points.\n"
    "\n"
    "1\n"
    "Open\n"
    "0\n"
    "Opening\n"
    "2\n"
    "0 0 0 0 0 1 -1\n"
    "1 2 0 0 0 -1 -1\n"
    "1\n"
    "0 0 0 1 1 1 0\n";

TEST_F(Reader, TheExampleReadsToItsLastNumber) {
  write(exampleFile);
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(),
            "intro=[Use this chart to decide whether to open.] x=0..2 y=0..0 "
            "cells=0,0 2,0 1,0 list=0,1,2 starts=0,3");
  ASSERT_EQ(elements().size(), 3u);
  EXPECT_EQ(element(0),
            "box 0,0 @0,0 [12 or more points?][(count honours)] ([Count high-card points.]) > "
            "y1 n4 i4 o4");
  EXPECT_EQ(element(1), "box 2,0 @52,0 [Open] () >Opening y4 n4 i4 o4");
  EXPECT_EQ(element(2), "line 1,0 @33,0  () >Opening y4 n4 i1 o1");
}

TEST_F(Reader, TheBuilderOfTheseTestsWritesTheExample) {
  const std::string built =
      ChartFile()
          .intro({"Use this chart to decide whether to open."})
          .node({"12 or more points?", "(count honours)"}, {"Count high-card points."})
          .node({"Open"}, {}, "Opening")
          .cell(0, 0, 0, xPlus, noExit)
          .cell(1, 2, 0)
          .line(1, 0, xPlus, xPlus)
          .text();
  EXPECT_EQ(built.substr(built.find("1\n")), exampleFile.substr(exampleFile.find("1\nUse")));
}

TEST_F(Reader, TextAfterTheIntegerOfACountLineIsIgnored) {
  write(
      "h\nh\n1 introduction line\nHello\n1\tnode\n1 line: 7\nBox\n1 more\nWhy\n\n"
      "2 boxes 9 9\n0 0 0 0 0 1 -1\n0 1 0 0 0 -1 -1\n0 lines\n");
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), "intro=[Hello] x=0..1 y=0..0 cells=0,0 1,0 list=0,1 starts=0,2");
  EXPECT_EQ(elements().at(0).m_boxText, Lines{"Box"});
  EXPECT_EQ(elements().at(0).m_commentText, Lines{"Why"});
}

TEST_F(Reader, TextAfterTheSeventhIntegerIsIgnored) {
  write(
      "h\nh\n0\n1\n0\n0\n\n2\n0 0 0 0 0 1 -1 8 the root\n0 1 0 0 0 -1 -1; end\n"
      "1\n0 0 0 1 1 2 0-- a line\n");
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), "intro= x=0..2 y=0..0 cells=0,0 1,0 2,0 list=0,1,2 starts=0,3");
}

TEST_F(Reader, BlankLinesBeforeANumberLineAreSkipped) {
  write(
      "h\nh\n\n \t\n1\nHello\n\n\n1\n\n1\nBox\n\n0\n\n\n2\n\n0 0 0 0 0 -1 -1\n\n\n"
      "0 1 0 0 0 -1 -1\n\n1\n\n\n0 0 0 1 1 2 0\n");
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), "intro=[Hello] x=0..2 y=0..0 cells=0,0 1,0 2,0 list=0,1,2 starts=0,3");
}

TEST_F(Reader, BlankLinesAmongTextLinesAreEmptyTexts) {
  select(ChartFile().intro({"", "a", "", ""}).node({"", "b", ""}, {"", ""}).cell(0, 0, 0));
  EXPECT_EQ(intro(), (Lines{"", "a", "", ""}));
  EXPECT_EQ(elements().at(0).m_boxText, (Lines{"", "b", ""}));
  EXPECT_EQ(elements().at(0).m_commentText, (Lines{"", ""}));
}

TEST_F(Reader, HeaderLinesMayHoldAnything) {
  write("\n999999999999 -1\n0\n0\n0\n0\n");
  engine.mSetStartLocation(0);
  EXPECT_TRUE(elements().empty());
}

TEST_F(Reader, TextKeepsItsBlanksAndItsCarriageReturn) {
  select(ChartFile()
             .intro({"  intro \r", "\t"})
             .node({" box\r"}, {"\r"}, " Stayman \r")
             .cell(0, 0, 0));
  EXPECT_EQ(intro(), (Lines{"  intro \r", "\t"}));
  EXPECT_EQ(elements().at(0).m_boxText, Lines{" box\r"});
  EXPECT_EQ(elements().at(0).m_commentText, Lines{"\r"});
  EXPECT_EQ(elements().at(0).m_newFlowchartName, " Stayman \r");
}

TEST_F(Reader, TextKeepsItsBytesWhateverTheyAre) {
  const std::string bytes("\0\xff\xc3\x28\x01", 5);
  select(ChartFile().intro({bytes}).node({bytes}, {bytes}, bytes).cell(0, 0, 0));
  EXPECT_EQ(intro(), Lines{bytes});
  EXPECT_EQ(elements().at(0).m_boxText, Lines{bytes});
  EXPECT_EQ(elements().at(0).m_commentText, Lines{bytes});
  EXPECT_EQ(elements().at(0).m_newFlowchartName, bytes);
}

TEST_F(Reader, AVeryLongLineIsOneText) {
  const std::string line(200000, 'x');
  select(ChartFile().node({line}, {line + line}).cell(0, 0, 0));
  EXPECT_EQ(elements().at(0).m_boxText, Lines{line});
  EXPECT_EQ(elements().at(0).m_commentText, Lines{line + line});
}

TEST_F(Reader, ExitsOfABoxTurnMinus1Into4AndNothingElse) {
  select(ChartFile()
             .node({})
             .cell(0, 0, 0, -1, -2)
             .cell(0, 1, 0, -2, -1)
             .cell(0, 2, 0, 4, 77)
             .cell(0, 3, 0, 0, 3));
  const auto exits = [this](std::size_t i) {
    return joined(std::vector<std::int32_t>{elements().at(i).m_yesDir, elements().at(i).m_noDir});
  };
  EXPECT_EQ(exits(0), "4,-2");
  EXPECT_EQ(exits(1), "-2,4");
  EXPECT_EQ(exits(2), "4,77");
  EXPECT_EQ(exits(3), "0,3");
}

TEST_F(Reader, DirectionsOfALineAreStoredAsRead) {
  select(ChartFile().line(0, 0, -1, -1).line(1, 0, 2, 3).line(2, 0, 9, -7));
  EXPECT_EQ(element(0), "line 0,0 @0,0  () > y4 n4 i-1 o-1");
  EXPECT_EQ(element(1), "line 1,0 @15,0  () > y4 n4 i2 o3");
  EXPECT_EQ(element(2), "line 2,0 @30,0  () > y4 n4 i9 o-7");
}

TEST_F(Reader, BoxesWithTheSameNodeNumberShareItsTexts) {
  select(ChartFile()
             .node({"zero"})
             .node({"one", "two"}, {"why"}, "Stayman")
             .cell(1, 0, 0)
             .cell(0, 1, 0)
             .cell(1, 2, 0));
  EXPECT_EQ(elements().at(0).m_boxText, (Lines{"one", "two"}));
  EXPECT_EQ(elements().at(1).m_boxText, Lines{"zero"});
  EXPECT_EQ(elements().at(2).m_boxText, (Lines{"one", "two"}));
  EXPECT_EQ(elements().at(2).m_commentText, Lines{"why"});
  EXPECT_EQ(elements().at(2).m_newFlowchartName, "Stayman");
}

TEST_F(Reader, ANodeThatNoBoxShowsIsReadOver) {
  select(ChartFile().node({"unused"}, {"unused"}, "Slam").node({"used"}).cell(1, 0, 0));
  EXPECT_EQ(elements().at(0).m_boxText, Lines{"used"});
}

TEST_F(Reader, LinesKeepTheLinkOfTheLastBoxOfTheFile) {
  select(ChartFile()
             .link(0, 0, "Root", "Stayman", xPlus)
             .link(3, 0, "End", "Slam")
             .run(1, 0, xPlus, 2));
  EXPECT_EQ(elements().at(2).m_newFlowchartName, "Slam");
  EXPECT_EQ(elements().at(3).m_newFlowchartName, "Slam");
}

TEST_F(Reader, LinesHaveNoLinkWhereTheLastBoxHasNoneOrThereIsNoBox) {
  select(ChartFile().link(0, 0, "Root", "Stayman", xPlus).box(2, 0, "End").line(1, 0, 1, 1));
  EXPECT_EQ(elements().at(2).m_newFlowchartName, "");
  write(ChartFile().node({"unused"}, {}, "Slam").line(0, 0, 1, 1).line(1, 0, 1, 1), "PGF");
  engine.mSetStartLocation(44);
  EXPECT_EQ(elements(44).at(1).m_newFlowchartName, "");
}

TEST_F(Reader, IgnoredIntegersAreIgnored) {
  write("h\nh\n0\n1\n0\n0\n\n1\n0 0 0 7 -8 -1 -1\n1\n5 -6 7 1 2 3 4\n");
  engine.mSetStartLocation(0);
  EXPECT_EQ(element(0), "box 0,0 @0,0  () > y4 n4 i4 o4");
  EXPECT_EQ(element(1), "line 3,4 @45,8  () > y4 n4 i1 o2");
}

TEST_F(Reader, NothingAfterTheLastLineCellIsRead) {
  write(ChartFile().box(0, 0, "Root").line(1, 0, 1, 1).text() + "0 0 0 1 1 50 50\nrubbish\n\xff");
  engine.mSetStartLocation(0);
  EXPECT_EQ(elements().size(), 2u);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxX(), 1);
}

TEST_F(Reader, BoxesComeFirstThenLinesEachInTheirOrder) {
  select(
      ChartFile().box(0, 0, "a").line(9, 0, 1, 1).box(5, 0, "b").line(2, 0, 1, 1).box(4, 0, "c"));
  EXPECT_EQ(chart(), "intro= x=0..9 y=0..0 cells=0,0 5,0 4,0 9,0 2,0 list=0,1,2,3,4 starts=0,5");
}

TEST_F(Reader, BoundsAlwaysHoldTheOrigin) {
  select(ChartFile().box(3, 5, "a").box(4, 7, "b"));
  EXPECT_EQ(chart(), "intro= x=0..4 y=0..7 cells=3,5 4,7 list=0,1 starts=0,0,0,0,0,0,1,1,2");
}

TEST_F(Reader, LinesWidenTheBoundsAsBoxesDo) {
  select(ChartFile().box(0, 0, "a").line(-2, -1, 1, 1).line(3, 2, 1, 1));
  EXPECT_EQ(chart(), "intro= x=-2..3 y=-1..2 cells=0,0 -2,-1 3,2 list=1,0,2 starts=0,1,2,2,3");
}

TEST_F(Reader, ColumnsLeftOfTheOriginHaveNegativeOffsets) {
  select(ChartFile().box(-1, 0, "ab").box(-2, 0, "wxyz"));
  EXPECT_EQ(chart(), "intro= x=-2..0 y=0..0 cells=-1,0 -2,0 list=0,1 starts=0,2");
  EXPECT_EQ(elements().at(0).m_xOffset, -17);  // 2 + 0 + 15
  EXPECT_EQ(elements().at(1).m_xOffset, -17 - (4 + 2 + 15));
}

TEST_F(Reader, RowsAreLaidOutByTheirNumberOfLines) {
  select(ChartFile()
             .node({"a"})
             .node({"a", "b", "c"})
             .cell(0, 0, 0)
             .cell(1, 0, 1)
             .cell(0, 5, 1)
             .cell(1, 0, -1)
             .cell(0, 0, -2)
             .cell(0, 0, 3));
  EXPECT_EQ(elements().at(1).m_yOffset, 6);  // 1 + 3 + 2
  EXPECT_EQ(elements().at(2).m_yOffset, 6);  // the row's height is its highest box's
  EXPECT_EQ(elements().at(3).m_yOffset, -6);
  EXPECT_EQ(elements().at(4).m_yOffset, -6 - 6);     // 1 + 3 + 2
  EXPECT_EQ(elements().at(5).m_yOffset, 6 + 5 + 3);  // across the empty row: 3 + 0 + 2, 0 + 1 + 2
}

TEST_F(Reader, EmptyColumnsTakeTheGapAlone) {
  select(ChartFile().box(0, 0, "abc").box(4, 0, "de").box(-3, 0, "f"));
  EXPECT_EQ(elements().at(1).m_xOffset, (3 + 15) + 15 + 15 + (2 + 15));
  EXPECT_EQ(elements().at(2).m_xOffset, -((3 + 15) + 15 + (1 + 15)));
}

TEST_F(Reader, AColumnIsAsWideAsItsWidestLineInAnyRow) {
  select(ChartFile()
             .node({"a", "abcde", "abc"})
             .node({"ab"})
             .cell(1, 0, 0)
             .cell(0, 0, 1)
             .cell(1, 1, 2));
  EXPECT_EQ(elements().at(2).m_xOffset, 5 + 2 + 15);
}

// Long ones are measured once, whatever the number of boxes that show them.
TEST_F(Reader, LongTextsAreLaidOutAsShortOnesAre) {
  Lines broad(100, "abc");
  broad[70] = "widest";
  ChartFile file;
  file.node({"ab"}).node(broad).node({"abcd"}).node(Lines(300, "")).node({"a"});
  for (int node = 0; node < 5; ++node) file.cell(node, node, node);
  select(file);
  EXPECT_EQ(elements().at(1).m_xOffset, 2 + 6 + 15);
  EXPECT_EQ(elements().at(2).m_xOffset, 2 + 2 * 6 + 4 + 2 * 15);
  EXPECT_EQ(elements().at(3).m_xOffset, 2 + 2 * 6 + 2 * 4 + 3 * 15);
  EXPECT_EQ(elements().at(4).m_xOffset, 2 + 2 * 6 + 2 * 4 + 1 + 4 * 15);
  EXPECT_EQ(elements().at(1).m_yOffset, 1 + 100 + 2);
  EXPECT_EQ(elements().at(2).m_yOffset, 1 + 2 * 100 + 1 + 2 * 2);
  EXPECT_EQ(elements().at(3).m_yOffset, 1 + 2 * 100 + 2 * 1 + 300 + 3 * 2);
  EXPECT_EQ(elements().at(4).m_yOffset, 1 + 2 * 100 + 2 * 1 + 2 * 300 + 1 + 4 * 2);
}

TEST_F(Reader, WidthsCountBytes) {
  select(ChartFile().box(0, 0, "\xc3\xa9\xc3\xa8\xc3\xa0").box(1, 0, ""));
  EXPECT_EQ(elements().at(1).m_xOffset, 6 + 0 + 15);
}

TEST_F(Reader, OriginsColumnHasNoWidthWhereNoCellStandsInIt) {
  select(ChartFile().box(2, 0, "abcd").box(-1, 0, "ab"));
  EXPECT_EQ(elements().at(0).m_xOffset, 15 + 4 + 15);
  EXPECT_EQ(elements().at(1).m_xOffset, -17);
}

TEST_F(Reader, ColumnsFarApartAreLaidOutFromTheOriginWhereNoCellStandsInIt) {
  select(ChartFile().box(1, 0, "four").box(1000, 0, "ab").box(-1000, 0, "ab"));
  EXPECT_EQ(elements().at(0).m_xOffset, 4 + 15);
  EXPECT_EQ(elements().at(1).m_xOffset, (4 + 15) + (4 + 2) + 999 * 15);
  EXPECT_EQ(elements().at(2).m_xOffset, -(2 + 1000 * 15));
}

TEST_F(Reader, AFlowchartOfMoreThanOneElementIsNeverReadAgain) {
  select(ChartFile().box(0, 0, "Root").box(1, 0, "End"));
  const std::string before = chart();
  write(ChartFile().intro({"New"}).box(0, 0, "Root").box(1, 0, "End").box(2, 0, "More"));
  engine.mSetStartLocation(0);
  engine.mStartNewPath(0, "");
  engine.mReadFVFileIfNotAlready(0);
  EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{});
  EXPECT_EQ(chart(), before);
}

TEST_F(Reader, AFileOfOneCellIsReadAgainAtEverySelection) {
  select(ChartFile().intro({"First"}).box(2, 1, "Only"));
  EXPECT_EQ(chart(), "intro=[First] x=0..2 y=0..1 cells=2,1 list=0 starts=0,0,1");
  write(ChartFile().intro({"Second"}).box(0, -1, "Other"));
  engine.mStartNewPath(0, "");
  EXPECT_EQ(chart(), "intro=[Second] x=0..2 y=-1..1 cells=0,-1 list=0 starts=0,1,1,1");
  write(ChartFile().intro({"Third"}).box(0, 0, "Two").line(1, 0, 1, 1));
  EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{"Third"});
  EXPECT_EQ(chart(), "intro=[Third] x=0..2 y=-1..1 cells=0,0 1,0 list=0,1 starts=0,0,2,2");
}

TEST_F(Reader, AFileWithoutCellsLeavesAnEmptyListAndIsReadAgain) {
  select(ChartFile().intro({"Nothing"}));
  EXPECT_EQ(chart(), "intro=[Nothing] x=0..0 y=0..0 cells=list= starts=0,0");
  write(ChartFile().intro({"Something"}).box(0, 0, "a").box(0, 1, "b"));
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), "intro=[Something] x=0..0 y=0..1 cells=0,0 0,1 list=0,1 starts=0,1,2");
}

TEST_F(Reader, AFileThatCannotBeOpenedIsTriedAgainAtEachSelection) {
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), unreadChart);
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"\" marks=");
  select(ChartFile().box(0, 0, "a").box(0, 1, "b"));
  EXPECT_EQ(elements().size(), 2u);
}

TEST_F(Reader, AFileThatVanishedLeavesWhatWasRead) {
  select(ChartFile().intro({"One"}).box(1, 0, "a"));
  const std::string before = chart();
  remove();
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), before);
}

TEST_F(Reader, ReadingOneFlowchartLeavesTheOthers) {
  write(ChartFile().box(0, 0, "a").box(-3, 1, "b"), "Leben");
  engine.mSetStartLocation(7);
  for (std::size_t fc = 0; fc < 45; ++fc) {
    if (fc != 7) {
      EXPECT_EQ(chart(fc), unreadChart);
    }
  }
  EXPECT_EQ(chart(7), "intro= x=-3..0 y=0..1 cells=0,0 -3,1 list=0,1 starts=0,1,2");
}

TEST_F(Reader, AnIndexOutsideTheCatalogueThrows) {
  const std::string before = snapshot(engine);
  for (const std::int32_t fc : {-1, 45, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(typeThrown([&] { engine.mReadFVFileIfNotAlready(fc); }), "out_of_range") << fc;
  }
  EXPECT_EQ(snapshot(engine), before);
}

using Introduction = Reader;

TEST_F(Introduction, IsReadFromTheFileWithoutMovingTheCursor) {
  write(ChartFile().intro({"One", "", "Two"}).box(0, 0, "a").box(1, 0, "b"), "PGF");
  EXPECT_EQ(engine.mGetFlowchartIntro(44), (Lines{"One", "", "Two"}));
  EXPECT_EQ(elements(44).size(), 2u);
  EXPECT_EQ(describe(engine), "0 - 0,0 #0 path=\"\" marks=");
}

TEST_F(Introduction, OfNoLinesIsAnEmptyList) {
  write(ChartFile().box(0, 0, "a"));
  EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{});
}

TEST_F(Introduction, OfAFileThatCannotBeOpenedSaysSoAndIsTriedAgain) {
  EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{"Unable to read this flowchart intro."});
  write(ChartFile().intro({"There"}).box(0, 0, "a"));
  EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{"There"});
}

TEST_F(Introduction, OutsideTheCatalogueIsNoSuchFlowchart) {
  for (const std::int32_t fc : {-1, 45, 1000, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(engine.mGetFlowchartIntro(fc), Lines{"No such flowchart"}) << fc;
  }
}

TEST_F(Introduction, IsACopy) {
  write(ChartFile().intro({"One"}).box(0, 0, "a").box(1, 0, "b"));
  engine.mGetFlowchartIntro(0).front() = "changed";
  EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{"One"});
}

}  // namespace
}  // namespace tavrel
