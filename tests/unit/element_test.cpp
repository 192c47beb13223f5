// The element record, the location record and the direction codes.

#include <limits>
#include <type_traits>
#include <utility>

#include "tests/unit/EngineTest.h"

namespace tavrel {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

sScreenElement sample() {
  sScreenElement element;
  element.m_x = -1;
  element.m_y = 2;
  element.m_xOffset = -30;
  element.m_yOffset = 4;
  element.m_isOnPath = true;
  element.m_isNode = true;
  element.m_newFlowchartName = "a name that is longer than a short string";
  element.m_boxText = {"one", "two"};
  element.m_commentText = {"why"};
  element.m_yesDir = xPlus;
  element.m_noDir = yPlus;
  element.m_directionInto = none;
  element.m_directionOutOf = none;
  return element;
}

TEST(Directions, OnlyXPlusAndXMinusStepAlongX) {
  EXPECT_EQ(CTavrel::mDirectionX(eXPlus), 1);
  EXPECT_EQ(CTavrel::mDirectionX(eXMinus), -1);
  for (const std::int32_t code : {0, 2, 4, 5, 7, -1, -2, 100, lowest, highest}) {
    EXPECT_EQ(CTavrel::mDirectionX(static_cast<eXYDirection>(code)), 0) << code;
  }
}

TEST(Directions, OnlyYPlusAndYMinusStepAlongY) {
  EXPECT_EQ(CTavrel::mDirectionY(eYPlus), 1);
  EXPECT_EQ(CTavrel::mDirectionY(eYMinus), -1);
  for (const std::int32_t code : {1, 3, 4, 5, 7, -1, -2, 100, lowest, highest}) {
    EXPECT_EQ(CTavrel::mDirectionY(static_cast<eXYDirection>(code)), 0) << code;
  }
}

TEST(Directions, CodesAreThoseOfTheFilesAndHaveAFixed32BitType) {
  EXPECT_EQ(eYPlus, 0);
  EXPECT_EQ(eXPlus, 1);
  EXPECT_EQ(eYMinus, 2);
  EXPECT_EQ(eXMinus, 3);
  EXPECT_EQ(eNoDirection, 4);
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<eXYDirection>, std::int32_t>));
}

TEST(Element, ADefaultRecordIsZeroedAndEmpty) {
  EXPECT_EQ(describe(sScreenElement()), "line 0,0 @0,0  () > y0 n0 i0 o0");
}

TEST(Element, ACopyIsDeep) {
  const sScreenElement original = sample();
  sScreenElement copy = original;
  EXPECT_EQ(describe(copy), describe(original));
  copy.m_boxText[0] = "changed";
  copy.m_commentText.clear();
  copy.m_newFlowchartName[0] = 'X';
  EXPECT_EQ(describe(original), describe(sample()));
}

TEST(Element, AssigningARecordToItselfChangesNothing) {
  sScreenElement element = sample();
  const sScreenElement& same = element;
  element = same;
  EXPECT_EQ(describe(element), describe(sample()));
}

TEST(Element, ARecordMovedFromKeepsItsNumbersAndLosesItsTexts) {
  sScreenElement element = sample();
  const sScreenElement moved = std::move(element);
  EXPECT_EQ(describe(moved), describe(sample()));
  EXPECT_EQ(describe(element), "box -1,2 @-30,4  () > y1 n0 i4 o4 *");
}

TEST(Element, ALocationStartsEmptyAndIsCopiedWhole) {
  sFlowchartNameAndCoordinates location;
  EXPECT_EQ(location.m_name, "");
  EXPECT_EQ(location.m_x, 0);
  EXPECT_EQ(location.m_y, 0);
  location = {"Opening", -3, 4};
  const sFlowchartNameAndCoordinates copy = location;
  EXPECT_EQ(copy.m_name, "Opening");
  EXPECT_EQ(copy.m_x, -3);
  EXPECT_EQ(copy.m_y, 4);
}

using ElementInChart = EngineTest;

TEST_F(ElementInChart, ABoxWithoutExitsStores4AndAYesMoveFromItDoesNothing) {
  select(ChartFile().box(0, 0, "Root", noExit, noExit).box(1, 0, "Other"));
  EXPECT_EQ(elements().at(0).m_yesDir, 4);
  EXPECT_EQ(elements().at(0).m_noDir, 4);
  const std::string before = snapshot(engine);
  engine.mMoveYes();
  EXPECT_EQ(snapshot(engine), before);
}

TEST_F(ElementInChart, ALineHasNoTextsAndNoExitsAndABoxHasNoTravel) {
  select(ChartFile().box(0, 0, "Root", xPlus).line(1, 0, xPlus, yPlus));
  const sScreenElement& box = elements().at(0);
  const sScreenElement& line = elements().at(1);
  EXPECT_EQ(box.m_directionInto, 4);
  EXPECT_EQ(box.m_directionOutOf, 4);
  EXPECT_TRUE(box.m_isNode);
  EXPECT_FALSE(line.m_isNode);
  EXPECT_TRUE(line.m_boxText.empty());
  EXPECT_TRUE(line.m_commentText.empty());
  EXPECT_EQ(line.m_yesDir, 4);
  EXPECT_EQ(line.m_noDir, 4);
}

TEST_F(ElementInChart, MarkingACopyLeavesTheStoredRecordAlone) {
  select(ChartFile().box(0, 0, "Root"));
  sScreenElement copy = engine.mGetXYElement(0, 0);
  copy.m_isOnPath = true;
  EXPECT_FALSE(elements().at(0).m_isOnPath);
}

TEST_F(ElementInChart, AStoredDirectionThatIsNoneOfTheFiveStepsNowhere) {
  for (const std::int32_t code : {-2, 5, 99, lowest, highest}) {
    write(ChartFile().box(0, 0, "Root", code).box(1, 0, "Other").box(0, 1, "Below"));
    CTavrel fresh(directory.prefix());
    fresh.mSetStartLocation(0);
    EXPECT_EQ(EngineAccess::screenElements(fresh).at(0).at(0).m_yesDir, code);
    fresh.mMoveYes();
    EXPECT_EQ(describe(fresh), "0 Opening 0,0 #0 path=\"\" marks=");
  }
}

}  // namespace
}  // namespace tavrel
