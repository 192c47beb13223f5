// The row index: how it is built, and what it finds.

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class RowIndex : public EngineTest {
 protected:
  std::int32_t find(std::int32_t x, std::int32_t y) const { return engine.mFind(0, x, y); }
  std::string list() const { return joined(EngineAccess::rowElementIndices(engine)[0]); }
  std::string starts() const { return joined(EngineAccess::rowStarts(engine)[0]); }

  // Rows -2 to 2; row 1 is empty.
  void selectFiveRows() {
    select(ChartFile()
               .box(0, 0, "0")
               .box(4, -2, "1")
               .box(-3, 2, "2")
               .box(1, 0, "3")
               .box(4, 2, "4")
               .line(-5, 0, 1, 1)
               .line(0, -1, 1, 1));
  }
};

TEST_F(RowIndex, OfAnUnreadFlowchartFindsThePlaceholderAtTheOriginAlone) {
  EXPECT_EQ(find(0, 0), 0);
  for (const std::int32_t x : {-1, 1, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(find(x, 0), -1);
    EXPECT_EQ(find(0, x), -1);
    EXPECT_EQ(find(x, x), -1);
  }
}

TEST_F(RowIndex, ListsElementsRowByRowInAscendingOrderOfTheirIndices) {
  selectFiveRows();
  EXPECT_EQ(list(), "1,6,0,3,5,2,4");
  EXPECT_EQ(starts(), "0,1,2,5,5,7");
}

TEST_F(RowIndex, FindsEveryElementFromTheFirstRowWhichMayBeNegative) {
  selectFiveRows();
  for (std::size_t i = 0; i < elements().size(); ++i) {
    EXPECT_EQ(find(elements().at(i).m_x, elements().at(i).m_y), static_cast<std::int32_t>(i));
  }
  EXPECT_EQ(find(4, -2), 1);
}

TEST_F(RowIndex, FindsNothingBesideTheRows) {
  selectFiveRows();
  EXPECT_EQ(find(4, -3), -1);
  EXPECT_EQ(find(4, 3), -1);
  EXPECT_EQ(find(0, INT32_MIN), -1);
  EXPECT_EQ(find(0, INT32_MAX), -1);
}

TEST_F(RowIndex, FindsNothingBesideTheRowsWithoutTouchingTheElements) {
  selectFiveRows();
  EngineAccess::screenElements(engine)[0].clear();  // touching one now throws
  EXPECT_EQ(find(4, -3), -1);
  EXPECT_EQ(find(4, 3), -1);
  EXPECT_EQ(find(0, 1), -1);
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(0, 0); }), "out_of_range");
}

TEST_F(RowIndex, FindsNothingInAnEmptyRow) {
  selectFiveRows();
  for (const std::int32_t x : {-5, -3, 0, 1, 4}) EXPECT_EQ(find(x, 1), -1);
}

TEST_F(RowIndex, FindsNothingInAColumnWithoutElement) {
  selectFiveRows();
  for (const std::int32_t x : {2, -1, 5, -6, 1000000, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(find(x, 0), -1) << x;
  }
}

TEST_F(RowIndex, OfTwoElementsAtOnePlaceFindsTheLowerIndex) {
  select(
      ChartFile().box(0, 0, "0").box(1, 0, "1").box(1, 0, "2").line(1, 0, 1, 1).line(0, 0, 1, 1));
  EXPECT_EQ(find(1, 0), 1);
  EXPECT_EQ(find(0, 0), 0);
  EXPECT_EQ(list(), "0,1,2,3,4");
}

TEST_F(RowIndex, BuildingTwiceGivesTheSameIndex) {
  selectFiveRows();
  const std::string before = snapshot(engine);
  engine.mBuildFCFindHelper(0);
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(RowIndex, IsBuiltFromElementsAndRowBoundsAlone) {
  sScreenElement element = elements().at(0);
  element.m_x = 77;
  element.m_y = 1;
  EngineAccess::screenElements(engine)[0].push_back(element);
  EngineAccess::minY(engine)[0] = -1;
  EngineAccess::maxY(engine)[0] = 2;
  engine.mBuildFCFindHelper(0);
  EXPECT_EQ(list(), "0,1");
  EXPECT_EQ(starts(), "0,0,1,2,2");
  EXPECT_EQ(find(77, 1), 1);
}

TEST_F(RowIndex, OfNoElementsHasItsRowsAllTheSame) {
  EngineAccess::screenElements(engine)[0].clear();
  EngineAccess::maxY(engine)[0] = 2;
  engine.mBuildFCFindHelper(0);
  EXPECT_EQ(list(), "");
  EXPECT_EQ(starts(), "0,0,0,0");
  EXPECT_EQ(find(0, 0), -1);
}

TEST_F(RowIndex, AnElementOutsideTheRowBoundsThrowsWithTheOldIndexKept) {
  selectFiveRows();
  const std::string before = starts() + " " + list();
  for (const std::int32_t y : {-3, 3, INT32_MIN, INT32_MAX}) {
    EngineAccess::screenElements(engine).at(0).at(6).m_y = y;
    EXPECT_EQ(typeThrown([&] { engine.mBuildFCFindHelper(0); }), "out_of_range") << y;
    EXPECT_EQ(starts() + " " + list(), before);
  }
}

TEST_F(RowIndex, MoreThan16777216RowsThrowWithTheOldIndexKept) {
  for (const std::int32_t maxY : {16777216, INT32_MAX}) {
    EngineAccess::maxY(engine)[0] = maxY;
    EXPECT_EQ(typeThrown([&] { engine.mBuildFCFindHelper(0); }), "length_error");
    EngineAccess::minY(engine)[0] = INT32_MIN;
    EXPECT_EQ(typeThrown([&] { engine.mBuildFCFindHelper(0); }), "length_error");
    EngineAccess::minY(engine)[0] = 0;
    EXPECT_EQ(list() + " " + starts(), "0 0,1");
  }
}

TEST_F(RowIndex, AnIndexOutsideTheCatalogueThrowsWithNothingChanged) {
  const std::string before = snapshot(engine);
  for (const std::int32_t fc : {-1, 45, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(typeThrown([&] { engine.mFind(fc, 0, 0); }), "out_of_range");
    EXPECT_EQ(typeThrown([&] { engine.mBuildFCFindHelper(fc); }), "out_of_range");
  }
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(RowIndex, IsOfOneFlowchart) {
  selectFiveRows();
  EXPECT_EQ(engine.mFind(1, 4, -2), -1);
  EXPECT_EQ(engine.mFind(1, 0, 0), 0);
}

}  // namespace
}  // namespace tavrel
