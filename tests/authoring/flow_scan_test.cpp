#include "authoring/FlowScan.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::authoring {
namespace {

// "12 deep" or "12 many"; empty where nothing is too much. Two brackets may be open, and six
// values stand between them.
std::string excessIn(const std::string& text) {
  const auto excess = firstExcess(text, 2, 6);
  if (!excess) return "";
  return std::to_string(excess->offset) + (excess->isDeep ? " deep" : " many");
}

TEST(FlowScan, FindsWhereTooManyBracketsAreOpen) {
  EXPECT_EQ(excessIn("a: {b: [c]}\n"), "");
  EXPECT_EQ(excessIn("a: {b: [{"), "8 deep");
  EXPECT_EQ(excessIn("a: {b: [c],\n d: {\ne: ["), "21 deep");
  EXPECT_EQ(excessIn("- - ? {[{"), "8 deep");
  EXPECT_EQ(excessIn("--- {[{"), "6 deep");
  EXPECT_EQ(excessIn("a: &b !c {[{"), "11 deep");
  EXPECT_EQ(excessIn("{}[[["), "4 deep");
  EXPECT_EQ(excessIn("\"a\": {b: {c: {"), "13 deep");
}

TEST(FlowScan, FindsWhereTooManyValuesStandBetweenThem) {
  EXPECT_EQ(excessIn("[,,,,,"), "");
  EXPECT_EQ(excessIn("[,,,,,,"), "6 many");
  EXPECT_EQ(excessIn("{}{}{}{}{}{}{}"), "12 many");
  EXPECT_EQ(excessIn("\"\"\"\"\"\"\"\"\"\"\"\"\"\""), "12 many");
}

TEST(FlowScan, PassesOverTexts) {
  EXPECT_EQ(excessIn("a: \"[[[[,,,,,,,\"\nb: '[[[[ it''s,,,,,,,'\n"), "");
  EXPECT_EQ(excessIn("a: :-[ :-[ :-[ ,,,,,,,,\n"), "");
  EXPECT_EQ(excessIn("a: b\n  [[[ ,,,,,,,,\nc: d\n"), "");
  EXPECT_EQ(excessIn("a:\n  b\n  [[[ ,,,,,,,,\n"), "");
  EXPECT_EQ(excessIn("{a: \"[[[[\", b: c d, e: don't [}"), "");
  EXPECT_EQ(excessIn("a: \"[[["), "");
}

TEST(FlowScan, PassesOverBlocks) {
  EXPECT_EQ(excessIn("a: |\n  [[[\n\n [[[\nb: >-\n  {{{\n"), "");
  EXPECT_EQ(excessIn("a: |\n  b\nc: [[["), "14 deep");
  EXPECT_EQ(excessIn("a: |"), "");
  EXPECT_EQ(excessIn("a: |\n   "), "");
}

TEST(FlowScan, PassesOverRemarks) {
  EXPECT_EQ(excessIn("# [[[\na: b # [[[\nc: {d: e} # [[[\n{ # [[[\n  f: g # }\n}"), "");
  EXPECT_EQ(excessIn("{a#[[["), "4 deep");
}

TEST(FlowScan, TakesATextForEndedWhereTheNextKeyStands) {
  EXPECT_EQ(excessIn("a: b\nc: [[[\n"), "10 deep");
  EXPECT_EQ(excessIn("a\nc: [[[\n"), "7 deep");
}

}  // namespace
}  // namespace tavrel::authoring
