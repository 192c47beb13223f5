// What the client interface allocates beyond the engine's records, and that a long use takes
// no more memory than a short one.

#include "tests/support/Allocations.h"
#include "tests/unit/FacadeTest.h"
#include "tests/unit/Random.h"

namespace tavrel {
namespace {

const std::string longLine = "A line of text beyond any short string";

class FacadeAllocations : public FacadeTest {
 protected:
  // Boxes that touch, each of a long text and without commentary: what a copy of one takes is
  // a list and a text.
  static ChartFile touchingBoxes() {
    return ChartFile().node({longLine}).cell(0, 0, 0, xPlus).cell(0, 1, 0, xPlus).cell(0, 2, 0);
  }
  static constexpr std::size_t box = 2;
  static constexpr std::size_t lists = 2;  // the engine's records, and the elements made of them
};

// --- How many -------------------------------------------------------------------

TEST_F(FacadeAllocations, ARectangleOfLinesTakesOneListOfElementsBeyondTheRecords) {
  ChartFile chart;
  chart.box(0, 0, "Root");
  for (int y = 1; y <= 20; ++y) chart.run(0, y, xPlus, 20);
  select(chart);
  std::size_t held = 0;
  const Cost cost = costOf([&] { held = navigator.elementsInBounds({0, 19, 1, 20}).size(); });
  EXPECT_EQ(held, 400u);
  EXPECT_EQ(cost.count, lists);
  EXPECT_EQ(costOf([this] { navigator.elementsInBounds({50, 60, 0, 5}); }).count, 0u);
}

TEST_F(FacadeAllocations, ARectangleOfBoxesCopiesEachTextOnce) {
  select(touchingBoxes());
  EXPECT_EQ(costOf([this] { navigator.elementsInBounds({0, 2, 0, 0}); }).count, lists + 3 * box);
  EXPECT_EQ(costOf([this] { navigator.allElements(); }).count, lists + 3 * box);
  EXPECT_EQ(costOf([this] { navigator.elementAtXY(1, 0); }).count, box);
  EXPECT_EQ(costOf([this] { navigator.currentElement(); }).count, box);
}

TEST_F(FacadeAllocations, TheStepBackLooksAtItsNineCellsAndAtTheExitsItTries) {
  select(touchingBoxes());
  navigator.moveYes();
  // The three boxes around, and the one that the first one's exit leads to.
  EXPECT_EQ(costOf([this] { navigator.moveBack(); }).count, lists + 3 * box + box);
  EXPECT_EQ(here(), "Opening 0,0");
}

TEST_F(FacadeAllocations, AnIntroductionIsCopiedOnce) {
  select(touchingBoxes().intro({longLine, "short", longLine}));
  Lines intro = navigator.introForFlowchartAtIndex(0);  // and what is made once a program
  const Cost cost = costOf([&] { intro = navigator.introForFlowchartAtIndex(0); });
  EXPECT_EQ(intro, (Lines{longLine, "short", longLine}));
  EXPECT_EQ(cost.count, 3u);
}

TEST_F(FacadeAllocations, TheLocationAndTheMovesTakeNone) {
  select(touchingBoxes());
  std::int64_t x = 77, y = 77;
  const Cost cost = costOf([&] {
    navigator.startNewPathForFlowchartAtIndexYesNoString(0, "y");
    navigator.moveAlongPath();
    navigator.moveXPlus();
    navigator.moveXMinus();
    navigator.moveToRoot();
    navigator.moveYes();
    navigator.moveNo();
    navigator.moveWithDirection(yMinus);
    navigator.getCurrentLocationWithXY(&x, &y);
    navigator.currentLocation();
    navigator.currentFlowchartBounds();
  });
  EXPECT_EQ(cost.count, 0u);
  EXPECT_EQ(x, 1);
  EXPECT_EQ(y, 0);
}

TEST_F(FacadeAllocations, ANavigatorTakesAFewForEachFlowchartWhateverItsDirectoryHolds) {
  const auto make = [this] { const Tavrel made(directory.path()); };
  const Cost empty = costOf(make);
  for (int i = 0; i < 100; ++i) write("", "File" + std::to_string(i));
  write(touchingBoxes());
  const Cost full = costOf(make);
  EXPECT_EQ(full.count, empty.count);
  EXPECT_EQ(full.bytes, empty.bytes);
  EXPECT_LT(full.count, 45u * 12u);
}

// --- A long use -----------------------------------------------------------------

class LongUse : public FacadeTest {
 protected:
  LongUse() {
    write(ChartFile()
              .intro({longLine})
              .box(0, 0, longLine, xPlus, yPlus)
              .run(1, 0, xPlus, 3)
              .link(4, 0, longLine, "Slam")
              .link(0, 1, longLine, "Leben"));
    write(ChartFile().intro({longLine}).box(0, 0, longLine), "Leben");  // read again and again
    write(ChartFile().box(0, 0, "Root", yMinus, xMinus).link(-1, 0, "End", longLine), "Slam");
    write("h\nh\n1\n" + longLine + "\n0\n-1\n", "PGF");  // throws whenever it is read
  }

  void operate() {
    typeThrown([this] {
      const std::int64_t index = random_.from(indices_);
      switch (random_.below(10)) {
        case 0:
          return navigator.resetToStartLocationForFlowchartAtIndex(index);
        case 1:
          return start(index, std::string(static_cast<std::size_t>(random_.below(60)), 'y'));
        case 2:
          return start(0, random_.chance(50) ? "ynyn" : "nnyy");
        case 3:
          return static_cast<void>(navigator.introForFlowchartAtIndex(index));
        case 4:
          return static_cast<void>(navigator.elementsInBounds({-1, 4, -1, 1}));
        case 5:
          return navigator.moveBack();
        case 6:
          return navigator.moveWithDirection(random_.below(4));
        default:
          return navigator.moveAlongPath();
      }
    });
  }

  /// Where every use may end: what is kept depends on nothing before.
  std::size_t bytesAtTheEnd() {
    start(0, std::string(60, 'y'));
    return bytesInUse();
  }

 private:
  void start(std::int64_t index, const std::string& answers) {
    navigator.startNewPathForFlowchartAtIndexYesNoString(index, answers);
  }

  const std::vector<std::int64_t> indices_ = {0, 7, 24, 44, 3, 99};
  Random random_{7};
};

TEST_F(LongUse, TakesNoMoreMemoryThanAShortOne) {
  for (int i = 0; i < 10000; ++i) operate();
  const std::size_t before = bytesAtTheEnd();
  for (int i = 0; i < 90000; ++i) operate();
  EXPECT_EQ(bytesAtTheEnd(), before);
}

}  // namespace
}  // namespace tavrel
