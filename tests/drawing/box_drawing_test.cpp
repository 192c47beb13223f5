#include <gtest/gtest.h>

#include <string>

#include "drawing/BoxDrawing.h"

namespace tavrel::drawing {
namespace {

// The strokes as the letters u d l r, heavy ones upper-case.
Strokes strokes(const std::string& letters) {
  const std::string order = "drul";
  Strokes all;
  for (const char letter : letters) {
    const char lower = static_cast<char>(letter | 0x20);
    all.add(static_cast<XYDirection>(order.find(lower)),
            letter == lower ? Weight::light : Weight::heavy);
  }
  return all;
}

std::string utf8(const std::string& letters) {
  return std::string(lineGlyph(strokes(letters), Charset::utf8));
}

std::string plain(const std::string& letters) {
  return std::string(lineGlyph(strokes(letters), Charset::plain));
}

TEST(LineGlyph, ShowsEveryStroke) {
  const std::pair<const char*, const char*> glyphs[] = {
      {"", " "},   {"lr", "─"},  {"ud", "│"},  {"dr", "┌"},  {"dl", "┐"},  {"ur", "└"},
      {"ul", "┘"}, {"udr", "├"}, {"udl", "┤"}, {"dlr", "┬"}, {"ulr", "┴"}, {"udlr", "┼"},
      {"u", "╵"},  {"d", "╷"},   {"l", "╴"},   {"r", "╶"}};
  for (const auto& [letters, glyph] : glyphs) EXPECT_EQ(utf8(letters), glyph) << letters;
}

TEST(LineGlyph, ShowsEveryHeavyStroke) {
  const std::pair<const char*, const char*> glyphs[] = {
      {"LR", "━"},  {"UD", "┃"},  {"DR", "┏"},  {"DL", "┓"},  {"UR", "┗"},  {"UL", "┛"},
      {"UDR", "┣"}, {"UDL", "┫"}, {"DLR", "┳"}, {"ULR", "┻"}, {"UDLR", "╋"}};
  for (const auto& [letters, glyph] : glyphs) EXPECT_EQ(utf8(letters), glyph) << letters;
}

TEST(LineGlyph, MixesWeights) {
  const std::pair<const char*, const char*> glyphs[] = {
      {"UDr", "┠"},  {"udR", "┝"},  {"LRd", "┯"},  {"LRu", "┷"},  {"lrD", "┰"},  {"lR", "╼"},
      {"uD", "╽"},   {"uDR", "┢"},  {"UdL", "┩"},  {"uDLr", "╅"}, {"UdlR", "╄"}, {"udLR", "┿"},
      {"UDlr", "╂"}, {"UDlR", "╊"}, {"UdLR", "╇"}, {"uDLR", "╈"}};
  for (const auto& [letters, glyph] : glyphs) EXPECT_EQ(utf8(letters), glyph) << letters;
}

TEST(LineGlyph, IsAsciiInPlain) {
  EXPECT_EQ(plain(""), " ");
  EXPECT_EQ(plain("lr"), "-");
  EXPECT_EQ(plain("ud"), "|");
  EXPECT_EQ(plain("dr"), "+");
  EXPECT_EQ(plain("udlr"), "+");
  EXPECT_EQ(plain("LR"), "=");
  EXPECT_EQ(plain("UD"), "#");
  EXPECT_EQ(plain("DR"), "+");
}

TEST(Strokes, KeepTheHeavierOfTwo) {
  EXPECT_EQ(utf8("lLr"), "╾");
  EXPECT_EQ(utf8("Llr"), "╾");
}

}  // namespace
}  // namespace tavrel::drawing
