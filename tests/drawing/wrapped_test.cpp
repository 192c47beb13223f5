#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/Text.h"

namespace tavrel {
namespace {

using Strings = std::vector<std::string>;

TEST(Wrapped, LeavesLinesThatFit) {
  EXPECT_EQ(wrapped({"four", " a  b "}, 6), (Strings{"four", " a  b "}));
  EXPECT_EQ(wrapped({}, 6), Strings{});
}

TEST(Wrapped, KeepsEmptyLines) { EXPECT_EQ(wrapped({"", "a", ""}, 6), (Strings{"", "a", ""})); }

TEST(Wrapped, BreaksAtTheLastBlankThatFits) {
  EXPECT_EQ(wrapped({"count your points"}, 10), (Strings{"count your", "points"}));
  EXPECT_EQ(wrapped({"count your points"}, 9), (Strings{"count", "your", "points"}));
}

TEST(Wrapped, DropsTheBlanksItBreaksAt) {
  EXPECT_EQ(wrapped({"one   two"}, 4), (Strings{"one", "two"}));
  EXPECT_EQ(wrapped({"one   "}, 3), (Strings{"one"}));
}

TEST(Wrapped, BreaksWordsWiderThanTheWidth) {
  EXPECT_EQ(wrapped({"abcdefgh ij"}, 3), (Strings{"abc", "def", "gh", "ij"}));
  EXPECT_EQ(wrapped({"  abcdef"}, 4), (Strings{"  ab", "cdef"}));
}

TEST(Wrapped, WrapsEachLineByItself) {
  EXPECT_EQ(wrapped({"a bc", "d"}, 2), (Strings{"a", "bc", "d"}));
}

TEST(Wrapped, CountsColumnsAndKeepsClustersWhole) {
  EXPECT_EQ(wrapped({"日本日"}, 5), (Strings{"日本", "日"}));
  EXPECT_EQ(wrapped({"e\u0301e\u0301e\u0301"}, 2), (Strings{"e\u0301e\u0301", "e\u0301"}));
  EXPECT_EQ(wrapped({"♥ ♠"}, 3), (Strings{"♥ ♠"}));
}

TEST(Wrapped, EndsWhateverTheWidth) {
  EXPECT_EQ(wrapped({"ab"}, 0), (Strings{"a", "b"}));
  EXPECT_EQ(wrapped({"ab"}, -5), (Strings{"a", "b"}));
  EXPECT_EQ(wrapped({"日本"}, 1), (Strings{"日", "本"}));
  EXPECT_EQ(wrapped({"   "}, 2), (Strings{""}));
}

TEST(Flowed, LeavesLinesThatAllFit) {
  EXPECT_EQ(flowed({"one", "two", "", " three"}, 6), (Strings{"one", "two", "", " three"}));
  EXPECT_EQ(flowed({}, 6), Strings{});
}

TEST(Flowed, JoinsLinesBeforeItWrapsThem) {
  EXPECT_EQ(flowed({"count your", "points and", "bid"}, 9),
            (Strings{"count", "your", "points", "and bid"}));
}

TEST(Flowed, KeepsParagraphsApart) {
  EXPECT_EQ(flowed({"one two", "three", "", "four"}, 6),
            (Strings{"one", "two", "three", "", "four"}));
}

TEST(Flowed, KeepsIndentedLinesAtTheirStart) {
  EXPECT_EQ(flowed({"one two three", "  a", "  b", "c"}, 9),
            (Strings{"one two", "three", "  a", "  b c"}));
}

}  // namespace
}  // namespace tavrel
