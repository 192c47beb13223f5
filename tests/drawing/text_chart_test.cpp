// How boxes are drawn, and what is drawn of charts that are not as they should be.

#include <string>

#include "drawing/TextChart.h"
#include "tests/drawing/CrowdedChart.h"
#include "tests/drawing/DrawingTest.h"

namespace tavrel {
namespace {

using TextChartTest = DrawingTest;

ChartFile boxOf(const Lines& lines, const std::string& next = "") {
  return ChartFile().node(lines, {}, next).cell(0, 0, 0);
}

TEST_F(TextChartTest, DrawsTheExampleOfItsHeader) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "12+?", xPlus, yPlus).box(1, 0, "Open").box(0, 1, "Pass")),
            R"(
┌──────┐      ╭──────╮
│ 12+? ├─yes─▶│ Open │
└──┬───┘      ╰──────╯
   │ no
   ▼
╭──────╮
│ Pass │
╰──────╯
)");
}

TEST_F(TextChartTest, CentresTheLinesOfABox) {
  EXPECT_EQ(drawn(boxOf({"Balanced with", "15–17 HCP", "and a stopper?"})), R"(
╭────────────────╮
│ Balanced with  │
│   15–17 HCP    │
│ and a stopper? │
╰────────────────╯
)");
}

TEST_F(TextChartTest, DrawsABoxWithoutTextAsAnEmptyFrame) {
  EXPECT_EQ(drawn(boxOf({})), R"(
╭──╮
│  │
╰──╯
)");
}

TEST_F(TextChartTest, NamesTheNextFlowchartInTheFrame) {
  EXPECT_EQ(drawn(boxOf({"1NT"}, "RespNT")), R"(
╭───────────╮
│    1NT    │
╰─▶ RespNT ─╯
)");
  EXPECT_EQ(drawn(boxOf({"Open one no trump"}, "RespNT"), Charset::plain), R"(
+-------------------+
| Open one no trump |
+-> RespNT ---------+
)");
}

TEST_F(TextChartTest, KeepsTheNameWholeWhereAnExitLeavesBelowIt) {
  EXPECT_EQ(drawn(ChartFile().link(0, 0, "1NT", "RespNT", yPlus).box(0, 1, "Pass")), R"(
┌───────────┐
│    1NT    │
└─▶ RespNT ─┘
      │ yes
      ▼
   ╭──────╮
   │ Pass │
   ╰──────╯
)");
}

TEST_F(TextChartTest, InksSaysWhatEveryCharacterIs) {
  select(ChartFile().link(0, 0, "1♣ 2♦ 3♥ 4♠", "Leben", xPlus).box(1, 0, "A"), "");
  EXPECT_EQ(inks(wholePicture(navigator)), R"(
fffffffffffffff        fffff
f tCttDttHttS flwwwllllf t f
ffnnnnnnnnfffff        fffff
)");
}

TEST_F(TextChartTest, KeepsTheInkOfSuitsThatAreLetters) {
  select(boxOf({"C♣♦♥♠…"}));
  const TextPicture picture = wholePicture(navigator, Charset::plain);
  EXPECT_EQ(picture.line(1), "# CCDHS... #");
  EXPECT_EQ(inks(picture).substr(14, 12), "f tCDHSttt f");
}

TEST_F(TextChartTest, GivesWideCharactersTwoCells) {
  EXPECT_EQ(drawn(boxOf({"日本", "abcd"})), R"(
╭──────╮
│ 日本 │
│ abcd │
╰──────╯
)");
  const TextPicture picture = wholePicture(navigator);
  EXPECT_EQ(picture.at(1, 2).glyph, "日");
  EXPECT_EQ(picture.at(1, 3).glyph, "");
  EXPECT_EQ(picture.at(1, 3).ink, Ink::text);
  EXPECT_EQ(picture.at(1, 4).glyph, "本");
}

TEST_F(TextChartTest, KeepsAccentsWithTheirLetters) {
  EXPECT_EQ(drawn(boxOf({"cafe\u0301", "abcd"})),
            "\n"
            "╭──────╮\n"
            "│ cafe\u0301 │\n"
            "│ abcd │\n"
            "╰──────╯\n");
  EXPECT_EQ(wholePicture(navigator).at(1, 5).glyph, "e\u0301");
}

TEST_F(TextChartTest, LeavesOutCharactersOfNoWidth) {
  EXPECT_EQ(drawn(boxOf({"a\u200bb"})), R"(
╭────╮
│ ab │
╰────╯
)");
}

TEST_F(TextChartTest, ShowsControlCharactersAsReplacements) {
  EXPECT_EQ(drawn(boxOf({"a\x1b[0mb\r"}, "x\ty")), R"(
╭─────────╮
│ a�[0mb� │
╰─▶ x�y ──╯
)");
}

TEST_F(TextChartTest, SaysThatATextIsNotUtf8) {
  EXPECT_EQ(drawn(boxOf({"fine", "\xff\xfe"})), R"(
╭─────────────╮
│ (not UTF-8) │
╰─────────────╯
)");
}

TEST_F(TextChartTest, DrawsTheFirstOfTwoElementsInOneCell) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A").box(0, 0, "A much longer one", xPlus)), R"(
╭───╮
│ A │
╰───╯
)");
}

int countOf(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// How many lines of x's as the box texts are made of, and words at exits.
struct Counted {
  int texts = 0, yes = 0, no = 0, links = 0;
};

Counted countedElements(const Tavrel& navigator) {
  Counted counted;
  for (const ScreenElement& element : navigator.allElements()) {
    if (!element.isNode()) continue;
    ++counted.texts;
    counted.yes += element.yesDirection() != XYDirectionNone;
    counted.no += element.noDirection() != XYDirectionNone;
    counted.links += element.nameOfNextFlowchart().has_value();
  }
  return counted;
}

TEST_F(TextChartTest, KeepsAllThatIsWrittenWholeInACrowdedChart) {
  const std::string picture = drawn(crowdedChart());
  const Counted counted = countedElements(navigator);
  EXPECT_EQ(countOf(picture, " xxxxx "), countOf(crowdedChart().text(), "\nxxxxx\n"));
  EXPECT_EQ(countOf(picture, " x"), counted.texts);
  EXPECT_EQ(countOf(picture, "yes"), counted.yes);
  EXPECT_EQ(countOf(picture, "no"), counted.no);
  EXPECT_EQ(countOf(picture, "─▶ Leben ─"), counted.links);
}

TEST_F(TextChartTest, DrawsThePlaceholderOfAChartThatIsNotRead) {
  EXPECT_EQ(shown(wholePicture(navigator)), R"(
╭────────────────────╮
│ Flowchart not read │
╰────────────────────╯
)");
}

TEST_F(TextChartTest, IsEmptyForAChartWithoutElements) {
  EXPECT_EQ(drawn(ChartFile()), "\n");
  const TextChart chart(navigator, Charset::utf8);
  EXPECT_EQ(chart.width(), 0);
  EXPECT_EQ(chart.height(), 0);
  EXPECT_EQ(shown(chart.paint(navigator, {-1, -1, 3, 2})), "\n\n\n");
}

TEST_F(TextChartTest, MarksTheElementUnderTheCursor) {
  select(ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B"));
  const TextChart chart(navigator, Charset::utf8);
  EXPECT_EQ(currentCells(chart.paint(navigator, {0, 0, 20, 3})), R"(
@@@@@
@@@@@
@@@@@
)");
  navigator.moveYes();
  EXPECT_EQ(currentCells(chart.paint(navigator, {0, 0, 20, 3})), R"(
           @@@@@
           @@@@@
           @@@@@
)");
}

TEST_F(TextChartTest, MarksAConnectorUnderTheCursor) {
  select(ChartFile().line(0, 0, xPlus, xPlus).box(1, 0, "B"));
  EXPECT_EQ(currentCells(wholePicture(navigator)), "\n\n@@@\n\n");
}

TEST_F(TextChartTest, TakesThePathMarksAtTheMomentOfPainting) {
  select(ChartFile().box(0, 0, "A", xPlus, yPlus).box(1, 0, "B").box(0, 1, "C"), "y");
  const TextChart chart(navigator, Charset::utf8);
  const std::string yes = shown(chart.paint(navigator, {0, 0, 16, 8}));
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "n");
  EXPECT_EQ(shown(chart.paint(navigator, {0, 0, 16, 8})), R"(
┏━━━┓      ╭───╮
┃ A ┠─yes─▶│ B │
┗━┳━┛      ╰───╯
  ┃ no
  ▼
┏━━━┓
┃ C ┃
┗━━━┛
)");
  EXPECT_NE(yes.find("━yes━"), std::string::npos);
}

TEST_F(TextChartTest, KnowsWhereABoxIsDrawn) {
  select(ChartFile().box(0, 0, "12+?", xPlus, yPlus).box(1, 0, "Open").box(0, 1, "Pass"));
  const TextChart chart(navigator, Charset::utf8);
  const TextWindow open = chart.frameOf(1, 0);
  EXPECT_EQ(open.left, 14);
  EXPECT_EQ(open.top, 0);
  EXPECT_EQ(open.width, 8);
  EXPECT_EQ(open.height, 3);
  EXPECT_EQ(chart.frameOf(0, 1).top, 5);
}

TEST_F(TextChartTest, HasNoFrameForAnEmptyCell) {
  select(ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B"));
  const TextChart chart(navigator, Charset::utf8);
  for (const auto& [x, y] :
       {std::pair(2, 0), std::pair(0, 1), std::pair(-1, 0), std::pair(0, -1)}) {
    EXPECT_EQ(chart.frameOf(x, y).width, 0);
    EXPECT_EQ(chart.frameOf(x, y).height, 0);
  }
}

TEST_F(TextChartTest, BearsAnotherFlowchartThanTheOneMeasured) {
  ChartFile()
      .box(7, 0, "Elsewhere", xPlus)
      .box(0, 0, "A longer text than before")
      .writeTo(directory.path(), "Leben");
  select(ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B"));
  const TextChart chart(navigator, Charset::utf8);
  navigator.resetToStartLocationForFlowchartAtIndex(7);
  EXPECT_EQ(chart.paint(navigator, {0, 0, 16, 3}).width(), 16);
}

TEST_F(TextChartTest, LeavesOutWhatStandsBetweenTheColumnsAndRowsMeasured) {
  ChartFile()
      .box(0, 0, "A")
      .box(1, 0, "Between")
      .box(0, 1, "Between")
      .writeTo(directory.path(), "Leben");
  select(ChartFile().box(0, 0, "A").box(2, 0, "B").box(0, 2, "C"));
  const TextChart chart(navigator, Charset::utf8);
  navigator.resetToStartLocationForFlowchartAtIndex(7);
  const TextPicture picture = chart.paint(
      navigator, {0, 0, static_cast<int>(chart.width()), static_cast<int>(chart.height())});
  EXPECT_EQ(shown(picture).find("Between"), std::string::npos);
  EXPECT_NE(shown(picture).find("│ A │"), std::string::npos);
}

}  // namespace
}  // namespace tavrel
