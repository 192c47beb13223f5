// YAML without what surprises an author.

#include "authoring/Yaml.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/authoring/Found.h"

namespace tavrel::authoring {
namespace {

using Found = std::vector<std::string>;

// A value in one line: texts as they are, maps in braces, lists in brackets.
std::string described(const YamlValue& value) {
  std::string all;
  switch (value.kind) {
    case YamlValue::Kind::text:
      return value.text;
    case YamlValue::Kind::map:
      for (const YamlEntry& entry : value.entries) {
        all += (all.empty() ? "" : ", ") + entry.key + "=" + described(entry.value);
      }
      return "{" + all + "}";
    default:
      for (const YamlValue& item : value.items) all += (all.empty() ? "" : ", ") + described(item);
      return "[" + all + "]";
  }
}

std::string read(const std::string& text) {
  Diagnostics found;
  const std::optional<YamlValue> value = readYaml(SourceFile("a.yaml", text), found);
  EXPECT_EQ(placesOf(found), Found{}) << text;
  return value ? described(*value) : "nothing";
}

Found found(const std::string& text) {
  Diagnostics found;
  readYaml(SourceFile("a.yaml", text), found);
  return placesOf(found);
}

TEST(Yaml, ReadsMapsListsAndTexts) {
  EXPECT_EQ(read("a: b\nc: {d: e}\nf:\n  - g\n  - h\n"), "{a=b, c={d=e}, f=[g, h]}");
  EXPECT_EQ(read("a: |\n  one\n\n  two\nb: >\n  one\n  two\n"), "{a=one\n\ntwo\n, b=one two\n}");
  EXPECT_EQ(read("--- \na: \"b: #c\" # a comment\n"), "{a=b: #c}");
  EXPECT_EQ(read("a: 'it''s'\nb: \"say \\\"x\\\"\"\n"), "{a=it's, b=say \"x\"}");
}

TEST(Yaml, OfAnEmptyFileIsNothing) {
  EXPECT_EQ(read(""), "nothing");
  EXPECT_EQ(read("# a comment\n"), "nothing");
}

TEST(Yaml, KnowsHowTextsAreWritten) {
  Diagnostics found;
  const SourceFile file("a.yaml", "a: x\nb: 'x'\nc: \"x\"\nd: |\n  x\ne: {f: x}\n");
  const std::optional<YamlValue> value = readYaml(file, found);
  ASSERT_TRUE(value.has_value());
  const auto style = [&](const char* key) { return value->find(key)->value.style; };
  EXPECT_EQ(style("a"), YamlValue::Style::plain);
  EXPECT_EQ(style("b"), YamlValue::Style::singleQuoted);
  EXPECT_EQ(style("c"), YamlValue::Style::doubleQuoted);
  EXPECT_EQ(style("d"), YamlValue::Style::block);
  EXPECT_FALSE(value->find("a")->value.isInFlow);
  EXPECT_TRUE(value->find("e")->value.find("f")->value.isInFlow);
  EXPECT_EQ(value->find("g"), nullptr);
}

TEST(Yaml, CountsPlacesInCharacters) {
  Diagnostics found;
  const std::optional<YamlValue> value = readYaml(SourceFile("a.yaml", "é: {♣: x}\n"), found);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(value->entries[0].value.entries[0].value.place, (Place{1, 8}));
}

TEST(Yaml, RefusesTagsAnchorsAliasesAndMergeKeys) {
  EXPECT_EQ(found("a: !c foo\n"), Found{"1:4 T0110"});
  EXPECT_EQ(found("a: !!map {b: c}\n"), Found{"1:4 T0110"});
  EXPECT_EQ(found("a: &x y\nb: z\n"), Found{"1:4 T0111"});
  EXPECT_EQ(found("{a: &x, b: c}\n"), Found{"1:5 T0111"});
  EXPECT_EQ(found("a: &x {b: c}\nb: *x\n"), (Found{"1:4 T0111", "2:4 T0112"}));
  EXPECT_EQ(found("<<: {a: b}\nc: d\n"), Found{"1:1 T0113"});
  EXPECT_EQ(read("\"<<\": a\n"), "{<<=a}");
}

TEST(Yaml, ReadsOnBehindAnAliasWithoutAnAnchor) {
  EXPECT_EQ(found("a: *x\nb: {c: *y}\nd: !z e\nf: [*z]\n"),
            (Found{"1:4 T0117", "2:8 T0117", "3:4 T0110", "4:5 T0117"}));
  EXPECT_EQ(found("a: {text: *x, five}\nb: !c d\n"), (Found{"1:11 T0117", "2:4 T0110"}));
  EXPECT_EQ(found("a: *x, five\n*k : b\nc: !d e\n"),
            (Found{"1:4 T0117", "2:1 T0117", "3:4 T0110"}));
}

// Each is a reason to read the file again.
TEST(Yaml, ReadsALargeFileNoMoreThanAFewTimesForItsAliases) {
  std::string text;
  for (int i = 0; i < 50'000; ++i) text += "- *x" + std::to_string(i) + "\n";
  const Found some = found(text);
  EXPECT_GT(some.size(), 4U);
  EXPECT_LT(some.size(), 40U);
  EXPECT_EQ(some.back(), std::to_string(some.size()) + ":3 T0117");
}

TEST(Yaml, RefusesDirectives) {
  EXPECT_EQ(found("%YAML 1.2\n---\na: !b c\n"), (Found{"1:1 T0127", "3:4 T0110"}));
  EXPECT_EQ(found("# x\n\n%YAML 3.0\n%TAG !c! tag:x,2000:\n%FOO\n---\na: b\n"),
            (Found{"3:1 T0127", "4:1 T0127", "5:1 T0127"}));
  EXPECT_EQ(found("%FOO\na: b\n"), Found{"1:1 T0127"});
  EXPECT_EQ(read("---\na: |\n  x\n  %YAML 1.2\n"), "{a=x\n%YAML 1.2\n}");
}

TEST(Yaml, RefusesTheTagThatIsABareExclamationMark) {
  EXPECT_EQ(found("a: ! foo\n"), Found{"1:4 T0110"});
  EXPECT_EQ(found("a: ! \"foo\"\n"), Found{"1:4 T0110"});
  EXPECT_EQ(found("a: ! {b: c}\n"), Found{"1:4 T0110"});
  EXPECT_EQ(found("a: !\n"), Found{"1:4 T0110"});
  EXPECT_EQ(read("a: \"! foo\"\nb: foo!\n"), "{a=! foo, b=foo!}");
}

TEST(Yaml, NamesATagAsItIsWritten) {
  Diagnostics found;
  readYaml(SourceFile("a.yaml", "a: !!str b\n"), found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NE(found.sorted()[0].text.find(" !!str "), std::string::npos);
}

TEST(Yaml, RefusesThemForTheWholeForKeysAndInLists) {
  EXPECT_EQ(found("!c foo\n"), Found{"1:1 T0110"});
  EXPECT_EQ(found("!c foo: bar\na: b\n"), Found{"1:1 T0110"});
  EXPECT_EQ(found("a:\n  - &x b\n  - c\n"), Found{"2:5 T0111"});
}

TEST(Yaml, LeavesOutWhatABadKeyLeadsTo) {
  for (const char* text : {"!c foo: bar\na: b\n", "[foo]: bar\na: b\n", "{foo: bar}: c\na: b\n"}) {
    Diagnostics found;
    const std::optional<YamlValue> value = readYaml(SourceFile("a.yaml", text), found);
    ASSERT_TRUE(value.has_value()) << text;
    EXPECT_EQ(described(*value), "{a=b}") << text;
  }
}

TEST(Yaml, WantsWordsForKeys) {
  EXPECT_EQ(found("[foo]: bar\n"), Found{"1:1 T0204"});
  EXPECT_EQ(found("? {a: b}\n: c\n"), Found{"1:3 T0204"});
}

TEST(Yaml, RefusesMissingValues) {
  EXPECT_EQ(found("a:\nb: c\n"), Found{"1:1 T0114"});
  EXPECT_EQ(found("a: ~\n"), Found{"1:1 T0114"});
  EXPECT_EQ(found("a: null\n"), Found{"1:1 T0114"});
  EXPECT_EQ(found("- \n- a\n"), Found{"2:1 T0114"});
  EXPECT_EQ(found("~\n"), Found{"1:1 T0114"});
}

TEST(Yaml, RefusesASecondDocument) { EXPECT_EQ(found("a: b\n---\nc: d\n"), Found{"2:1 T0115"}); }

TEST(Yaml, RefusesAKeyThatStandsTwice) {
  EXPECT_EQ(found("a: b\nc: d\na: e\n"), Found{"3:1 T0116"});
}

TEST(Yaml, KeepsTheFirstOfTwoLikeKeys) {
  Diagnostics found;
  const std::optional<YamlValue> value = readYaml(SourceFile("a.yaml", "a: b\na: c\n"), found);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(described(*value), "{a=b}");
}

TEST(Yaml, SaysWhereAValueWantsQuotes) {
  EXPECT_EQ(found("a: #1 suit\nb: c\n"), Found{"1:4 T0117"});
  EXPECT_EQ(found("a: >5 cards\n"), Found{"1:4 T0117"});
  EXPECT_EQ(found("a: |x\n"), Found{"1:4 T0117"});
  EXPECT_EQ(found("a: *x\n"), Found{"1:4 T0117"});
  EXPECT_EQ(found("a: %x\n"), Found{"1:4 T0117"});
  EXPECT_EQ(found("a: @x\n"), Found{"1:4 T0117"});
  EXPECT_EQ(found("a: \"x\" y\n"), Found{"1:8 T0117"});
  EXPECT_EQ(found("a: 'x' y\n"), Found{"1:8 T0117"});
  EXPECT_EQ(found("a: x: y\n"), Found{"1:5 T0117"});
  EXPECT_EQ(found("  a: é: y\n"), Found{"1:7 T0117"});
}

TEST(Yaml, SaysWhereAQuoteIsNotClosed) {
  EXPECT_EQ(found("a: \"x\nb: c\n"), Found{"1:4 T0119"});
  EXPECT_EQ(found("a: b\nc: 'it''s\n"), Found{"2:4 T0119"});
}

TEST(Yaml, EndsAtAnErrorOfSyntaxAndSaysWhere) {
  EXPECT_EQ(found("a: b]\n}\n"), Found{"2:1 T0109"});
  EXPECT_EQ(found("a: !x b\n}\n"), (Found{"1:4 T0110", "2:1 T0109"}));
}

TEST(Yaml, GoesOnAfterEveryOtherError) {
  EXPECT_EQ(found("a: !x b\nc: &y d\ne: ~\n"), (Found{"1:4 T0110", "2:4 T0111", "3:1 T0114"}));
}

TEST(Yaml, RefusesBytesThatAreNoText) {
  EXPECT_EQ(found("a: \xFF\n"), Found{"1:4 T0102"});
  EXPECT_EQ(found("\xEF\xBB\xBF"
                  "a: b\n"),
            Found{"1:1 T0103"});
  EXPECT_EQ(found(std::string("a: b\0c\n", 7)), Found{"1:5 T0104"});
  EXPECT_EQ(found("a: b\rc: d\n"), Found{"1:5 T0104"});
  EXPECT_EQ(found("\xFF\xFE"
                  "a\r\xFF"),
            Found{"1:1 T0102"});
  EXPECT_EQ(found("a: b\x7F\n"), Found{"1:5 T0104"});
  EXPECT_EQ(found("a:\tb\n"), Found{"1:3 T0105"});
}

TEST(Yaml, NamesEachByteThatIsNoText) {
  EXPECT_EQ(found("a:\tb\nc: d\x01 e\x02\nf: g\th\n"),
            (Found{"1:3 T0105", "2:5 T0104", "2:8 T0104", "3:5 T0105"}));
  EXPECT_EQ(found("a: \xE9t\xE9\n"), (Found{"1:4 T0102", "1:6 T0102"}));
  EXPECT_EQ(found("a: b\rc\nd: e\r\rf\n"), (Found{"1:5 T0104", "2:5 T0104"}));
  EXPECT_EQ(found("a: \u0080b\u009Fc\u00A0\n"), (Found{"1:4 T0104", "1:6 T0104"}));
  EXPECT_EQ(found("a: b\uFEFFc\n\uFEFFd: e\n"), (Found{"1:5 T0103", "2:1 T0103"}));
}

TEST(Yaml, CountsThoseInARowAsOne) {
  EXPECT_EQ(found("a: b\t\t\t\nc: d\x01\x02\n"), (Found{"1:5 T0105", "2:5 T0104"}));
}

TEST(Yaml, NamesAHundredOfAKindAndCountsTheRest) {
  std::string text;
  for (int i = 0; i < 150; ++i) text += "a" + std::to_string(i) + ":\tb\n";
  Diagnostics found;
  readYaml(SourceFile("a.yaml", text), found);
  EXPECT_EQ(found.size(), 100U);
  EXPECT_EQ(found.sorted().back().text, "a tab stands here, and in 50 more places");
}

TEST(Yaml, GoesOnBehindBytesThatAreNoText) {
  EXPECT_EQ(found("\uFEFFa: b\nc: ~\n"), (Found{"1:1 T0103", "2:1 T0114"}));
  EXPECT_EQ(found("a\x01: b\na: c\n"), (Found{"1:2 T0104", "2:1 T0116"}));
  EXPECT_EQ(found("a: \xFF\nc: !x d\n"), (Found{"1:4 T0102", "2:4 T0110"}));
  EXPECT_EQ(found("a: b\tc\td\ne: ~\n"), (Found{"1:5 T0105", "1:7 T0105", "2:1 T0114"}));
  EXPECT_EQ(found("a: b\t# c\nd: ~\n"), (Found{"1:5 T0105", "2:1 T0114"}));
}

TEST(Yaml, CountsColumnsAsTheyStandInTheFile) {
  EXPECT_EQ(found("\uFEFFa: !x b\n"), (Found{"1:1 T0103", "1:5 T0110"}));
  EXPECT_EQ(found("{a\x01\x02: b, c: !x d, \x03 e: !x f}\n"),
            (Found{"1:3 T0104", "1:13 T0110", "1:19 T0104", "1:24 T0110"}));
  EXPECT_EQ(found("a:\n\tb: !x c\n"), (Found{"2:1 T0105", "2:5 T0110"}));
  EXPECT_EQ(found("{a\xA7\xA7\xA7: !x b}\n"), (Found{"1:3 T0102", "1:5 T0110"}));
}

TEST(Yaml, ReadsLinesThatTabsIndent) {
  EXPECT_EQ(found("boxes:\n\ta:\n\t\tyes:\n\t\t\ttext: b\n\t\tno: !x c\n\td:\n\t\ttext: !x e\n"),
            (Found{"2:1 T0105", "3:1 T0105", "4:1 T0105", "5:1 T0105", "5:7 T0110", "6:1 T0105",
                   "7:1 T0105", "7:9 T0110"}));
}

TEST(Yaml, GuessesHowLinesAreIndentedAmongOthers) {
  const std::string before = "boxes:\n  a:\n    text: b\n";
  EXPECT_EQ(found(before + "\tno: !x c\n  d: ~\n"), (Found{"4:1 T0105", "4:6 T0110", "5:3 T0114"}));
  EXPECT_EQ(found(before + "\td:\n    text: !x c\n"), (Found{"4:1 T0105", "5:11 T0110"}));
  EXPECT_EQ(found("boxes:\n  a:\n  \ttext: b\n    no: !x c\n"), (Found{"3:3 T0105", "4:9 T0110"}));
  EXPECT_EQ(found("\ta: b\nc: !x d\n"), (Found{"1:1 T0105", "2:4 T0110"}));
  EXPECT_EQ(found("boxes:\n  a:\n    text: b\n\t\tgoes on\n    no: !x c\n"),
            (Found{"4:1 T0105", "5:9 T0110"}));
}

TEST(Yaml, SaysNothingOfASyntaxThatATabMayHaveSpoilt) {
  EXPECT_EQ(found("a: !x b\nc:\n    d: e\n\t}\n"), (Found{"1:4 T0110", "4:1 T0105"}));
  EXPECT_EQ(found("a: !x b\nc: \"d\"\re: f\n"), (Found{"1:4 T0110", "2:7 T0104"}));
}

TEST(Yaml, TellsFilesInOtherEncodings) {
  EXPECT_EQ(found(std::string("a\0:\0 \0b\0", 8)), Found{"1:1 T0102"});
  EXPECT_EQ(found(std::string("\0a\0:\0 \0b", 8)), Found{"1:1 T0102"});
  EXPECT_EQ(found("a: b\rc: d\re: f\r"), Found{"1:5 T0104"});
}

TEST(Yaml, RefusesBracketsWithoutEnd) {
  EXPECT_EQ(found("a: " + std::string(500'000, '{')), Found{"1:24 T0106"});
  EXPECT_EQ(found("a: " + std::string(500'000, '[')), Found{"1:24 T0106"});
}

TEST(Yaml, CountsValuesBeforeItReadsThem) {
  EXPECT_EQ(found("[" + std::string(1'000'000, ',')), Found{"1:100001 T0108"});
  std::string text = "a: [";
  for (int i = 0; i < 300'000; ++i) text += "{},";
  EXPECT_EQ(found(text), Found{"1:150004 T0108"});
}

TEST(Yaml, CountsBracketsThatAreOpenAlone) {
  EXPECT_EQ(read("a: \"" + std::string(30, '}') + std::string(20, '{') + "\"\n"),
            "{a=" + std::string(30, '}') + std::string(20, '{') + "}");
}

TEST(Yaml, RefusesNestingWithoutEnd) {
  std::string text;
  for (std::size_t depth = 0; depth < 21; ++depth) text += std::string(depth, ' ') + "a:\n";
  EXPECT_EQ(found(text + std::string(21, ' ') + "b: c\n"), Found{"21:21 T0107"});
  EXPECT_EQ(found(std::string(21 * 2, ' ').replace(0, 42, std::string()) +
                  "- - - - - - - - - - - - - - - - - - - - - x\n"),
            Found{"1:41 T0107"});
}

TEST(Yaml, RefusesMoreThanItCanBeMeant) {
  std::string text;
  for (int i = 0; i < 100'001; ++i) text += "- a\n";
  EXPECT_EQ(found(text), Found{"100000:3 T0108"});
  EXPECT_EQ(found(std::string(2'000'001, '#')), Found{"1:1 T0101"});
}

TEST(Yaml, FindsAColonInAWordOfSeveralLines) {
  EXPECT_EQ(found("a:\n  b: |\n    c\nd e\n    f\n  g:h i\n"), Found{"6:4 T0120"});
}

}  // namespace
}  // namespace tavrel::authoring
