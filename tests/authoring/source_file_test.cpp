#include "authoring/SourceFile.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::authoring {
namespace {

TEST(SourceFile, CountsLinesAndColumnsFromOne) {
  const SourceFile file("a", "one\ntwo\n");
  EXPECT_EQ(file.placeOf(0), (Place{1, 1}));
  EXPECT_EQ(file.placeOf(2), (Place{1, 3}));
  EXPECT_EQ(file.placeOf(3), (Place{1, 4}));
  EXPECT_EQ(file.placeOf(4), (Place{2, 1}));
  EXPECT_EQ(file.placeOf(8), (Place{3, 1}));
  EXPECT_EQ(file.placeOf(99), (Place{3, 1}));
}

TEST(Place, ComesByItsLineThenByItsColumn) {
  EXPECT_FALSE((Place{1, 2}) == (Place{1, 3}));
  EXPECT_FALSE((Place{1, 2}) == (Place{2, 2}));
  EXPECT_TRUE((Place{1, 9}) < (Place{2, 1}));
  EXPECT_TRUE((Place{2, 1}) < (Place{2, 2}));
  EXPECT_FALSE((Place{2, 2}) < (Place{2, 2}));
  EXPECT_FALSE((Place{3, 1}) < (Place{2, 2}));
}

TEST(SourceFile, CountsCharacters) {
  const SourceFile file("a", "é♣x");
  EXPECT_EQ(file.placeOf(2), (Place{1, 2}));
  EXPECT_EQ(file.placeOf(5), (Place{1, 3}));
}

TEST(SourceFile, FindsCharactersByTheirPlaces) {
  const SourceFile file("a", "é♣x\nyz");
  EXPECT_EQ(file.offsetOf({1, 1}), 0U);
  EXPECT_EQ(file.offsetOf({1, 2}), 2U);
  EXPECT_EQ(file.offsetOf({1, 3}), 5U);
  EXPECT_EQ(file.offsetOf({1, 99}), 6U);
  EXPECT_EQ(file.offsetOf({2, 2}), 8U);
  EXPECT_EQ(file.offsetOf({2, 99}), 9U);
}

TEST(SourceFile, KnowsPlacesAndOffsetsOfLongLinesToo) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += i % 7 == 0 ? "\n" : i % 3 == 0 ? "♣" : "x";
  const SourceFile file("a", text);
  Place expected;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if ((static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) continue;
    ASSERT_EQ(file.placeOf(at), expected) << at;
    ASSERT_EQ(file.offsetOf(expected), at);
    expected =
        text[at] == '\n' ? Place{expected.line + 1, 1} : Place{expected.line, expected.column + 1};
  }
}

TEST(SourceFile, GivesLinesWithoutTheirEnds) {
  const SourceFile file("a", "one\n\nthree");
  EXPECT_EQ(file.lineCount(), 3U);
  EXPECT_EQ(file.line(1), "one");
  EXPECT_EQ(file.line(2), "");
  EXPECT_EQ(file.line(3), "three");
  EXPECT_EQ(file.line(0), "");
  EXPECT_EQ(file.line(4), "");
}

TEST(SourceFile, OfNothingHasOneEmptyLine) {
  const SourceFile file("a", "");
  EXPECT_EQ(file.lineCount(), 1U);
  EXPECT_EQ(file.placeOf(0), (Place{1, 1}));
}

}  // namespace
}  // namespace tavrel::authoring
