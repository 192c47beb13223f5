// The element object: integers widened, text checked and cut, copies kept.

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "tests/unit/FacadeTest.h"

namespace tavrel {
namespace {

class ElementObject : public FacadeTest {
 protected:
  ScreenElement first(const ChartFile& chart) {
    Tavrel fresh(directory.path());
    write(chart);
    fresh.resetToStartLocationForFlowchartAtIndex(0);
    return fresh.allElements().front();
  }
  ScreenElement withBoxLine(const std::string& line) {
    return first(ChartFile().node({line}).cell(0, 0, 0));
  }
};

TEST_F(ElementObject, OfAnUnreadFlowchartIsThePlaceholder) {
  const ScreenElement element = navigator.elementAtXY(0, 0);
  EXPECT_EQ(element.boxText(), Lines{"Flowchart not read"});
  EXPECT_EQ(element.commentaryText(), Lines{"Unable to read this flowchart."});
  EXPECT_TRUE(element.isNode());
  EXPECT_FALSE(element.isOnPath());
  EXPECT_EQ(element.yesDirection(), 4);
  EXPECT_EQ(element.noDirection(), 4);
  EXPECT_EQ(element.intoDirection(), 4);
  EXPECT_EQ(element.outOfDirection(), 4);
  EXPECT_EQ(element.nameOfNextFlowchart(), std::nullopt);
  EXPECT_EQ(element.x(), 0);
  EXPECT_EQ(element.y(), 0);
  EXPECT_EQ(element.xOffset(), 0);
  EXPECT_EQ(element.yOffset(), 0);
}

TEST_F(ElementObject, GivesEveryFieldOfABox) {
  const ScreenElement element = first(ChartFile()
                                          .node({"one", "two"}, {"why", ""}, "Stayman")
                                          .cell(0, -2, -1, yMinus, xMinus)
                                          .cell(0, -1, 0));
  EXPECT_EQ(element.x(), -2);
  EXPECT_EQ(element.y(), -1);
  EXPECT_EQ(element.xOffset(), -(3 + 0 + 15) - (3 + 3 + 15));
  EXPECT_EQ(element.yOffset(), -(2 + 2 + 2));
  EXPECT_TRUE(element.isNode());
  EXPECT_EQ(element.boxText(), (Lines{"one", "two"}));
  EXPECT_EQ(element.commentaryText(), (Lines{"why", ""}));
  EXPECT_EQ(element.nameOfNextFlowchart(), "Stayman");
  EXPECT_EQ(element.yesDirection(), XYDirectionYMinus);
  EXPECT_EQ(element.noDirection(), XYDirectionXMinus);
  EXPECT_EQ(element.intoDirection(), XYDirectionNone);
  EXPECT_EQ(element.outOfDirection(), XYDirectionNone);
}

TEST_F(ElementObject, GivesEveryFieldOfALine) {
  const ScreenElement element = first(ChartFile().line(3, 4, xPlus, yPlus));
  EXPECT_EQ(element.x(), 3);
  EXPECT_EQ(element.y(), 4);
  EXPECT_FALSE(element.isNode());
  EXPECT_EQ(element.boxText(), Lines{});
  EXPECT_EQ(element.commentaryText(), Lines{});
  EXPECT_EQ(element.yesDirection(), XYDirectionNone);
  EXPECT_EQ(element.noDirection(), XYDirectionNone);
  EXPECT_EQ(element.intoDirection(), XYDirectionXPlus);
  EXPECT_EQ(element.outOfDirection(), XYDirectionYPlus);
}

TEST_F(ElementObject, DirectionsWidenWithoutSign) {
  const ScreenElement line = first(ChartFile().line(0, 0, -1, -2));
  EXPECT_EQ(line.intoDirection(), 4294967295);
  EXPECT_EQ(line.outOfDirection(), 4294967294);
  const ScreenElement box = first(ChartFile().box(0, 0, "", -2147483648, 2147483647));
  EXPECT_EQ(box.yesDirection(), 2147483648);
  EXPECT_EQ(box.noDirection(), 2147483647);
}

TEST_F(ElementObject, AnEmptyNameOfTheNextFlowchartIsNil) {
  EXPECT_EQ(first(ChartFile().link(0, 0, "", "")).nameOfNextFlowchart(), std::nullopt);
  EXPECT_EQ(first(ChartFile().link(0, 0, "", std::string("\0Slam", 5))).nameOfNextFlowchart(),
            std::nullopt);
}

TEST_F(ElementObject, ANameOfTheNextFlowchartThatIsNotUtf8IsNil) {
  EXPECT_EQ(first(ChartFile().link(0, 0, "", "Sl\xffm")).nameOfNextFlowchart(), std::nullopt);
  EXPECT_EQ(first(ChartFile().link(0, 0, "", " ")).nameOfNextFlowchart(), " ");
}

TEST_F(ElementObject, TextEndsBeforeItsFirstNUL) {
  const std::string line("one\0two\0", 8);
  const ScreenElement element =
      first(ChartFile().node({line, "x"}, {std::string(1, '\0'), line}, line).cell(0, 0, 0));
  EXPECT_EQ(element.boxText(), (Lines{"one", "x"}));
  EXPECT_EQ(element.commentaryText(), (Lines{"", "one"}));
  EXPECT_EQ(element.nameOfNextFlowchart(), "one");
  EXPECT_EQ(element.debugDescription(), "<ScreenElement node \"one x\" @0,0>");
}

TEST_F(ElementObject, WhatFollowsANULIsNotChecked) {
  EXPECT_EQ(withBoxLine(std::string("one\0\xff", 5)).boxText(), Lines{"one"});
}

TEST_F(ElementObject, LinesAreNeitherTrimmedNorJoinedNorDropped) {
  const ScreenElement element = first(ChartFile().node({" a ", "", "b\r", "\t"}).cell(0, 0, 0));
  EXPECT_EQ(element.boxText(), (Lines{" a ", "", "b\r", "\t"}));
}

struct Utf8 {
  const char* what;
  std::string bytes;
  bool isValid;
};

const Utf8 utf8[] = {
    {"ASCII", "a~\x7f\x01", true},
    {"two bytes, lowest", "\xc2\x80", true},
    {"two bytes, highest", "\xdf\xbf", true},
    {"three bytes, lowest", "\xe0\xa0\x80", true},
    {"three bytes, before the surrogates", "\xed\x9f\xbf", true},
    {"three bytes, after the surrogates", "\xee\x80\x80", true},
    {"three bytes, highest", "\xef\xbf\xbf", true},
    {"four bytes, lowest", "\xf0\x90\x80\x80", true},
    {"four bytes, lowest of lead F1", "\xf1\x80\x80\x80", true},
    {"four bytes, highest of lead F3", "\xf3\xbf\xbf\xbf", true},
    {"U+10FFFF", "\xf4\x8f\xbf\xbf", true},
    {"suits", "\xe2\x99\xa3\xe2\x99\xa6\xe2\x99\xa5\xe2\x99\xa0", true},
    {"byte order mark", "\xef\xbb\xbfx", true},
    {"continuation alone", "\x80", false},
    {"continuation after ASCII", "a\xbf", false},
    {"overlong two bytes, NUL", "\xc0\x80", false},
    {"overlong two bytes", "\xc1\xbf", false},
    {"overlong three bytes", "\xe0\x9f\xbf", false},
    {"overlong four bytes", "\xf0\x8f\xbf\xbf", false},
    {"first surrogate", "\xed\xa0\x80", false},
    {"last surrogate", "\xed\xbf\xbf", false},
    {"above U+10FFFF", "\xf4\x90\x80\x80", false},
    {"lead F5", "\xf5\x80\x80\x80", false},
    {"five bytes", "\xf8\x88\x80\x80\x80", false},
    {"FE", "\xfe", false},
    {"FF", "\xff", false},
    {"two bytes cut", "\xc3", false},
    {"three bytes cut after two", "\xe2\x99", false},
    {"three bytes cut after one", "\xe2", false},
    {"four bytes cut", "\xf0\x90\x80", false},
    {"cut by ASCII", "\xe2\x99z", false},
    {"cut by a lead", "\xe2\xe2\x99\xa3", false},
    {"second continuation wrong", "\xf0\x90\x41\x80", false},
    {"third continuation wrong", "\xf0\x90\x80\xc0", false},
    {"cut by NUL", std::string("\xe2\x99\0\xa3", 4), false},
    {"valid, then not", "ok \xe2\x99\xa3 \xa3", false},
};

TEST_F(ElementObject, AListWithALineThatIsNotUtf8ThrowsAndAValidOneComesUnchanged) {
  for (const Utf8& text : utf8) {
    SCOPED_TRACE(text.what);
    const ScreenElement element = first(ChartFile().node({text.bytes}, {text.bytes}).cell(0, 0, 0));
    if (text.isValid) {
      EXPECT_EQ(element.boxText(), Lines{text.bytes});
      EXPECT_EQ(element.commentaryText(), Lines{text.bytes});
    } else {
      EXPECT_EQ(typeThrown([&] { element.boxText(); }), "invalid_argument");
      EXPECT_EQ(typeThrown([&] { element.commentaryText(); }), "invalid_argument");
      EXPECT_EQ(typeThrown([&] { element.debugDescription(); }), "invalid_argument");
    }
  }
}

TEST_F(ElementObject, ASingleTextThatIsNotUtf8IsNilAndAValidOneComesUnchanged) {
  for (const Utf8& text : utf8) {
    SCOPED_TRACE(text.what);
    const auto name = first(ChartFile().link(0, 0, "", text.bytes)).nameOfNextFlowchart();
    EXPECT_EQ(name, text.isValid ? std::optional(text.bytes) : std::nullopt);
  }
}

TEST_F(ElementObject, TheExceptionNamesTheLineCountingFrom0) {
  const ScreenElement element =
      first(ChartFile().node({"\xff"}, {"a", "b", "c", "\xff", "\xff"}).cell(0, 0, 0));
  const std::string box = textThrown<std::invalid_argument>([&] { element.boxText(); });
  EXPECT_EQ(box, "line 0 is not valid UTF-8");
  const std::string commentary =
      textThrown<std::invalid_argument>([&] { element.commentaryText(); });
  EXPECT_EQ(commentary, "line 3 is not valid UTF-8");
}

TEST_F(ElementObject, GivesItsLinesAwayWhenItIsAboutToGo) {
  select(ChartFile().node({"Root"}, {"why"}).node({"\xff"}, {"\xff"}).cell(0, 0, 0).cell(1, 1, 0));
  EXPECT_EQ(navigator.elementAtXY(0, 0).boxText(), Lines{"Root"});
  EXPECT_EQ(navigator.elementAtXY(0, 0).commentaryText(), Lines{"why"});
  EXPECT_EQ(typeThrown([&] { navigator.elementAtXY(1, 0).boxText(); }), "invalid_argument");
  EXPECT_EQ(typeThrown([&] { navigator.elementAtXY(1, 0).commentaryText(); }), "invalid_argument");
}

TEST_F(ElementObject, OneLineThatIsNotUtf8LeavesTheOtherPropertiesReadable) {
  const ScreenElement element = first(ChartFile().node({"\xff"}, {"why"}, "Slam").cell(0, 5, 0));
  EXPECT_EQ(element.commentaryText(), Lines{"why"});
  EXPECT_EQ(element.nameOfNextFlowchart(), "Slam");
  EXPECT_EQ(element.x(), 5);
}

TEST_F(ElementObject, TwoMadeFromOneRecordAreEqualInEveryProperty) {
  select(ChartFile().link(0, 0, "Root", "Slam", xPlus, yPlus).line(1, 0, xPlus, xPlus));
  EXPECT_EQ(properties(navigator.elementAtXY(0, 0)), properties(navigator.allElements()[0]));
  EXPECT_EQ(properties(navigator.elementAtXY(1, 0)), properties(navigator.allElements()[1]));
}

TEST_F(ElementObject, KeepsItsValuesAfterNewPathsAndMovesAndTheNavigatorsEnd) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(1, 0, "End"));
  auto own = std::make_unique<Tavrel>(directory.path());
  own->startNewPathForFlowchartAtIndexYesNoString(0, "y");
  const ScreenElement marked = own->elementAtXY(1, 0);
  const std::string before = properties(marked);
  own->startNewPathForFlowchartAtIndexYesNoString(0, "");
  EXPECT_TRUE(marked.isOnPath());
  EXPECT_FALSE(own->elementAtXY(1, 0).isOnPath());
  own->moveYes();
  own.reset();
  EXPECT_EQ(properties(marked), before);
}

TEST_F(ElementObject, IsAValue) {
  static_assert(std::is_copy_constructible_v<ScreenElement>);
  static_assert(std::is_copy_assignable_v<ScreenElement>);
  static_assert(std::is_nothrow_move_constructible_v<ScreenElement>);
  static_assert(!std::is_default_constructible_v<ScreenElement>);
  select(ChartFile().box(0, 0, "Root").box(1, 0, "End"));
  ScreenElement one = navigator.elementAtXY(0, 0);
  const ScreenElement copy = one;
  one = navigator.elementAtXY(1, 0);
  EXPECT_EQ(copy.boxText(), Lines{"Root"});
  EXPECT_EQ(one.boxText(), Lines{"End"});
  const ScreenElement moved = std::move(one);
  EXPECT_EQ(moved.boxText(), Lines{"End"});
  EXPECT_EQ(one.x(), 1);
  EXPECT_EQ(one.boxText(), Lines{});
}

// --- The one-line description -------------------------------------------------

TEST_F(ElementObject, IsDescribedInOneLine) {
  const struct {
    ChartFile chart;
    const char* text;
  } cases[] = {
      {ChartFile().line(3, 4, 1, 1), "<ScreenElement line @3,4>"},
      {ChartFile().node({}).cell(0, 0, 0), "<ScreenElement node \"\" @0,0>"},
      {ChartFile().node({"one", "two"}).cell(0, 0, 0), "<ScreenElement node \"one two\" @0,0>"},
      {ChartFile().node({"", "", "a\r"}).cell(0, 7, 0), "<ScreenElement node \"  a\r\" @7,0>"},
      {ChartFile().node({" \"x\" "}).cell(0, 0, 0), "<ScreenElement node \" \"x\" \" @0,0>"},
      {ChartFile().link(-1, -2, "Box", "Slam", 1, 0), "<ScreenElement node \"Box\" @-1,-2>"},
  };
  for (const auto& [chart, text] : cases) EXPECT_EQ(first(chart).debugDescription(), text);
}

TEST_F(ElementObject, IsDescribedAsOnThePath) {
  write(ChartFile().box(0, 0, "Root", xPlus).box(2, 0, "End").line(1, 0, 1, 1).line(3, 4, 1, 1));
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "y");
  EXPECT_EQ(described(navigator.allElements()),
            "<ScreenElement node \"Root\" onPath @0,0>\n"
            "<ScreenElement node \"End\" onPath @2,0>\n"
            "<ScreenElement line onPath @1,0>\n"
            "<ScreenElement line @3,4>\n");
}

}  // namespace
}  // namespace tavrel
