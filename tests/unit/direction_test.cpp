// Directions of the client interface, the move by direction and the move back.

#include <type_traits>

#include "tests/unit/FacadeTest.h"

namespace tavrel {
namespace {

TEST(Reversed, IsTheOppositeAndItsOwnInverse) {
  const std::int64_t opposites[] = {2, 3, 0, 1, 4};
  for (std::int64_t direction = 0; direction <= 4; ++direction) {
    EXPECT_EQ(reversed(direction), opposites[direction]);
    EXPECT_EQ(reversed(reversed(direction)), direction);
  }
}

TEST(Reversed, OfANumberThatIsNoDirectionIsXMinus) {
  for (const std::int64_t number : {std::int64_t{5}, std::int64_t{-1}, std::int64_t{4294967295},
                                    std::int64_t{4294967296}, INT64_MAX, INT64_MIN}) {
    EXPECT_EQ(reversed(number), XYDirectionXMinus) << number;
  }
}

TEST(Reversed, DirectionsHaveTheNumbersOfTheFilesIn64Bits) {
  EXPECT_EQ(XYDirectionYPlus, 0);
  EXPECT_EQ(XYDirectionXPlus, 1);
  EXPECT_EQ(XYDirectionYMinus, 2);
  EXPECT_EQ(XYDirectionXMinus, 3);
  EXPECT_EQ(XYDirectionNone, 4);
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<XYDirection>, std::int64_t>));
}

// A root with a box on each side; each of them leads to the root.
class MoveWithDirection : public FacadeTest {
 protected:
  void SetUp() override {
    select(ChartFile()
               .box(0, 0, "Root")
               .box(0, 1, "y+", yMinus)
               .box(1, 0, "x+", xMinus)
               .box(0, -1, "y-", yPlus)
               .box(-1, 0, "x-", xPlus));
  }
  std::string movedBy(std::int64_t direction) {
    navigator.moveToRoot();
    navigator.moveWithDirection(direction);
    return here();
  }
};

TEST_F(MoveWithDirection, GoesThatWay) {
  EXPECT_EQ(movedBy(XYDirectionYPlus), "Opening 0,1");
  EXPECT_EQ(movedBy(XYDirectionXPlus), "Opening 1,0");
  EXPECT_EQ(movedBy(XYDirectionYMinus), "Opening 0,-1");
  EXPECT_EQ(movedBy(XYDirectionXMinus), "Opening -1,0");
}

TEST_F(MoveWithDirection, NoneChangesNothing) {
  EXPECT_EQ(movedBy(XYDirectionNone), "Opening 0,0");
}

TEST_F(MoveWithDirection, AnyOtherNumberGoesTowardLargerX) {
  for (const std::int64_t number :
       {std::int64_t{7}, std::int64_t{-1}, std::int64_t{5}, std::int64_t{4294967295},
        std::int64_t{4294967296}, std::int64_t{4294967298}, INT64_MAX, INT64_MIN}) {
    EXPECT_EQ(movedBy(number), "Opening 1,0") << number;
  }
}

class MoveBack : public FacadeTest {
 protected:
  /// Where a move back leads from the root of this chart.
  std::string backFromRoot(const ChartFile& chart) {
    write(chart);
    Tavrel fresh(directory.path());
    fresh.resetToStartLocationForFlowchartAtIndex(0);
    fresh.moveBack();
    return place(fresh);
  }
};

TEST_F(MoveBack, GoesAgainstTheExitThatLeadsHere) {
  const struct {
    std::int32_t direction, x, y;
    const char* expected;
  } neighbours[] = {{xPlus, -1, 0, "Opening -1,0"},
                    {xMinus, 1, 0, "Opening 1,0"},
                    {yPlus, 0, -1, "Opening 0,-1"},
                    {yMinus, 0, 1, "Opening 0,1"}};
  for (const auto& from : neighbours) {
    EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(from.x, from.y, "B", from.direction)),
              from.expected);
    EXPECT_EQ(backFromRoot(
                  ChartFile().box(0, 0, "Root").box(from.x, from.y, "B", noExit, from.direction)),
              from.expected);
  }
}

TEST_F(MoveBack, FollowsTheFirstInTheOrderOfTheRectangle) {
  // The row above comes before the cursor's row; within a row, the file's order decides.
  EXPECT_EQ(
      backFromRoot(
          ChartFile().box(0, 0, "Root").box(1, 0, "Right", xMinus).box(0, -1, "Above", yPlus)),
      "Opening 0,-1");
  EXPECT_EQ(backFromRoot(
                ChartFile().box(0, 0, "Root").box(1, 0, "Right", xMinus).box(-1, 0, "Left", xPlus)),
            "Opening 1,0");
  EXPECT_EQ(backFromRoot(
                ChartFile().box(0, 0, "Root").box(-1, 0, "Left", xPlus).box(1, 0, "Right", xMinus)),
            "Opening -1,0");
}

TEST_F(MoveBack, TriesNoWhereYesLeadsElsewhere) {
  EXPECT_EQ(
      backFromRoot(
          ChartFile().box(0, 0, "Root").box(-1, 0, "B", yPlus, xPlus).box(-1, 1, "Elsewhere")),
      "Opening -1,0");
}

TEST_F(MoveBack, TriesYesBeforeNo) {
  // Both exits of the box at (-1, 0) reach the root: the yes exit as a number that is no
  // direction, which steps toward larger x as xPlus does. Either is answered by a move toward
  // smaller x.
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(-1, 0, "B", -2, xPlus)), "Opening -1,0");
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(-1, 0, "B", xPlus, xPlus)),
            "Opening -1,0");
  // Were no asked first, its empty cell would throw.
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(-1, 0, "B", xPlus, yMinus)),
            "Opening -1,0");
}

TEST_F(MoveBack, AnExitThatIsNoDirectionLeadsTowardLargerXButNoGridMoveFollowsIt) {
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(-1, 0, "B", 7)), "Opening 0,0");
}

TEST_F(MoveBack, StopsAtTheFirstMatchEvenIfItsGridMoveIsRefused) {
  // The first match is a number that is no direction; the box to the right would match too.
  EXPECT_EQ(
      backFromRoot(ChartFile().box(0, 0, "Root").box(-1, 0, "B", 7).box(1, 0, "Right", xMinus)),
      "Opening 0,0");
}

TEST_F(MoveBack, IsAGridMoveSoAnExitOfTheCurrentBoxThatWayDecides) {
  // The root's own exit toward (-1, 0) goes forward, through the box there no less.
  select(ChartFile().box(0, 0, "Root", xMinus).box(-1, 0, "B", xPlus));
  navigator.moveBack();
  EXPECT_EQ(here(), "Opening -1,0");
  navigator.moveBack();  // both lead to each other; the root comes first
  EXPECT_EQ(here(), "Opening 0,0");
}

TEST_F(MoveBack, WithoutABoxThatLeadsHereDoesNothing) {
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(1, 0, "Next")), "Opening 0,0");
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "Next")), "Opening 0,0");
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(1, 1, "Diagonal", xPlus).box(2, 1, "")),
            "Opening 0,0");
}

TEST_F(MoveBack, SkipsLines) {
  EXPECT_EQ(backFromRoot(ChartFile().box(0, 0, "Root").box(-2, 0, "Far", xPlus).line(-1, 0, 1, 1)),
            "Opening 0,0");
}

TEST_F(MoveBack, DoesNotLookBeyondTheNineCells) {
  // The far box's exit cell is empty, which would throw.
  EXPECT_EQ(backFromRoot(ChartFile()
                             .box(0, 0, "Root")
                             .box(-2, 0, "Far", yPlus)
                             .box(0, 2, "Far", xPlus)
                             .box(2, 2, "Far", xPlus)),
            "Opening 0,0");
}

TEST_F(MoveBack, LetsTheExceptionOfAnEmptyExitCellPassAndStays) {
  const ChartFile charts[] = {
      ChartFile().box(0, 0, "Root", yPlus).box(9, 9, "Far"),
      ChartFile().box(0, 0, "Root").box(1, 1, "Diagonal", xPlus),
      ChartFile().box(0, 0, "Root").box(-1, 0, "B", noExit, yMinus),
      // Asked before the box below, which would match.
      ChartFile().box(0, 0, "Root").box(-1, -1, "First", yMinus).box(0, 1, "Below", yMinus),
  };
  for (const ChartFile& chart : charts) {
    write(chart);
    Tavrel fresh(directory.path());
    fresh.resetToStartLocationForFlowchartAtIndex(0);
    EXPECT_EQ(typeThrown([&] { fresh.moveBack(); }), "out_of_range");
    EXPECT_EQ(place(fresh), "Opening 0,0");
  }
}

TEST_F(MoveBack, AMatchEndsTheSearchBeforeALaterEmptyExitCell) {
  EXPECT_EQ(
      backFromRoot(
          ChartFile().box(0, 0, "Root").box(0, -1, "Above", yPlus).box(1, 1, "Diagonal", xPlus)),
      "Opening 0,-1");
}

TEST_F(MoveBack, OnThePlaceholderDoesNothing) {
  navigator.moveBack();
  EXPECT_EQ(here(), " 0,0");
}

TEST_F(MoveBack, WithNoElementAroundDoesNothing) {
  select(ChartFile().box(5, 5, "First").box(6, 5, "Second", xMinus));
  navigator.moveBack();
  EXPECT_EQ(here(), "Opening 0,0");
}

TEST_F(MoveBack, LooksAfreshFromWhereverTheLastOneLeftTheCursor) {
  select(ChartFile().box(0, 0, "0", xPlus).box(1, 0, "1", xPlus).box(2, 0, "2"));
  navigator.moveYes();
  navigator.moveYes();
  navigator.moveBack();
  EXPECT_EQ(here(), "Opening 1,0");
  navigator.moveBack();
  EXPECT_EQ(here(), "Opening 0,0");
  navigator.moveBack();
  EXPECT_EQ(here(), "Opening 0,0");
}

using Cursor = FacadeTest;

TEST_F(Cursor, LocationIsATriple) {
  select(ChartFile().box(0, 0, "Root", xMinus).box(-1, 0, "Yes"));
  navigator.moveYes();
  EXPECT_EQ(navigator.currentLocation(),
            (std::tuple<std::string, std::int64_t, std::int64_t>("Opening", -1, 0)));
}

TEST_F(Cursor, ElementIsTheOneUnderIt) {
  select(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "Yes"));
  navigator.moveYes();
  EXPECT_EQ(navigator.currentElement().boxText(), Lines{"Yes"});
}

TEST_F(Cursor, ElementOfAnEmptyOriginThrows) {
  select(ChartFile().box(1, 0, "First").box(2, 0, "Second"));
  navigator.moveToRoot();
  EXPECT_EQ(typeThrown([&] { navigator.currentElement(); }), "out_of_range");
}

TEST_F(Cursor, ElementIsTheOneInItsCellThoughASelectionStandsOnElement0) {
  select(ChartFile().box(1, 0, "First").box(0, 0, "Origin"));
  EXPECT_EQ(navigator.currentElement().boxText(), Lines{"Origin"});
  EXPECT_EQ(navigator.currentCommentaryText(), Lines{"About First"});
}

}  // namespace
}  // namespace tavrel
