#include "authoring/SourceFile.h"

#include <gtest/gtest.h>

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
