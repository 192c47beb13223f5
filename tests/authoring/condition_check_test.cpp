// Whether a hand can answer all of a chart.

#include "authoring/ConditionCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "authoring/SourceReader.h"
#include "tests/authoring/Charts.h"

namespace tavrel::authoring {
namespace {

using Strings = std::vector<std::string>;

// What is found in boxes that begin on line 4, by this check alone.
Strings foundIn(const std::string& boxes) {
  Diagnostics ofReader, found;
  const auto source =
      readInPart(SourceFile("Opening.yaml", "chart: Opening\nstart: a\nboxes:\n" + boxes),
                 fewCharts, ofReader);
  if (source) checkConditions(*source, found);
  return brief(found);
}

const std::string plainQuestion = "  a: {text: \"Five?\", yes: b, no: b}\n";
const std::string question = "  a: {text: \"Five?\", when: \"length(S) > 4\", yes: b, no: b}\n";

TEST(ConditionCheck, IsSilentAboutChartsForPeopleAlone) {
  EXPECT_EQ(foundIn(plainQuestion + "  b: {text: \"Bid\"}\n"), Strings{});
}

TEST(ConditionCheck, IsNotSilentOnceAChartSaysAnything) {
  const std::string boxes = plainQuestion + "  b: {text: \"Bid\"}\n";
  EXPECT_EQ(foundIn(boxes + "applies: {auction: \"\"}\n"), (Strings{"4:13 T0820", "5:13 T0821"}));
  EXPECT_EQ(foundIn(plainQuestion + "  b: {text: \"Bid\", call: 1S}\n"), Strings{"4:13 T0820"});
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\"}\n"), Strings{"5:13 T0821"});
  EXPECT_EQ(
      foundIn("  a: {text: \"Good?\", asks: judgement, yes: b, no: b}\n  b: {text: \"Bid\"}\n"),
      Strings{"5:13 T0821"});
}

TEST(ConditionCheck, FindsNothingWhereEachBoxHasWhatItNeeds) {
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", call: [{when: \"hcp > 1\", call: 1S}]}\n"),
            Strings{});
}

TEST(ConditionCheck, LetsAnEndLeaveTheCallToTheChartWhereItsHandGoesOn) {
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", chart: RespNT, next: self}\n"), Strings{});
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", chart: RespNT, next: partner}\n"),
            Strings{"5:13 T0821"});
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", chart: RespNT}\n"), Strings{"5:13 T0821"});
}

// Of what has an error enough is said.
TEST(ConditionCheck, LeavesOutWhatIsNotSure) {
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", call: \"\"}\n"), Strings{});
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", cal: 1S}\n"), Strings{});
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", call: [~]}\n"), Strings{});
  EXPECT_EQ(foundIn(question + "  b: {text: \"Bid\", call: [{call: ~}]}\n"), Strings{});
  EXPECT_EQ(foundIn("  a: {text: \"Five?\", when: balanced, yes: b, no: b}\n"
                    "  b: {text: \"Bid\", call: 1S}\n"),
            Strings{});
  EXPECT_EQ(foundIn("  a: {text: \"Five?\", when: \"hcp > 1\", yes: b, no: c}\n"
                    "  b: {text: \"Four?\", yes: c, no: c}\n"),
            Strings{});
}

}  // namespace
}  // namespace tavrel::authoring
