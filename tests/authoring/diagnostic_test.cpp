#include "authoring/Diagnostic.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::authoring {
namespace {

std::string shownAt(const std::string& bytes, Place place, const std::string& cure = "") {
  const SourceFile file("Opening.yaml", bytes);
  return shown({Code::syntax, place, "something is wrong", cure}, file);
}

TEST(Diagnostic, ShowsItsLineAndPointsAtItsPlace) {
  EXPECT_EQ(shownAt("a: b\nc: d\n", {2, 4}, "mend it"),
            "Opening.yaml:2:4: error: something is wrong [T0109]\n"
            "    c: d\n"
            "       ^\n"
            "    mend it\n");
}

TEST(Diagnostic, PointsByColumnsNotCharacters) {
  EXPECT_EQ(shownAt("日本: x\n", {1, 5}),
            "Opening.yaml:1:5: error: something is wrong [T0109]\n"
            "    日本: x\n"
            "          ^\n");
}

TEST(Diagnostic, ShowsPartOfALongLine) {
  const std::string text = shownAt(std::string(500, 'x') + "y" + std::string(500, 'x'), {1, 501});
  EXPECT_EQ(text, "Opening.yaml:1:501: error: something is wrong [T0109]\n    " +
                      std::string(50, 'x') + "y" + std::string(49, 'x') + "\n    " +
                      std::string(50, ' ') + "^\n");
}

TEST(Diagnostic, ShowsWholeCharactersOfALongLine) {
  std::string line;
  for (int i = 0; i < 200; ++i) line += "é";
  std::string part;
  for (int i = 0; i < 100; ++i) part += "é";
  EXPECT_EQ(shownAt(line, {1, 60}), "Opening.yaml:1:60: error: something is wrong [T0109]\n    " +
                                        part + "\n    " + std::string(50, ' ') + "^\n");
}

TEST(Diagnostic, PointsNoFurtherThanTheLineGoes) {
  EXPECT_EQ(shownAt("abc\n", {1, 80}),
            "Opening.yaml:1:80: error: something is wrong [T0109]\n    abc\n       ^\n");
}

TEST(Diagnostic, ShowsNothingThatMovesTheCursor) {
  EXPECT_EQ(shownAt("a\x1b[2J\n", {1, 2}),
            "Opening.yaml:1:2: error: something is wrong [T0109]\n"
            "    a\uFFFD[2J\n"
            "     ^\n");
}

// Keys and ids may hold whatever the escapes of YAML stand for.
TEST(Diagnostic, ShowsNothingThatMovesTheCursorInItsWordsEither) {
  const SourceFile file("Opening.yaml", "a\n");
  EXPECT_EQ(shown({Code::unknownKey, {1, 1}, "a box has no k\ney\x1b[31m", "write\ra\xff"}, file),
            "Opening.yaml:1:1: error: a box has no k\uFFFDey\uFFFD[31m [T0202]\n"
            "    a\n"
            "    ^\n"
            "    write\uFFFDa\uFFFD\n");
}

TEST(Diagnostics, ComeInTheOrderOfTheirPlaces) {
  Diagnostics found;
  found.add(Code::unknownKey, {2, 1}, "third");
  found.add(Code::unknownKey, {1, 5}, "second");
  found.add(Code::unknownKey, {1, 2}, "first");
  found.add(Code::repeated, {2, 1}, "fourth");
  std::string texts;
  for (const Diagnostic& diagnostic : found.sorted()) texts += diagnostic.text + " ";
  EXPECT_EQ(texts, "first second third fourth ");
  EXPECT_EQ(found.count(Severity::error), 3U);
  EXPECT_EQ(found.count(Severity::note), 1U);
}

}  // namespace
}  // namespace tavrel::authoring
