// The walk on an index of boxes is the walk that the navigator makes.

#include "hands/Walker.h"

#include <gtest/gtest.h>

#include <string>

#include "facade/Tavrel.h"
#include "hands/Deal.h"
#include "hands/Dealer.h"
#include "tests/hands/TestChart.h"
#include "tests/support/Files.h"

namespace tavrel::hands {
namespace {

void expectTheNavigatorsWalks(const std::string& source, int hands) {
  const TestChart test(source);
  const std::vector<Table> tables = tablesOf(test.chart().conditions());
  Walker walker(test.chart());
  Dealer dealer(walker, tables, std::nullopt);
  Tavrel navigator(test.folder().path());
  const auto index = navigator.indexOfFlowchartWithTitle(test.chart().name());
  for (int i = 0; i < hands; ++i) {
    Random random(6, static_cast<std::uint64_t>(i));
    ASSERT_TRUE(dealer.deal(random).has_value());
    walker.walk([&random](BoxIndex) { return random.below(2) == 0 ? Answer::yes : Answer::no; });
    navigator.resetToStartLocationForFlowchartAtIndex(index);
    for (const Step step : walker.steps()) {
      const ScreenElement at = navigator.currentElement();
      ASSERT_EQ(test.chart().at({at.x(), at.y()}), step.box);
      step.answer == Answer::yes ? navigator.moveYes() : navigator.moveNo();
    }
    const ScreenElement end = navigator.currentElement();
    ASSERT_EQ(test.chart().at({end.x(), end.y()}), walker.end());
    EXPECT_EQ(end.boxText(), test.chart()[walker.end()].text);
  }
}

TEST(Walker, WalksAsTheNavigatorDoes) {
  for (const char* name : {"Opening", "RespNT", "Stayman"}) {
    SCOPED_TRACE(name);
    expectTheNavigatorsWalks(readFile(std::string(TAVREL_SOURCES "/") + name + ".yaml"), 2'000);
  }
}

TEST(Walker, WalksThroughQuestionsThatStandInSeveralPlaces) {
  expectTheNavigatorsWalks(R"(
chart: Opening
start: a
applies: {auction: ""}
boxes:
  a: {text: "A?", when: "hcp >= 10", yes: b, no: c}
  b: {text: "B?", when: "spades >= 4", yes: d, no: e}
  c: {text: "C?", when: "spades >= 3", yes: d, no: e}
  d: {text: "D?", when: "hearts >= 4", yes: f, no: e}
  e: {text: "E?", when: "balanced", yes: f, no: g}
  f: {text: "F", call: P}
  g: {text: "G", call: 1C}
)",
                           2'000);
}

}  // namespace
}  // namespace tavrel::hands
