#include "authoring/BoxLines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel::authoring {
namespace {

using Strings = std::vector<std::string>;

TEST(Suits, MayBeWrittenAsLetters) {
  EXPECT_EQ(withSuits("2!c, 2!d, 2!h or 2!s?"), "2♣, 2♦, 2♥ or 2♠?");
  EXPECT_EQ(withSuits("!s"), "♠");
}

TEST(Suits, EndWithTheirLetter) {
  EXPECT_EQ(withSuits("Stop!strong"), "Stop!strong");
  EXPECT_EQ(withSuits("!C !x ! !"), "!C !x ! !");
  EXPECT_EQ(withSuits("!cé"), "!cé");
  EXPECT_EQ(withSuits("!cZ !dz !h9"), "!cZ !dz !h9");
  EXPECT_EQ(withSuits("!c_ !d~ !h/"), "♣_ ♦~ ♥/");
}

TEST(BoxLines, KeepAShortTextWhole) { EXPECT_EQ(boxLines("12+ HCP?", 24), (Strings{"12+ HCP?"})); }

TEST(BoxLines, BreakAtBlanksAndBalance) {
  EXPECT_EQ(boxLines("22+ HCP, or 9+ playing tricks?", 24),
            (Strings{"22+ HCP, or 9+", "playing tricks?"}));
}

TEST(BoxLines, CountColumnsNotBytes) {
  EXPECT_EQ(boxLines("♣♦♥♠ ♣♦♥♠", 9), (Strings{"♣♦♥♠ ♣♦♥♠"}));
  EXPECT_EQ(boxLines("é é é é", 7), (Strings{"é é é é"}));
}

TEST(BoxLines, LeaveAWideWordAlone) {
  EXPECT_EQ(boxLines("a counterproductively b", 8), (Strings{"a", "counterproductively", "b"}));
}

TEST(BoxLines, StayAsTheAuthorWroteThem) {
  EXPECT_EQ(boxLines("one\ntwo two two two two two two two", 8),
            (Strings{"one", "two two two two two two two two"}));
}

TEST(BoxLines, DropBlanksAndEmptyLinesAtTheEnd) {
  EXPECT_EQ(boxLines("one  \ntwo\n\n", 8), (Strings{"one", "two"}));
  EXPECT_EQ(boxLines("", 8), Strings{});
  EXPECT_EQ(boxLines(" \n", 8), Strings{});
}

TEST(ParagraphLines, FlowAndKeepTheirParagraphs) {
  const std::string word = "abcdefghi";
  std::string text;
  for (int i = 0; i < 8; ++i) text += word + "\n";
  EXPECT_EQ(paragraphLines(text + "\nnext\n"),
            (Strings{"abcdefghi abcdefghi abcdefghi abcdefghi abcdefghi abcdefghi abcdefghi",
                     "abcdefghi", "", "next"}));
}

TEST(ParagraphLines, BeginWithTheFirstText) {
  EXPECT_EQ(paragraphLines("\n\nfirst\n"), Strings{"first"});
}

TEST(ParagraphLines, OfNothingAreNone) { EXPECT_EQ(paragraphLines("\n \n"), Strings{}); }

}  // namespace
}  // namespace tavrel::authoring
