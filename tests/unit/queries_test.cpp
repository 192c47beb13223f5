// The read-only questions about the current flowchart.

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

class Queries : public EngineTest {
 protected:
  /// The places of the elements in the rectangle: "0,0 1,0".
  std::string inside(std::int32_t minX, std::int32_t maxX, std::int32_t minY, std::int32_t maxY) {
    std::string places;
    for (const sScreenElement& element : engine.mGetElementsInBoundaries(minX, maxX, minY, maxY)) {
      places += (places.empty() ? "" : " ") + std::to_string(element.m_x) + "," +
                std::to_string(element.m_y);
    }
    return places;
  }

  // Rows -1 to 2; row 1 is empty. Stored out of order.
  void selectFourRows() {
    select(
        ChartFile().box(0, 0, "a").box(2, 2, "b").box(-2, -1, "c").box(3, 0, "d").line(1, 0, 1, 1));
  }
};

TEST_F(Queries, ANewEngineAnswersFromThePlaceholder) {
  EXPECT_EQ(engine.mGetCurrentFlowchartMinX(), 0);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxX(), 0);
  EXPECT_EQ(engine.mGetCurrentFlowchartMinY(), 0);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxY(), 0);
  ASSERT_EQ(engine.mGetAllElements().size(), 1u);
  EXPECT_EQ(describe(engine.mGetAllElements()[0]), placeholder);
  EXPECT_EQ(engine.mCurrentCommentText(), Lines{"Unable to read this flowchart."});
  EXPECT_EQ(describe(engine.mGetXYElement(0, 0)), placeholder);
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(1, 0); }), "out_of_range");
  EXPECT_EQ(engine.mCurrentLocation().m_name, "");
}

TEST_F(Queries, RectanglesOnThePlaceholder) {
  EXPECT_EQ(inside(-5, 5, -5, 5), "0,0");
  EXPECT_EQ(inside(1, 5, -5, 5), "");
  EXPECT_EQ(inside(-5, -1, -5, 5), "");
  EXPECT_EQ(inside(-5, 5, 1, 5), "");
  EXPECT_EQ(inside(-5, 5, -5, -1), "");
  EXPECT_EQ(inside(0, 0, 0, 0), "0,0");
}

TEST_F(Queries, BoundsAreThoseOfTheCurrentFlowchart) {
  selectFourRows();
  EXPECT_EQ(engine.mGetCurrentFlowchartMinX(), -2);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxX(), 3);
  EXPECT_EQ(engine.mGetCurrentFlowchartMinY(), -1);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxY(), 2);
  engine.mSetStartLocation(1);
  EXPECT_EQ(engine.mGetCurrentFlowchartMaxX(), 0);
}

TEST_F(Queries, AllElementsComeInTheirStoredOrder) {
  selectFourRows();
  std::string texts;
  for (const sScreenElement& element : engine.mGetAllElements())
    texts += bracketed(element.m_boxText) + ";";
  EXPECT_EQ(texts, "[a];[b];[c];[d];;");
}

TEST_F(Queries, ARectangleOverTheChartHoldsEveryElementOnceInRowOrder) {
  selectFourRows();
  EXPECT_EQ(inside(-2, 3, -1, 2), "-2,-1 0,0 3,0 1,0 2,2");
}

TEST_F(Queries, ARectangleIsCutAtTheFirstAndTheLastRow) {
  selectFourRows();
  EXPECT_EQ(inside(-9, 9, 0, 100), "0,0 3,0 1,0 2,2");
  EXPECT_EQ(inside(-9, 9, -100, 0), "-2,-1 0,0 3,0 1,0");
  EXPECT_EQ(inside(-9, 9, 2, 2), "2,2");
  EXPECT_EQ(inside(-9, 9, -1, -1), "-2,-1");
}

TEST_F(Queries, ARectanglesFourEdgesAreInclusive) {
  selectFourRows();
  EXPECT_EQ(inside(1, 3, 0, 0), "3,0 1,0");
  EXPECT_EQ(inside(0, 2, 0, 2), "0,0 1,0 2,2");
}

TEST_F(Queries, ARectangleOfOneCellHoldsTheElementThereOrNothing) {
  selectFourRows();
  for (const sScreenElement& element : engine.mGetAllElements()) {
    const std::int32_t x = element.m_x, y = element.m_y;
    EXPECT_EQ(inside(x, x, y, y), std::to_string(x) + "," + std::to_string(y));
    EXPECT_EQ(describe(engine.mGetXYElement(x, y)), describe(element));
  }
  for (const auto& [x, y] : {std::pair<std::int32_t, std::int32_t>{2, 0}, {0, 1}, {0, -1}}) {
    EXPECT_EQ(inside(x, x, y, y), "");
    EXPECT_EQ(typeThrown([&, px = x, py = y] { engine.mGetXYElement(px, py); }), "out_of_range");
  }
}

TEST_F(Queries, TheExceptionOfAnEmptyCellSaysWhatIsWrong) {
  selectFourRows();
  EXPECT_EQ(textThrown<std::out_of_range>([this] { engine.mGetXYElement(2, 0); }),
            "CTavrel: nothing stands there");
}

TEST_F(Queries, ARectangleThatMissesTheChartIsEmpty) {
  selectFourRows();
  EXPECT_EQ(inside(-9, 9, 3, 9), "");
  EXPECT_EQ(inside(-9, 9, -9, -2), "");
  EXPECT_EQ(inside(4, 9, -9, 9), "");
  EXPECT_EQ(inside(-9, -3, -9, 9), "");
}

TEST_F(Queries, ARectangleTurnedAroundIsEmpty) {
  selectFourRows();
  EXPECT_EQ(inside(3, -2, -1, 2), "");
  EXPECT_EQ(inside(-2, 3, 2, -1), "");
  EXPECT_EQ(inside(-2, 3, 1, 0), "");
  EXPECT_EQ(inside(-2, 3, 9, -9), "");
  EXPECT_EQ(inside(-2, 3, INT32_MAX, INT32_MIN), "");
}

TEST_F(Queries, ARowsElementsKeepTheirStoredOrderInNarrowRectanglesAndWideOnes) {
  constexpr int columns = 600;
  ChartFile chart;
  for (int i = 0; i < columns; ++i) chart.box(i * 7 % columns, 0, "mixed");
  select(chart);
  for (const int width : {1, 2, 9, 255, 256, 257, 599, 600}) {
    std::string expected;
    for (int i = 0; i < columns; ++i) {
      const int x = i * 7 % columns;
      if (x < width) expected += (expected.empty() ? "" : " ") + std::to_string(x) + ",0";
    }
    EXPECT_EQ(inside(0, width - 1, 0, 0), expected) << width;
  }
}

TEST_F(Queries, ARectangleMayReachToTheEndsOf32Bits) {
  selectFourRows();
  EXPECT_EQ(inside(INT32_MIN, INT32_MAX, INT32_MIN, INT32_MAX), "-2,-1 0,0 3,0 1,0 2,2");
  EXPECT_EQ(inside(INT32_MIN, INT32_MAX, 2, INT32_MAX), "2,2");
  EXPECT_EQ(inside(INT32_MIN, INT32_MAX, INT32_MIN, -1), "-2,-1");
  EXPECT_EQ(inside(-9, 9, INT32_MAX, INT32_MAX), "");
  EXPECT_EQ(inside(-9, 9, INT32_MIN, INT32_MIN), "");
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(INT32_MAX, INT32_MAX); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(INT32_MIN, INT32_MIN); }), "out_of_range");
}

TEST_F(Queries, OfTwoElementsInOneCellTheRectangleListsBothAndTheCellTheFirst) {
  select(ChartFile().box(0, 0, "first").box(0, 0, "second"));
  EXPECT_EQ(inside(0, 0, 0, 0), "0,0 0,0");
  EXPECT_EQ(engine.mGetXYElement(0, 0).m_boxText, Lines{"first"});
}

TEST_F(Queries, CellsAndRectanglesGoByGridPlaceNotByOffset) {
  select(ChartFile().box(0, 0, "wide text").box(1, 0, "b"));
  ASSERT_EQ(elements().at(1).m_xOffset, 25);
  EXPECT_EQ(inside(25, 25, 0, 0), "");
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(25, 0); }), "out_of_range");
}

TEST_F(Queries, CommentaryIsThatOfTheCurrentElementLineByLine) {
  select(
      ChartFile().node({"a"}, {"one", "", "two"}).node({"b"}).cell(0, 0, 0, xPlus).cell(1, 1, 0));
  EXPECT_EQ(engine.mCurrentCommentText(), (Lines{"one", "", "two"}));
  engine.mMoveYes();
  EXPECT_EQ(engine.mCurrentCommentText(), Lines{});
}

TEST_F(Queries, LocationNamesTheFlowchartByItsFileName) {
  selectFourRows();
  EXPECT_EQ(engine.mCurrentLocation().m_name, "Opening");
  engine.mSetStartLocation(7);
  EXPECT_EQ(engine.mCurrentLocation().m_name, "Leben");
}

TEST_F(Queries, ResultsAreCopies) {
  selectFourRows();
  const std::string before = snapshot(engine);
  engine.mGetAllElements()[0].m_isOnPath = true;
  engine.mGetXYElement(0, 0).m_boxText.clear();
  engine.mGetElementsInBoundaries(0, 0, 0, 0)[0].m_x = 9;
  engine.mCurrentCommentText().clear();
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(Queries, WithoutACurrentFlowchartAllButTheLocationThrowAndChangeNothing) {
  selectFourRows();
  EngineAccess::currentFlowchartIndex(engine) = -1;
  const std::string before = snapshot(engine);
  EXPECT_EQ(engine.mCurrentLocation().m_name, "Opening");
  EXPECT_EQ(typeThrown([&] { engine.mGetCurrentFlowchartMinX(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetCurrentFlowchartMaxX(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetCurrentFlowchartMinY(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetCurrentFlowchartMaxY(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mCurrentCommentText(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetAllElements(); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { engine.mGetXYElement(0, 0); }), "out_of_range");
  EXPECT_EQ(typeThrown([&] { inside(0, 0, 0, 0); }), "out_of_range");
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(Queries, CommentaryOfACursorOnNothingThrows) {
  selectFourRows();
  for (const std::int32_t index : {-1, 5, INT32_MAX, INT32_MIN}) {
    EngineAccess::currentElementIndex(engine) = index;
    EXPECT_EQ(typeThrown([&] { engine.mCurrentCommentText(); }), "out_of_range");
  }
}

TEST_F(Queries, ReadNoFile) {
  write(ChartFile().box(0, 0, "a").box(1, 0, "b"));
  engine.mGetAllElements();
  engine.mGetXYElement(0, 0);
  engine.mGetVectorOfFlowchartTitles();
  inside(0, 0, 0, 0);
  EXPECT_EQ(chart(), unreadChart);
}

TEST_F(Queries, ThoseThatPromiseItWorkOnAConstEngine) {
  selectFourRows();
  const CTavrel& constant = engine;
  EXPECT_EQ(constant.mCurrentLocation().m_name, "Opening");
  EXPECT_EQ(constant.mGetCurrentFlowchartMinX() + constant.mGetCurrentFlowchartMaxX() +
                constant.mGetCurrentFlowchartMinY() + constant.mGetCurrentFlowchartMaxY(),
            2);
  EXPECT_EQ(constant.mCurrentCommentText(), Lines{"About a"});
  EXPECT_EQ(constant.mGetElementsInBoundaries(0, 0, 0, 0).size(), 1u);
  EXPECT_EQ(constant.mWhichFlowchartIndex("PGF"), 44);
  EXPECT_EQ(constant.mFind(0, 3, 0), 3);
}

}  // namespace
}  // namespace tavrel
