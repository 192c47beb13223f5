// How the lines between boxes are drawn.

#include <string>
#include <utility>
#include <vector>

#include "authoring/Compiler.h"
#include "tests/drawing/DrawingTest.h"

namespace tavrel {
namespace {

using TextChartLines = DrawingTest;

TEST_F(TextChartLines, JoinBoxesThatStandSideBySide) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "12+?", xPlus).box(1, 0, "Open")), R"(
┌──────┐      ╭──────╮
│ 12+? ├─yes─▶│ Open │
└──────┘      ╰──────╯
)");
}

TEST_F(TextChartLines, JoinBoxesThatStandOneBelowTheOther) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "12+?", noExit, yPlus).box(0, 1, "Pass")), R"(
┌──────┐
│ 12+? │
└──┬───┘
   │ no
   ▼
╭──────╮
│ Pass │
╰──────╯
)");
}

TEST_F(TextChartLines, RunToTheLeftAndUp) {
  EXPECT_EQ(
      drawn(ChartFile().box(0, 0, "12+?", xMinus, yMinus).box(-1, 0, "Open").box(0, -1, "Pass")),
      R"(
              ╭──────╮
              │ Pass │
              ╰──────╯
                 ▲
                 │ no
╭──────╮      ┌──┴───┐
│ Open │◀─yes─┤ 12+? │
╰──────╯      └──────┘
)");
}

TEST_F(TextChartLines, PassThroughConnectors) {
  EXPECT_EQ(drawn(ChartFile()
                      .box(0, 0, "12+?", xPlus, yPlus)
                      .run(1, 0, xPlus, 1)
                      .box(2, 0, "Open")
                      .run(0, 1, yPlus, 1)
                      .box(0, 2, "Pass")),
            R"(
┌──────┐            ╭──────╮
│ 12+? ├─yes───────▶│ Open │
└──┬───┘            ╰──────╯
   │ no
   │
   ▼
╭──────╮
│ Pass │
╰──────╯
)");
}

// Round a box and back into it, clockwise and counter-clockwise: all eight bends.
TEST_F(TextChartLines, BendClockwise) {
  EXPECT_EQ(drawn(ChartFile()
                      .box(0, 0, "Again?", xPlus)
                      .line(1, 0, xPlus, yPlus)
                      .line(1, 1, yPlus, xMinus)
                      .line(0, 1, xMinus, xMinus)
                      .line(-1, 1, xMinus, yMinus)
                      .line(-1, 0, yMinus, yMinus)
                      .line(-1, -1, yMinus, xPlus)
                      .line(0, -1, xPlus, yPlus)),
            R"(
┌──────────┐
│          ▼
│      ┌────────┐
│      │ Again? ├─yes─┐
│      └────────┘     │
└─────────────────────┘
)");
}

TEST_F(TextChartLines, BendCounterClockwise) {
  EXPECT_EQ(drawn(ChartFile()
                      .box(0, 0, "Again?", noExit, xMinus)
                      .line(-1, 0, xMinus, yPlus)
                      .line(-1, 1, yPlus, xPlus)
                      .line(0, 1, xPlus, xPlus)
                      .line(1, 1, xPlus, yMinus)
                      .line(1, 0, yMinus, yMinus)
                      .line(1, -1, yMinus, xMinus)
                      .line(0, -1, xMinus, yPlus)),
            R"(
           ┌──────────┐
           ▼          │
       ┌────────┐     │
┌───no─┤ Again? │     │
│      └────────┘     │
└─────────────────────┘
)");
}

TEST_F(TextChartLines, MeetInOneConnector) {
  EXPECT_EQ(drawn(ChartFile()
                      .box(0, 0, "12+?", xPlus, yPlus)
                      .line(1, 0, xPlus, yPlus)
                      .box(0, 1, "10+?", xPlus)
                      .line(1, 1, yPlus, xPlus)
                      .box(2, 1, "Open")),
            R"(
┌──────┐
│ 12+? ├─yes─┐
└──┬───┘     │
   │ no      │
   ▼         │
┌──────┐     │      ╭──────╮
│ 10+? ├─yes─┴─────▶│ Open │
└──────┘            ╰──────╯
)");
}

TEST_F(TextChartLines, NameBothExitsThatLeaveTheSameWay) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "12+?", xPlus, xPlus).box(1, 0, "Open")), R"(
┌──────┐         ╭──────╮
│ 12+? ├─yes/no─▶│ Open │
└──────┘         ╰──────╯
)");
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "?", yPlus, yPlus).box(0, 1, "!")), R"(
┌───┐
│ ? │
└─┬─┘
  │ yes/no
  ▼
╭───╮
│ ! │
╰───╯
)");
}

TEST_F(TextChartLines, RunBothWaysBetweenBoxesThatLeadIntoEachOther) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B", noExit, xMinus)), R"(
┌───┐           ┌───┐
│ A │◀─yes──no─▶│ B │
└───┘           └───┘
)");
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A", yPlus).box(0, 1, "B", noExit, yMinus)), R"(
┌───┐
│ A │
└───┘
  ▲
  │ yes
  │ no
  ▼
┌───┐
│ B │
└───┘
)");
}

TEST_F(TextChartLines, EndInACrossWhereAnExitLeadsToNothing) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A", xPlus, yPlus)), R"(
┌───┐
│ A ├─yes─✗
└─┬─┘
  │ no
  ✗
)");
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A", xMinus, yMinus), Charset::plain), R"(
        x
        | no
      +-+-+
x-yes-+ A |
      +---+
)");
}

TEST_F(TextChartLines, EndInACrossWhereAConnectorLeadsToNothing) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A", xPlus).run(1, 0, xPlus, 1)), R"(
┌───┐
│ A ├─yes──✗
└───┘
)");
}

TEST_F(TextChartLines, DontGoWhereADirectionIsNone) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A", -2, 77).line(1, 0, -1, 4).line(2, 0, 9, -7)), R"(
┌───┐
│ A │
└───┘
)");
}

TEST_F(TextChartLines, AreDrawnAsFarAsAConnectorKnowsThem) {
  EXPECT_EQ(drawn(ChartFile().box(0, 0, "A").line(1, 0, xPlus, -1)), R"(
╭───╮
│ A │  ───╴
╰───╯
)");
}

TEST_F(TextChartLines, AreAsciiInPlain) {
  EXPECT_EQ(drawn(ChartFile()
                      .box(0, 0, "12+?", xPlus, yPlus)
                      .box(1, 0, "Open")
                      .box(0, 1, "8+?", yPlus, xPlus)
                      .box(1, 1, "Pass", noExit, yMinus)
                      .line(0, 2, yPlus, xPlus)
                      .line(1, 2, xPlus, yMinus),
                  Charset::plain),
            R"(
+------+      +------+
| 12+? +-yes->| Open |
+--+---+      +------+
   | no          ^
   v             | no
+-----+       +--+---+
| 8+? +-no--->| Pass |
+--+--+       +------+
   | yes         ^
   +-------------+
)");
}

TEST_F(TextChartLines, AreHeavyOnThePath) {
  select(ChartFile()
             .box(0, 0, "12+?", xPlus, yPlus)
             .run(1, 0, xPlus, 1)
             .box(2, 0, "Open")
             .box(0, 1, "Pass"),
         "y");
  EXPECT_EQ(shown(wholePicture(navigator)), R"(
┏━━━━━━┓            ┏━━━━━━┓
┃ 12+? ┣━yes━━━━━━━▶┃ Open ┃
┗━━┯━━━┛            ┗━━━━━━┛
   │ no
   ▼
╭──────╮
│ Pass │
╰──────╯
)");
  EXPECT_EQ(litCells(wholePicture(navigator)), R"(
********            ********
****************************
********            ********





)");
  EXPECT_EQ(shown(wholePicture(navigator, Charset::plain)), R"(
+======+            +======+
# 12+? +=yes=======># Open #
+==+===+            +======+
   | no
   v
+------+
| Pass |
+------+
)");
}

TEST_F(TextChartLines, AreHeavyOnThePathAloneWhereLinesMeet) {
  select(ChartFile()
             .box(0, 0, "A", xPlus, yPlus)
             .line(1, 0, xPlus, yPlus)
             .box(0, 1, "B", xPlus)
             .line(1, 1, yPlus, xPlus)
             .box(2, 1, "C"),
         "y");
  EXPECT_EQ(shown(wholePicture(navigator)), R"(
┏━━━┓
┃ A ┣━yes━┓
┗━┯━┛     ┃
  │ no    ┃
  ▼       ┃
┌───┐     ┃     ┏━━━┓
│ B ├─yes─┺━━━━▶┃ C ┃
└───┘           ┗━━━┛
)");
}

// The characters that go on to a side, of light lines.
struct OpenSides {
  std::string right = "─┌└├┬┴┼╭╰", left = "─┐┘┤┬┴┼╮╯";
  std::string up = "│└┘├┤┴┼╰╯", down = "│┌┐├┤┬┼╭╮";
};

bool oneOf(const std::string& set, const std::string& glyph) {
  return glyph.size() > 1 && set.find(glyph) != std::string::npos;
}

bool isEnding(const TextCell& cell) {
  return cell.ink == Ink::label || cell.ink == Ink::link || oneOf("▶◀▲▼✗", cell.glyph);
}

// Whether what leaves `a` on the one side goes on in `b` on the other.
bool goesOn(const std::string& out, const TextCell& a, const std::string& in, const TextCell& b) {
  return !oneOf(out, a.glyph) || oneOf(in, b.glyph) || isEnding(b);
}

void expectNoLooseEnds(const TextPicture& picture) {
  const OpenSides open;
  for (int row = 0; row < picture.height(); ++row) {
    for (int column = 0; column < picture.width(); ++column) {
      const TextCell& here = picture.at(row, column);
      const TextCell blank;
      const TextCell& right = column + 1 < picture.width() ? picture.at(row, column + 1) : blank;
      const TextCell& below = row + 1 < picture.height() ? picture.at(row + 1, column) : blank;
      const bool joined = goesOn(open.right, here, open.left, right) &&
                          goesOn(open.left, right, open.right, here) &&
                          goesOn(open.down, here, open.up, below) &&
                          goesOn(open.up, below, open.down, here);
      EXPECT_TRUE(joined) << "row " << row << ", column " << column;
    }
  }
}

TEST_F(TextChartLines, HaveNoLooseEndsInTheChartsOfThisProject) {
  const authoring::Catalogue names = {"Opening", "RespNT", "Stayman"};
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    const std::string source = TAVREL_CHARTS "/" + name + ".yaml";
    authoring::Diagnostics found;
    const auto compiled = authoring::compile({source, readFile(source)}, names, found);
    ASSERT_TRUE(compiled);
    writeFile(directory.chart(name), compiled->bytes);
    navigator.resetToStartLocationForFlowchartAtIndex(navigator.indexOfFlowchartWithTitle(name));
    ASSERT_GT(navigator.allElements().size(), 1U);
    expectNoLooseEnds(wholePicture(navigator));
  }
}

}  // namespace
}  // namespace tavrel
