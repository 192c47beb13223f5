// Files that end early, hold no integer where one belongs, or cannot be what they
// claim: what is read of them, what is thrown, and what is left behind.

#include <sys/stat.h>
#include <unistd.h>

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

// One node without lines, then whatever the test appends: box cells onward.
const std::string upToBoxes = "h\nh\n1\nHello\n1\n0\n0\n\n";

class Malformed : public EngineTest {
 protected:
  void select(const std::string& bytes) {
    write(bytes);
    engine.mSetStartLocation(0);
  }
  /// Flowchart 0 as it is left by a file of this introduction and these cells in row 0.
  static std::string read(const std::string& intro, const std::string& x, const std::string& cells,
                          const std::string& list, std::size_t count) {
    return "intro=" + intro + " x=" + x + " y=0..0 cells=" + cells + "list=" + list + " starts=0," +
           std::to_string(count);
  }
  const std::string unreadWith(const std::string& intro) const {
    return read(intro, "0..0", "0,0 ", "0", 1);
  }
  const std::string asBefore = "[Unable to read this flowchart intro.]";
};

struct Cut {
  const char* what;
  std::string file;
  std::string intro;
};

TEST_F(Malformed, AFileWithoutAWholeCellLeavesThePlaceholder) {
  const Cut cuts[] = {
      {"empty", "", asBefore},
      {"one header line", "h\n", asBefore},
      {"headers only", "h\nh\n", asBefore},
      {"no integer for the introduction", "h\nh\nx\n", asBefore},
      {"introduction cut", "h\nh\n2\nHello\n", asBefore},
      {"introduction whole", "h\nh\n2\nHello\nthere", "[Hello][there]"},
      {"introduction of no lines", "h\nh\n0", ""},
      {"introduction of a negative number of lines", "h\nh\n-1\n", ""},
      {"no integer for the nodes", "h\nh\n1\nHello\nnodes", "[Hello]"},
      {"node cut in its box lines", "h\nh\n1\nHello\n1\n2\nbox\n", "[Hello]"},
      {"no integer for the commentary", "h\nh\n1\nHello\n1\n1\nbox\nwhy\n", "[Hello]"},
      {"node cut in its commentary", "h\nh\n1\nHello\n1\n0\n1\n", "[Hello]"},
      {"node without its next flowchart", "h\nh\n1\nHello\n1\n0\n0\n", "[Hello]"},
      {"second node missing", "h\nh\n1\nHello\n2\n0\n0\n\n", "[Hello]"},
      {"no number of boxes", upToBoxes, "[Hello]"},
      {"no box of one", upToBoxes + "1\n", "[Hello]"},
      {"first box of six integers", upToBoxes + "1\n0 0 0 0 0 1\n", "[Hello]"},
      {"no boxes and no number of lines", upToBoxes + "0\n", "[Hello]"},
      {"no boxes and a line of six integers", upToBoxes + "0\n1\n0 0 0 1 1 1\n", "[Hello]"},
  };
  for (const Cut& cut : cuts) {
    SCOPED_TRACE(cut.what);
    write(cut.file);
    CTavrel fresh(directory.prefix());
    fresh.mSetStartLocation(0);
    EXPECT_EQ(describeChart(fresh, 0), unreadWith(cut.intro));
    EXPECT_EQ(describe(EngineAccess::screenElements(fresh).at(0).at(0)), placeholder);
    EXPECT_EQ(describe(fresh), "0 Opening 0,0 #0 path=\"\" marks=");
  }
}

TEST_F(Malformed, AFileWithoutAWholeCellIsTriedAgain) {
  select(upToBoxes);
  select(ChartFile().intro({"New"}).box(0, 0, "a").box(1, 0, "b").text());
  EXPECT_EQ(chart(), read("[New]", "0..1", "0,0 1,0 ", "0,1", 2));
}

TEST_F(Malformed, AFileWithoutAWholeCellLeavesTheOneElementReadBefore) {
  select(ChartFile().intro({"Old"}).box(2, 0, "a").text());
  select("h\nh\n1\nNew\n1\n0\n0\n\n1\n0 9 9 0 0");
  EXPECT_EQ(chart(), read("[New]", "0..2", "2,0 ", "0", 1));
  EXPECT_EQ(elements().at(0).m_boxText, Lines{"a"});
  select("h\nh\n3\nNewer\n");
  EXPECT_EQ(chart(), read("[New]", "0..2", "2,0 ", "0", 1));
}

TEST_F(Malformed, AFileWithoutAWholeCellKeepsTheRowIndexItFound) {
  select(ChartFile().box(0, 1, "a").text());
  const std::string index = "list=0 starts=0,0,1";
  ASSERT_EQ(chart(), "intro= x=0..0 y=0..1 cells=0,1 " + index);
  for (const std::string& file : {std::string("h\nh\n"), upToBoxes, upToBoxes + "2\n0 0 0 0"}) {
    select(file);
    EXPECT_EQ(chart().substr(chart().find("x=")), "x=0..0 y=0..1 cells=0,1 " + index);
    EXPECT_EQ(engine.mFind(0, 0, 1), 0);
  }
}

TEST_F(Malformed, BoxesReadWholeStandAndTheCellAtFaultIsDropped) {
  const std::string start = upToBoxes + "3\n0 0 0 0 0 1 -1\n0 1 0 0 0 -1 -1\n";
  for (const std::string rest :
       {"", "0", "0 5 5 0 0 -1\n", "0 5 5 0 0 -1 x\n", "x 5 5 0 0 -1 -1\n", "0 5 y 0 0 -1 -1\n",
        "0 5 5 0 0 -1 2147483648\n", "99999999999 5 5 0 0 -1 -1\n", "0 5,5 0 0 -1 -1\n"}) {
    SCOPED_TRACE(rest);
    write(start + rest);
    CTavrel fresh(directory.prefix());
    fresh.mSetStartLocation(0);
    EXPECT_EQ(describeChart(fresh, 0), read("[Hello]", "0..1", "0,0 1,0 ", "0,1", 2));
    EXPECT_EQ(EngineAccess::screenElements(fresh).at(0).at(1).m_xOffset, 15);
  }
}

TEST_F(Malformed, LinesReadWholeStandAndTheCellAtFaultIsDropped) {
  const std::string start = upToBoxes + "1\n0 0 0 0 0 1 -1\n3\n0 0 0 1 1 1 0\n";
  for (const std::string rest :
       {"", "0 0 0 1 1 2", "0 0 0 1 1 2 x\n", "0 0 0 1 1 -2147483649 0\n"}) {
    SCOPED_TRACE(rest);
    write(start + rest);
    CTavrel fresh(directory.prefix());
    fresh.mSetStartLocation(0);
    EXPECT_EQ(describeChart(fresh, 0), read("[Hello]", "0..1", "0,0 1,0 ", "0,1", 2));
  }
}

TEST_F(Malformed, BoxesStandWhereTheNumberOfLinesIsMissing) {
  select(upToBoxes + "2\n0 0 0 0 0 1 -1\n0 -1 0 0 0 -1 -1\nlines\n");
  EXPECT_EQ(chart(), read("[Hello]", "-1..0", "0,0 -1,0 ", "0,1", 2));
}

TEST_F(Malformed, AReadThatFailedEndsTheReading) {
  select(upToBoxes + "2\nx\n0 0 0 0 0 1 -1\n0 1 0 0 0 1 -1\n1\n0 0 0 1 1 5 0\n");
  EXPECT_EQ(chart(), unreadWith("[Hello]"));
}

TEST_F(Malformed, OneCellOfACutFileIsReadAgain) {
  select(upToBoxes + "2\n0 0 0 0 0 1 -1\n");
  EXPECT_EQ(chart(), read("[Hello]", "0..0", "0,0 ", "0", 1));
  EXPECT_EQ(elements().at(0).m_yesDir, xPlus);
  select(upToBoxes + "2\n0 0 0 0 0 1 -1\n0 1 0 0 0 -1 -1\n0\n");
  EXPECT_EQ(elements().size(), 2u);
}

TEST_F(Malformed, TwoCellsOfACutFileAreNotReadAgain) {
  select(upToBoxes + "3\n0 0 0 0 0 1 -1\n0 1 0 0 0 -1 -1\n");
  write(ChartFile().box(0, 0, "a").box(1, 0, "b").box(2, 0, "c"));
  engine.mSetStartLocation(0);
  EXPECT_EQ(elements().size(), 2u);
}

TEST_F(Malformed, ALastLineWithoutALineFeedIsALine) {
  select(upToBoxes + "1\n0 0 0 0 0 1 -1\n1\n0 0 0 1 1 1 0");
  EXPECT_EQ(elements().size(), 2u);
  CTavrel fresh(directory.prefix());
  write("h\nh\n1\nlast");
  EXPECT_EQ(fresh.mGetFlowchartIntro(0), Lines{"last"});
}

struct Number {
  const char* what;
  std::string text;
  bool isRead;
  std::int32_t value;
};

TEST_F(Malformed, IntegersAreDecimalSignedAndOf32Bits) {
  const Number numbers[] = {
      {"plain", "12", true, 12},
      {"plus", "+12", true, 12},
      {"minus", "-12", true, -12},
      {"minus zero", "-0", true, 0},
      {"leading zeros", "0000000000000000000000012", true, 12},
      {"no octal", "010", true, 10},
      {"largest direction", "2147483647", true, 2147483647},
      {"smallest direction", "-2147483648", true, INT32_MIN},
      {"one too large", "2147483648", false, 0},
      {"one too small", "-2147483649", false, 0},
      {"far too large", "99999999999999999999999999", false, 0},
      {"beyond 64 bits by exactly a turn", "18446744073709551617", false, 0},
      {"beyond 32 bits by exactly a turn", "4294967297", false, 0},
      {"sign alone", "+", false, 0},
      {"two signs", "+-1", false, 0},
      {"sign apart", "- 1", false, 0},
      {"word", "x", false, 0},
      {"point first", ".5", false, 0},
      {"NUL",
       std::string("\0"
                   "1",
                   2),
       false, 0},
      {"no-break space before",
       "\xa0"
       "1",
       false, 0},
      {"next line byte before",
       "\x85"
       "1",
       false, 0},
  };
  for (const Number& number : numbers) {
    SCOPED_TRACE(number.what);
    write(upToBoxes + "1\n0 0 0 0 0 1 -1\n1\n0 0 0 " + number.text + " 2 1 0\n");
    CTavrel fresh(directory.prefix());
    fresh.mSetStartLocation(0);
    const auto& read = EngineAccess::screenElements(fresh)[0];
    ASSERT_EQ(read.size(), number.isRead ? 2u : 1u);
    if (number.isRead) {
      EXPECT_EQ(read[1].m_directionInto, number.value);
    }
  }
}

TEST_F(Malformed, WhitespaceIsBytes9To13And32) {
  select(upToBoxes + " \t\n\v\f\r1\n0\t0\n0\v0\f0\r1  -1\n \t\v\f\r\n0\n");
  EXPECT_EQ(chart(), read("[Hello]", "0..0", "0,0 ", "0", 1));
  EXPECT_EQ(elements().at(0).m_yesDir, xPlus);
}

// Other bytes, those next to whitespace and digits first of all.
const std::string strangers[] = {
    std::string("\0", 1), "\x08", "\x0e", "\x1f", "!", "/", ":", "\x85", "\xa0"};

TEST_F(Malformed, NoOtherByteIsWhitespaceOrADigitBeforeAnInteger) {
  for (const std::string& stranger : strangers) {
    SCOPED_TRACE(testing::PrintToString(stranger));
    CTavrel fresh(directory.prefix());
    write(upToBoxes + stranger + "1\n0 0 0 0 0 1 -1\n0\n");
    fresh.mSetStartLocation(0);
    EXPECT_EQ(describe(EngineAccess::screenElements(fresh)[0].at(0)), placeholder);
    write(upToBoxes + "1\n" + stranger + " 0 0 0 0 1 -1\n0\n");
    fresh.mSetStartLocation(0);
    EXPECT_EQ(describe(EngineAccess::screenElements(fresh)[0].at(0)), placeholder);
  }
}

TEST_F(Malformed, NoOtherByteStandsBetweenTwoIntegers) {
  for (const std::string& stranger : strangers) {
    SCOPED_TRACE(testing::PrintToString(stranger));
    CTavrel fresh(directory.prefix());
    for (const std::string& cell :
         {"0" + stranger + "0 0 0 0 1 -1", "0 0 0 0 0 1" + stranger + "-1"}) {
      write(upToBoxes + "1\n" + cell + "\n0\n");
      fresh.mSetStartLocation(0);
      EXPECT_EQ(describe(EngineAccess::screenElements(fresh)[0].at(0)), placeholder);
    }
  }
}

TEST_F(Malformed, NoOtherByteContinuesAnInteger) {
  for (const std::string& stranger : strangers) {
    SCOPED_TRACE(testing::PrintToString(stranger));
    CTavrel fresh(directory.prefix());
    for (const std::string exit : {"2", "-2"}) {
      write(upToBoxes + "1" + stranger + "\n0 0 0 0 0 1 " + exit + stranger + "\n0\n");
      fresh.mSetStartLocation(0);
      EXPECT_EQ(describe(EngineAccess::screenElements(fresh)[0].at(0)),
                "box 0,0 @0,0  () > y1 n" + exit + " i4 o4");
    }
  }
}

TEST_F(Malformed, AnIntegerEndsAtItsLastDigit) {
  select("h\nh\n1x\nHello\n1.5\n0,\n0-\n\n1e3\n0 0 0 0 0 1 -1then\n1:\n0 0 0 1 1 1 0x10\n");
  EXPECT_EQ(chart(), read("[Hello]", "0..1", "0,0 1,0 ", "0,1", 2));
}

TEST_F(Malformed, BetweenTwoIntegersStandsWhitespace) {
  for (const std::string cell :
       {"0 0 0 0 0 1-1", "0 0+0 0 0 1 -1", "0 0 0 0 0 1,-1", "0-0-0-0-0-1-1", "0 0 0x 0 0 1 -1"}) {
    SCOPED_TRACE(cell);
    write(upToBoxes + "1\n" + cell + "\n0\n");
    CTavrel fresh(directory.prefix());
    fresh.mSetStartLocation(0);
    EXPECT_EQ(describe(EngineAccess::screenElements(fresh)[0].at(0)), placeholder);
  }
}

TEST_F(Malformed, NoWhitespaceIsNeededAtTheStartOfALine) {
  select("h\nh\n-0\n+1\n0\n0\n\n+2\n+0 0 0 0 0 1 -1\n-0 1 0 0 0 -1 -1\n+0\n");
  EXPECT_EQ(chart(), read("", "0..1", "0,0 1,0 ", "0,1", 2));
}

TEST_F(Malformed, NegativeCountsOfAnythingButBoxesReadNothing) {
  select("h\nh\n-3\n1\n-1\n-2147483648\nSlam\n1\n0 0 0 0 0 1 -1\n-5\n0 0 0 1 1 1 0\n");
  EXPECT_EQ(chart(), read("", "0..0", "0,0 ", "0", 1));
  EXPECT_EQ(describe(elements().at(0)), "box 0,0 @0,0  () >Slam y1 n4 i4 o4");
}

TEST_F(Malformed, ANegativeNumberOfNodesReadsNoneSoNoBoxCanStand) {
  write("h\nh\n0\n-1\n1\n0 0 0 0 0 1 -1\n0\n");
  expectSelecting("out_of_range");
  write("h\nh\n0\n-1\n0\n0\n", "PGF");
  engine.mSetStartLocation(44);
  EXPECT_TRUE(elements(44).empty());
}

TEST_F(Malformed, ANegativeNumberOfBoxesThrowsWithAnEmptyListLeft) {
  for (const std::string count : {"-1", "-2147483648"}) {
    write(upToBoxes + count + "\n0\n");
    CTavrel fresh(directory.prefix());
    EXPECT_EQ(typeThrown([&] { fresh.mSetStartLocation(0); }), "length_error");
    EXPECT_EQ(describeChart(fresh, 0), "intro=[Hello] x=0..0 y=0..0 cells=list=0 starts=0,1");
    EXPECT_EQ(describe(fresh), "0 - 0,0 #0 path=\"\" marks=");
  }
}

TEST_F(Malformed, ANumberOfBoxesBelow32BitsIsAFailedRead) {
  select(upToBoxes + "-2147483649\n0\n");
  EXPECT_EQ(chart(), unreadWith("[Hello]"));
}

TEST_F(Malformed, AfterANegativeNumberOfBoxesOnlyASelectionReadsAgain) {
  write(upToBoxes + "-1\n");
  expectSelecting("length_error");
  write(ChartFile().intro({"New"}).box(0, 0, "a").box(1, 0, "b"));
  const std::string before = snapshot(engine);
  EXPECT_EQ(typeThrown([&] { engine.mStartNewPath(0, "y"); }), "out_of_range");
  EXPECT_EQ(snapshot(engine), before);
  engine.mSetStartLocation(0);
  EXPECT_EQ(chart(), read("[New]", "0..1", "0,0 1,0 ", "0,1", 2));
}

TEST_F(Malformed, QueriesOfAnEmptiedFlowchartWithItsOldRowIndexThrowOrAreEmpty) {
  write(upToBoxes + "-1\n");
  expectSelecting("length_error");
  EXPECT_TRUE(engine.mGetAllElements().empty());
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(0, 0); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetElementsInBoundaries(0, 0, 0, 0); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mCurrentCommentText(); }), "out_of_range");
  EXPECT_TRUE(engine.mGetElementsInBoundaries(0, 0, 1, 9).empty());
}

TEST_F(Malformed, ANodeNumberThatNamesNoNodeThrowsWithTheListAsFarAsItHadGrown) {
  for (const std::string node : {"1", "-1", "2147483647", "-2147483648"}) {
    SCOPED_TRACE(node);
    write(upToBoxes + "4\n0 0 0 0 0 1 -1\n0 3 1 0 0 -1 -1\n" + node +
          " 7 -2 0 0 -1 -1\n0 9 9 0 0 -1 -1\n1\n0 0 0 1 1 1 0\n");
    CTavrel fresh(directory.prefix());
    EXPECT_EQ(typeThrown([&] { fresh.mSetStartLocation(0); }), "out_of_range");
    EXPECT_EQ(describeChart(fresh, 0),
              "intro=[Hello] x=0..7 y=-2..1 cells=0,0 3,1 list=0 starts=0,1");
    EXPECT_EQ(describe(fresh), "0 - 0,0 #0 path=\"\" marks=");
  }
}

TEST_F(Malformed, ABadNodeNumberThrowsEvenWhereALaterCellIsMalformed) {
  write(upToBoxes + "3\n0 0 0 0 0 1 -1\n5 1 0 0 0 -1 -1\nrubbish\n");
  expectSelecting("out_of_range");
  EXPECT_EQ(chart(), "intro=[Hello] x=0..1 y=0..0 cells=0,0 list=0 starts=0,1");
}

TEST_F(Malformed, ABadNodeNumberInACellThatIsCutIsAFailedRead) {
  select(upToBoxes + "2\n0 0 0 0 0 1 -1\n5 1 0 0 0 -1");
  EXPECT_EQ(chart(), read("[Hello]", "0..0", "0,0 ", "0", 1));
}

TEST_F(Malformed, ABadNodeNumberInTheFirstCellLeavesAnEmptyListToBeReadAgain) {
  write(upToBoxes + "1\n1 4 0 0 0 -1 -1\n0\n");
  expectSelecting("out_of_range");
  EXPECT_EQ(chart(), "intro=[Hello] x=0..4 y=0..0 cells=list=0 starts=0,1");
  select(ChartFile().box(0, 0, "a").box(0, 1, "b").text());
  EXPECT_EQ(chart(), "intro= x=0..4 y=0..1 cells=0,0 0,1 list=0,1 starts=0,1,2");
}

TEST_F(Malformed, ABadNodeNumberAfterTwoBoxesLeavesThemForGood) {
  write(upToBoxes + "3\n0 0 0 0 0 1 -1\n0 1 0 0 0 -1 -1\n1 2 0 0 0 -1 -1\n0\n");
  expectSelecting("out_of_range");
  write(ChartFile().box(0, 0, "a").box(0, 1, "b").box(0, 2, "c"));
  expectSelecting("");
  EXPECT_EQ(chart(), "intro=[Hello] x=0..2 y=0..0 cells=0,0 1,0 list=0 starts=0,1");
}

TEST_F(Malformed, ASelectionThatThrowsStandsButKeepsLocationElementAndAnswers) {
  write(ChartFile().box(0, 0, "a", xPlus).box(1, 0, "b"), "PGF");
  write(upToBoxes + "1\n5 0 0 0 0 -1 -1\n");
  write(upToBoxes + "-1\n", "AOpening");
  const auto startOnPGF = [this] {
    engine.mStartNewPath(44, "yn");
    engine.mMoveYes();
    ASSERT_EQ(describe(engine), "44 PGF 1,0 #1 path=\"n\" marks=0,1");
  };
  startOnPGF();
  EXPECT_EQ(typeThrown([&] { engine.mStartNewPath(0, "nnn"); }), "out_of_range");
  EXPECT_EQ(describe(engine), "0 PGF 1,0 #1 path=\"n\" marks=");
  startOnPGF();
  EXPECT_EQ(typeThrown([&] { engine.mSetStartLocation(1); }), "length_error");
  EXPECT_EQ(describe(engine), "1 PGF 1,0 #1 path=\"n\" marks=");
}

TEST_F(Malformed, AnIntroductionWhoseReadingThrowsIsThrown) {
  write(upToBoxes + "-1\n");
  EXPECT_EQ(typeThrown([&] { engine.mGetFlowchartIntro(0); }), "length_error");
  EXPECT_EQ(EngineAccess::flowchartIntros(engine)[0], Lines{"Hello"});
}

// --- Extent ---------------------------------------------------------------

TEST_F(Malformed, MoreThan16777216RowsAreRefusedWithNothingChanged) {
  for (const std::int64_t y : {16777216, -16777216, 2147483647}) {
    SCOPED_TRACE(y);
    CTavrel fresh(directory.prefix());
    write(ChartFile().intro({"Old"}).box(1, 2, "a"));
    fresh.mSetStartLocation(0);
    const std::string before = describeChart(fresh, 0);
    write(ChartFile().intro({"New"}).box(0, 0, "b").box(5, y, "c"));
    EXPECT_EQ(typeThrown([&] { fresh.mSetStartLocation(0); }), "length_error");
    EXPECT_EQ(describeChart(fresh, 0), before);
  }
}

TEST_F(Malformed, RowsOnBothSidesOfTheOriginCountTogether) {
  write(ChartFile().box(0, -8388608, "a").box(0, 8388608, "b"));
  expectSelecting("length_error");
  EXPECT_EQ(chart(), unreadChart);
  write(ChartFile().box(0, -2147483648, "a").box(0, 2147483647, "b"));
  expectSelecting("length_error");
  EXPECT_EQ(chart(), unreadChart);
}

TEST_F(Malformed, ARefusedExtentIsTriedAgain) {
  write(ChartFile().box(0, 0, "a").line(0, 16777216, 0, 0));
  expectSelecting("length_error");
  select(ChartFile().box(0, 0, "a").box(1, 0, "b").text());
  EXPECT_EQ(elements().size(), 2u);
}

TEST_F(Malformed, ARefusedExtentSaysWhatIsWrong) {
  write(ChartFile().box(0, 0, "a").box(0, 16777216, "b"));
  EXPECT_EQ(textThrown<std::length_error>([this] { engine.mSetStartLocation(0); }),
            "CTavrel: no flowchart can have this size");
}

TEST_F(Malformed, ARefusedExtentClearsTheOldMarkAndKeepsTheAnswers) {
  engine.mStartNewPath(0, "n");
  write(ChartFile().intro({"New"}).box(0, 0, "a").box(0, 16777216, "b"));
  ASSERT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"n\" marks=0");
  EXPECT_EQ(typeThrown([this] { engine.mStartNewPath(0, "yy"); }), "length_error");
  EXPECT_EQ(describe(engine), "0 Opening 0,0 #0 path=\"n\" marks=");
  EXPECT_EQ(chart(), unreadChart);
  EXPECT_EQ(describe(elements().at(0)), placeholder);
}

TEST_F(Malformed, Exactly16777216RowsAreRead) {
  select(ChartFile().box(0, 0, "a").box(0, 16777215, "b").text());
  EXPECT_EQ(engine.mFind(0, 0, 16777215), 1);
  EXPECT_EQ(EngineAccess::rowStarts(engine)[0].size(), 16777217u);
  EXPECT_EQ(elements().at(1).m_yOffset, 1 + 16777215 * 2 + 1);
}

TEST_F(Malformed, OffsetsMayReachTheEndsOf32BitsAndNotPassThem) {
  constexpr std::int64_t column = 143165576;  // its gaps alone make 2147483640
  struct Extent {
    std::int64_t x;
    std::string root, end;
    const char* thrown;
  };
  const Extent extents[] = {
      {column, "abc", "abcd", ""},           {column, "abcd", "abcd", "length_error"},
      {-column, "abcd", "abcd", ""},         {-column, "abcd", "abcde", "length_error"},
      {column + 1, "", "", "length_error"},  {2147483647, "", "", "length_error"},
      {-2147483648, "", "", "length_error"},
  };
  for (const Extent& extent : extents) {
    SCOPED_TRACE(extent.x);
    write(ChartFile().box(0, 0, extent.root).box(extent.x, 0, extent.end));
    CTavrel fresh(directory.prefix());
    EXPECT_EQ(typeThrown([&] { fresh.mSetStartLocation(0); }), extent.thrown);
    if (*extent.thrown) {
      EXPECT_EQ(describeChart(fresh, 0), unreadChart);
    } else {
      EXPECT_EQ(EngineAccess::screenElements(fresh).at(0).at(1).m_xOffset,
                extent.x > 0 ? INT32_MAX : INT32_MIN);
    }
  }
}

TEST_F(Malformed, OffsetsOfRowsMayNotPass32BitsEither) {
  ChartFile tall;
  tall.node(Lines(40000, ""));
  for (int y = 0; y < 30000; ++y) tall.cell(0, 0, y);
  write(tall);
  expectSelecting("length_error");
  EXPECT_EQ(chart(), unreadChart);
}

TEST_F(Malformed, OffsetsOfColumnsThatOnlyAnEarlierReadWidenedToDoNotCount) {
  write(upToBoxes + "1\n1 2147483647 0 0 0 -1 -1\n0\n");
  expectSelecting("out_of_range");
  select(ChartFile().box(0, 0, "ab").box(1, 0, "c").text());
  EXPECT_EQ(chart(), "intro= x=0..2147483647 y=0..0 cells=0,0 1,0 list=0,1 starts=0,2");
  EXPECT_EQ(elements().at(1).m_xOffset, 18);
}

TEST_F(Malformed, RowsThatOnlyAnEarlierReadWidenedToCount) {
  write(upToBoxes + "1\n1 0 2147483647 0 0 -1 -1\n0\n");
  expectSelecting("out_of_range");
  const std::string before = "intro=[Hello] x=0..0 y=0..2147483647 cells=list=0 starts=0,1";
  EXPECT_EQ(chart(), before);
  write(ChartFile().intro({"New"}).box(0, 0, "ab").box(1, 0, "c"));
  for (int i = 0; i < 2; ++i) {
    expectSelecting("length_error");
    EXPECT_EQ(chart(), before);
  }
  CTavrel fresh(directory.prefix());
  fresh.mSetStartLocation(0);
  EXPECT_EQ(describeChart(fresh, 0), "intro=[New] x=0..1 y=0..0 cells=0,0 1,0 list=0,1 starts=0,2");
}

// --- Things that are no files ---------------------------------------------

TEST_F(Malformed, ADirectoryAPipeOrADeviceIsAnUnreadableFileAtOnce) {
  alarm(20);  // a read that waits would wait for ever
  const auto expectUnread = [this](const char* what) {
    SCOPED_TRACE(what);
    engine.mSetStartLocation(0);
    EXPECT_EQ(chart(), unreadChart);
    EXPECT_EQ(engine.mGetFlowchartIntro(0), Lines{"Unable to read this flowchart intro."});
    remove();
  };
  std::filesystem::create_directory(directory.chart("Opening"));
  expectUnread("directory");
  ASSERT_EQ(mkfifo(directory.chart("Opening").c_str(), 0600), 0);
  expectUnread("pipe");
  for (const char* device : {"/dev/zero", "/dev/null", "/dev/full", "/dev/tty"}) {
    std::filesystem::create_symlink(device, directory.chart("Opening"));
    expectUnread(device);
  }
  std::filesystem::create_symlink("nowhere", directory.chart("Opening"));
  expectUnread("link to nothing");
  alarm(0);
}

TEST_F(Malformed, ALinkToAFileIsAFile) {
  write(ChartFile().box(0, 0, "a").box(1, 0, "b"), "elsewhere");
  std::filesystem::create_symlink("elsewhere.fv", directory.chart("Opening"));
  engine.mSetStartLocation(0);
  EXPECT_EQ(elements().size(), 2u);
}

}  // namespace
}  // namespace tavrel
