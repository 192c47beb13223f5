#include "text/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel {
namespace {

std::string utf8(std::string_view text) { return printable(text, Charset::utf8); }
std::string plain(std::string_view text) { return printable(text, Charset::plain); }

std::vector<std::string> clusters(std::string_view text) {
  std::vector<std::string> all;
  for (const Glyph& glyph : glyphs(text)) all.emplace_back(glyph.bytes);
  return all;
}

using Strings = std::vector<std::string>;

TEST(Printable, KeepsWhatATerminalCanShow) {
  for (const char* text :
       {"", "3+ cards in ♥?", "15–17", "日本", "naïve", "cafe\u0301", "👍🏽"}) {
    EXPECT_EQ(utf8(text), text);
  }
}

TEST(Printable, ReplacesControlCharacters) {
  EXPECT_EQ(utf8("a\x1b[2Jb"), "a\uFFFD[2Jb");
  EXPECT_EQ(utf8("a\tb\r"), "a\uFFFDb\uFFFD");
  EXPECT_EQ(utf8(std::string_view("a\0b", 3)), "a\uFFFDb");
  EXPECT_EQ(utf8("\x7f\u009b"), "\uFFFD\uFFFD");
  EXPECT_EQ(plain("a\x1b[2J\u009b"), "a?[2J?");
}

TEST(Printable, ReplacesLineAndParagraphSeparators) {
  EXPECT_EQ(utf8("a\u2028b\u2029"), "a\uFFFDb\uFFFD");
}

TEST(Printable, ReplacesWhatChangesTheDirectionOfWriting) {
  for (const char* control :
       {"\u202a", "\u202b", "\u202c", "\u202d", "\u202e", "\u2066", "\u2067", "\u2068", "\u2069"}) {
    EXPECT_EQ(utf8(control), "\uFFFD");
    EXPECT_EQ(plain(control), "?");
  }
}

TEST(Printable, ReplacesBytesThatAreNotUtf8OneByOne) {
  EXPECT_EQ(utf8("a\xff\xfe"), "a\uFFFD\uFFFD");
  EXPECT_EQ(utf8("\xed\xa0\x80"), "\uFFFD\uFFFD\uFFFD");  // a surrogate
  EXPECT_EQ(utf8("x\xe2\x99"), "x\uFFFD\uFFFD");          // cut short
  EXPECT_EQ(plain("a\xff"), "a?");
}

TEST(Printable, DropsTheEmojiSelectorAfterASuit) {
  EXPECT_EQ(utf8("♥\uFE0F"), "♥");
  EXPECT_EQ(utf8("♥\uFE0E"), "♥\uFE0E");
  EXPECT_EQ(utf8("☎\uFE0F"), "☎\uFE0F");
}

TEST(Printable, WritesTheSuitsAsLettersInPlain) {
  EXPECT_EQ(plain("♣♦♥♠"), "CDHS");
  EXPECT_EQ(plain("♥\uFE0F ♥\uFE0E"), "H H");
}

TEST(Printable, HasAsciiForTypographyInPlain) {
  EXPECT_EQ(plain("15–17 — ‘a’ “b” …"), "15-17 - 'a' \"b\" ...");
  EXPECT_EQ(plain("4×3 ≥5 ≤6 ≠7 →"), "4x3 >=5 <=6 !=7 ->");
  EXPECT_EQ(plain("5\u00A0cards"), "5 cards");
}

TEST(Printable, TakesAccentsOffLettersInPlain) {
  EXPECT_EQ(plain("naïve Ålesund ốc"), "naive Alesund oc");
  EXPECT_EQ(plain("cafe\u0301"), "cafe");
}

TEST(Printable, TakesAccentsOffLettersOnly) {
  EXPECT_EQ(plain("=\u0338"), "?");  // "not equal" must not become "equal"
  EXPECT_EQ(plain("≮"), "?");
  EXPECT_EQ(plain("~\u0301"), "?");
  EXPECT_EQ(plain("a\u20DD"), "?");  // in a circle
}

TEST(Printable, WritesOneQuestionMarkForAnyOtherClusterInPlain) {
  EXPECT_EQ(plain("日本"), "??");
  EXPECT_EQ(plain("👍🏽"), "?");
  EXPECT_EQ(plain("ß"), "?");
}

TEST(DisplayWidth, CountsColumns) {
  EXPECT_EQ(displayWidth(""), 0);
  EXPECT_EQ(displayWidth("12+ HCP?"), 8);
  EXPECT_EQ(displayWidth("♣♦♥♠"), 4);
  EXPECT_EQ(displayWidth("日本"), 4);
  EXPECT_EQ(displayWidth("cafe\u0301"), 4);
  EXPECT_EQ(displayWidth("\uFFFD"), 1);
}

TEST(DisplayWidth, CountsAClusterOnce) {
  EXPECT_EQ(displayWidth("👍🏽"), 2);
  EXPECT_EQ(displayWidth("👩\u200d👩\u200d👧"), 2);
  EXPECT_EQ(displayWidth("🇫🇷"), 2);
}

TEST(Glyphs, AreTheClustersOfTheText) {
  EXPECT_EQ(clusters(""), Strings{});
  EXPECT_EQ(clusters("abc"), (Strings{"a", "b", "c"}));
  EXPECT_EQ(clusters("e\u0301x"), (Strings{"e\u0301", "x"}));
  EXPECT_EQ(clusters("♥\uFE0F♠\uFE0E♣"), (Strings{"♥\uFE0F", "♠\uFE0E", "♣"}));
  EXPECT_EQ(clusters("👩\u200d👧!"), (Strings{"👩\u200d👧", "!"}));
  EXPECT_EQ(clusters("a\xff\xff"), (Strings{"a", "\xff", "\xff"}));
}

TEST(Glyphs, ArePartsOfTheTextGiven) {
  const std::string text = "3♥";
  const std::vector<Glyph> all = glyphs(text);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[1].bytes.data(), text.data() + 1);
}

}  // namespace
}  // namespace tavrel
