// What a source may say, and what is found where it says something else.

#include "authoring/SourceReader.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/authoring/Found.h"

namespace tavrel::authoring {
namespace {

using Found = std::vector<std::string>;
using Strings = std::vector<std::string>;

const Catalogue catalogue = {"Opening", "RespNT", "Stayman"};

ChartSource sourceOf(const std::string& text) {
  Diagnostics found;
  const auto source = readSource(SourceFile("Opening.yaml", text), catalogue, found);
  EXPECT_EQ(placesOf(found), Found{}) << text;
  return source.value_or(ChartSource());
}

Found found(const std::string& text) {
  Diagnostics found;
  const auto source = readSource(SourceFile("Opening.yaml", text), catalogue, found);
  EXPECT_EQ(source.has_value(), !found.hasErrors());
  return placesOf(found);
}

// A chart with these lines for its one box, the first of them line 5, indented by four.
std::string withBox(const std::string& lines) {
  return "chart: Opening\nstart: a\nboxes:\n  a:\n" + lines;
}

TEST(SourceReader, ReadsAChart) {
  const ChartSource chart = sourceOf(
      "chart: Opening  # a comment\n"
      "intro: |\n"
      "  When to use it.\n"
      "start: strong\n"
      "boxes:\n"
      "  strong:\n"
      "    text: 22+ HCP, or 9+ playing tricks?\n"
      "    comment: With hearts, !h.\n"
      "    yes: open\n"
      "    no: {text: \"Open 1NT\", chart: RespNT}\n"
      "  open: {text: \"Open 2!c\", comment: \"Forcing.\"}\n");
  EXPECT_EQ(chart.chart, "Opening");
  EXPECT_EQ(chart.intro.lines, Strings{"When to use it."});
  EXPECT_FALSE(chart.isEntry);
  EXPECT_EQ(chart.start, 0);
  ASSERT_EQ(chart.boxes.size(), 3U);
  EXPECT_EQ(chart[0].id, "strong");
  EXPECT_EQ(chart[0].text.lines, (Strings{"22+ HCP, or 9+", "playing tricks?"}));
  EXPECT_EQ(chart[0].comment.lines, Strings{"With hearts, ♥."});
  EXPECT_EQ(chart[0].exits.yes, 2);
  EXPECT_EQ(chart[0].exits.no, 1);
  EXPECT_EQ(chart[1].id, "");
  EXPECT_EQ(chart[1].text.lines, Strings{"Open 1NT"});
  ASSERT_TRUE(chart[1].link.has_value());
  EXPECT_EQ(chart[1].link->chart, "RespNT");
  EXPECT_EQ(chart[2].text.lines, Strings{"Open 2♣"});
  EXPECT_EQ(chart.nameOf(0), "strong");
  EXPECT_EQ(chart.nameOf(1), "\"Open 1NT\"");
}

TEST(SourceReader, NamesABoxWithoutAnIdByAllItsLines) {
  const ChartSource chart =
      sourceOf(withBox("    text: x\n    yes:\n      text: |\n        one\n        two\n"));
  EXPECT_EQ(chart.nameOf(1), "\"one two\"");
}

TEST(SourceReader, KnowsEntriesTurnsAndWidths) {
  const ChartSource chart = sourceOf(
      "chart: Opening\nentry: true\nturn: down\nwidth: 10\nstart: a\nboxes:\n"
      "  a:\n    text: twelve or more?\n    yes: {id: b, text: \"one two three\", turn: right}\n");
  EXPECT_TRUE(chart.isEntry);
  EXPECT_FALSE(sourceOf(withBox("    text: x\n") + "entry: false\n").isEntry);
  EXPECT_EQ(chart[0].turn, Turn::down);
  EXPECT_EQ(chart[0].text.lines, (Strings{"twelve", "or more?"}));
  EXPECT_EQ(chart[1].turn, Turn::right);
  EXPECT_FALSE(chart.graph()[0].isTurnFixed);  // the turn of the chart
  EXPECT_TRUE(chart.graph()[1].isTurnFixed);   // its own
  EXPECT_EQ(chart[1].id, "b");
}

TEST(SourceReader, FindsSettingsWhereverTheyStand) {
  const ChartSource chart =
      sourceOf("boxes:\n  a:\n    text: one two\nstart: a\nwidth: 8\nchart: Opening\n");
  EXPECT_EQ(chart[0].text.lines, Strings{"one two"});
}

TEST(SourceReader, ReadsTheLineEndsOfWindows) {
  const ChartSource chart = sourceOf(
      "chart: Opening\r\nintro: |\r\n  When to\r\n\r\n  use it.\r\nstart: a\r\nboxes:\r\n"
      "  a:\r\n    text: |\r\n      one\r\n      two\r\n    comment: \"a\r\n      b\"\r\n");
  EXPECT_EQ(chart.intro.lines, (Strings{"When to", "", "use it."}));
  EXPECT_EQ(chart[0].text.lines, (Strings{"one", "two"}));
  EXPECT_EQ(chart[0].comment.lines, Strings{"a b"});
  EXPECT_EQ(found("chart: Opening\r\nstart: a\r\nboxes:\r\n  a:\r\n    txt: x #1\r\n"),
            Found{"5:5 T0202"});
}

TEST(SourceReader, WantsAChartAStartAndBoxes) {
  EXPECT_EQ(found(""), Found{"1:1 T0201"});
  EXPECT_EQ(found("- a\n"), Found{"1:1 T0201"});
  EXPECT_EQ(found("start: a\nboxes:\n  a: {text: \"x\"}\n"), Found{"1:1 T0203"});
  EXPECT_EQ(found("chart: Opening\nboxes:\n  a: {text: \"x\"}\n"), Found{"1:1 T0203"});
  EXPECT_EQ(found("chart: Opening\nstart: a\n"), Found{"1:1 T0203"});
}

TEST(SourceReader, NamesAllThatIsMissingBesideOtherErrors) {
  EXPECT_EQ(found("intro: x\n"), (Found{"1:1 T0203", "1:1 T0203", "1:1 T0203"}));
  EXPECT_EQ(found("{}\n"), (Found{"1:1 T0203", "1:1 T0203", "1:1 T0203"}));
  EXPECT_EQ(found("intro: x\nfoo: y\nboxes:\n  a: {text: \"x\", yes: \"q\"}\n"),
            (Found{"1:1 T0203", "1:1 T0203", "2:1 T0202", "4:23 T0207"}));
}

// What was written, but can't be read, isn't missing, nor is what it would have brought.
TEST(SourceReader, MissesNothingThatHasAnErrorOfItsOwn) {
  EXPECT_EQ(found("chart: ~\nstart: a\nboxes:\n"), (Found{"1:1 T0114", "3:1 T0114"}));
  EXPECT_EQ(found("Chart: Opening\nstart: a\nboxe: {a: {text: \"x\"}}\n"),
            (Found{"1:1 T0202", "3:1 T0202"}));
  EXPECT_EQ(found("&k chart: Opening\nstart: a\nboxes:\n  a: {text: \"x\"}\n"), Found{"1:1 T0111"});
  EXPECT_EQ(found("~: Opening\nstart: a\nboxes:\n  a: {text: \"x\"}\n"), Found{"1:1 T0114"});
  EXPECT_EQ(found("ch\u200Bart: Opening\nstart: a\nboxes:\n  a: {text: \"x\"}\n"),
            Found{"1:3 T0125"});
  EXPECT_EQ(found(withBox("    &k text: x\n")), Found{"5:5 T0111"});
  EXPECT_EQ(found(withBox("    <<: {text: \"x\"}\n")), Found{"5:5 T0113"});
}

TEST(SourceReader, MissesNoIdThatABoxWithAnErrorMayHave) {
  const std::string lead = "    text: x\n    yes: b\n";
  EXPECT_EQ(found(withBox(lead + "  b:\n")), Found{"7:3 T0114"});
  EXPECT_EQ(found(withBox(lead + "  &k b: {text: \"y\"}\n")), Found{"7:3 T0111"});
  EXPECT_EQ(found(withBox(lead + "  b_: {text: \"y\"}\n")), Found{"7:3 T0205"});
  EXPECT_EQ(found(withBox(lead + "  b\u200B: {text: \"y\"}\n")), Found{"7:4 T0125"});
  EXPECT_EQ(found(withBox(lead + "    nope: {id: b, text: \"y\"}\n")), Found{"7:5 T0202"});
  EXPECT_EQ(found(withBox(lead + "    no: {text: \"y\"}\n    no: {id: b, text: \"y\"}\n")),
            Found{"8:5 T0116"});
  EXPECT_EQ(found(withBox(lead + "    no: [{id: b, text: \"y\"}]\n")), Found{"7:9 T0204"});
  EXPECT_EQ(found(withBox(lead) + "start: c\n"), (Found{"6:10 T0207", "7:1 T0116"}));
}

TEST(SourceReader, ReadsWhatStandsBehindATagOrAnAnchor) {
  EXPECT_EQ(found(withBox("    text: x\n    yes: &k {id: b, text: y}\n    no: b\n")),
            (Found{"6:10 T0111", "6:27 T0118"}));
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes: !!map\n  a: {text: x}\n"),
            (Found{"3:8 T0110", "4:13 T0118"}));
}

// What stands before it and is sure to have been meant so.
TEST(SourceReader, KeepsTheErrorsBeforeOneOfSyntax) {
  EXPECT_EQ(found(withBox("    text: x\n    foo: y\n    yes: q\n  b: [\n  c: {bar: y}\n")),
            (Found{"6:5 T0202", "8:6 T0124"}));
  EXPECT_EQ(found("Chart: Opening\nstart: a\nboxes:\n  a:\n    text: x\n   no: b\n"),
            (Found{"1:1 T0202", "6:4 T0122"}));
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a: {text: x}\n  b: {text: \"y\"\n"),
            (Found{"4:13 T0118", "5:6 T0124"}));
  EXPECT_EQ(found("chart: Nope\nstart: a\nboxes:\n  a:\n    text: \"y\n"),
            (Found{"1:8 T0208", "5:11 T0119"}));
  EXPECT_EQ(found(withBox("    comment: x\n    text\n    foo: x\n")), Found{"6:9 T0121"});
  EXPECT_EQ(found("- a\n}\n"), Found{"1:1 T0204"});
}

TEST(SourceReader, NamesUnknownKeys) {
  EXPECT_EQ(found(withBox("    text: x\n") + "color: red\n"), Found{"6:1 T0202"});
  EXPECT_EQ(found(withBox("    text: x\n    maybe: b\n")), Found{"6:5 T0202"});
  EXPECT_EQ(found(withBox("    text: x\n    id: b\n")), Found{"6:5 T0202"});
}

TEST(SourceReader, NamesValuesOfTheWrongType) {
  EXPECT_EQ(found(withBox("    text: {a: b}\n")), Found{"5:11 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n    comment: [a]\n")), Found{"6:14 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n    yes: [a]\n")), Found{"6:10 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n    turn: left\n")), Found{"6:11 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n") + "entry: yes\n"), Found{"6:8 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n") + "entry: [true]\n"), Found{"6:8 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n    chart: [RespNT]\n")), Found{"6:12 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n    yes: {id: [b], text: \"y\"}\n")), Found{"6:15 T0204"});
  EXPECT_EQ(found("chart: Opening\nstart: [a]\nboxes:\n  a: {text: \"x\"}\n"), Found{"2:8 T0204"});
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes: [a]\n"), Found{"3:8 T0204"});
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a: x\n"), Found{"4:6 T0204"});
}

TEST(SourceReader, TakesWidthsFromEightToEighty) {
  for (const char* width : {"8", "80", "0x20", "0o30", "+24", "24.0", "2.4e1"}) {
    EXPECT_EQ(found(withBox("    text: x\n") + "width: " + width + "\n"), Found{});
  }
  for (const char* width :
       {"7", "81", "-8", "9999999999", "x", "8.5", "\"\"", "1e400", "0x7", "0xFFFFFFFFF", ".inf"}) {
    EXPECT_EQ(found(withBox("    text: x\n") + "width: " + width + "\n"), Found{"6:8 T0204"});
  }
}

TEST(SourceReader, WantsIdsOfLettersDigitsAndHyphens) {
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a: {text: \"x\"}\n  b c: {text: \"x\"}\n"),
            Found{"5:3 T0205"});
  EXPECT_EQ(found(withBox("    text: x\n    yes: {id: \"é\", text: \"y\"}\n")),
            Found{"6:15 T0205"});
  for (const char* id : {"", "a_b", "a~", "a{", "[", "/"}) {
    EXPECT_EQ(
        found(withBox(std::string("    text: x\n    yes: {id: \"") + id + "\", text: \"y\"}\n")),
        Found{"6:15 T0205"})
        << id;
  }
  EXPECT_EQ(found(withBox("    text: x\n    yes: {id: aZ-zA09, text: \"y\"}\n")), Found{});
}

TEST(SourceReader, WantsIdsThatAreNotEmptyWhereverTheyStand) {
  EXPECT_EQ(found("chart: Opening\nstart: \"\"\nboxes:\n  \"\": {text: \"x\"}\n"),
            (Found{"2:8 T0205", "4:3 T0205"}));
  EXPECT_EQ(found(withBox("    text: x\n    yes: \"\"\n  \"\": {text: \"y\"}\n")),
            (Found{"6:10 T0205", "7:3 T0205"}));
}

// As a reader of YAML 1.2 in an editor has them.
TEST(SourceReader, WantsTextsThatAreNoNumbersAndNeitherTrueNorFalse) {
  for (const char* other : {"12", "-3", "+4", "1.5", ".5", "2.", "1e3", "0x1F", "0o17", "007",
                            "true", "False", "TRUE", ".inf", "-.INF", ".NaN"}) {
    const std::string value = std::string(other) + "\n";
    EXPECT_EQ(found(withBox("    text: " + value)), Found{"5:11 T0204"}) << value;
    EXPECT_EQ(found(withBox("    text: \"" + std::string(other) + "\"\n")), Found{}) << value;
  }
  for (const char* text : {"1NT", "15-17", "1.2.3", "0x", "0o8", "e3", "1e", ".", "+", "-.nan",
                           "12:30", "1_000", "yes", "tRUE", "12 HCP"}) {
    EXPECT_EQ(found(withBox(std::string("    text: ") + text + "\n")), Found{}) << text;
  }
  EXPECT_EQ(found("chart: 1\nintro: 2\nstart: 3\nboxes:\n  a:\n    text: x\n    comment: 4\n"
                  "    yes: 5\n    no: {id: 6, text: \"y\", chart: 7}\n"),
            (Found{"1:8 T0204", "2:8 T0204", "3:8 T0204", "7:14 T0204", "8:10 T0204", "9:14 T0204",
                   "9:35 T0204"}));
}

TEST(SourceReader, WantsNoQuotesRoundNumbersAndTruth) {
  EXPECT_EQ(found(withBox("    text: x\n") + "entry: \"true\"\n"), Found{"6:8 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n") + "entry: 'false'\n"), Found{"6:8 T0204"});
  EXPECT_EQ(found(withBox("    text: x\n") + "width: \"24\"\n"), Found{"6:8 T0204"});
  EXPECT_TRUE(sourceOf(withBox("    text: x\n") + "entry: True\n").isEntry);
}

TEST(SourceReader, ShowsLongWordsInShort) {
  const std::string word(100, 'z'), shown = std::string(40, 'z') + "…";
  const SourceFile file("Opening.yaml",
                        withBox("    text: x\n    " + word + ": y\n    yes: " + word + "\n"));
  Diagnostics found;
  readSource(file, catalogue, found);
  ASSERT_EQ(found.sorted().size(), 2U);
  EXPECT_EQ(found.sorted()[0].text, "a box has no " + shown);
  EXPECT_EQ(found.sorted()[1].text, "no box has the id " + shown);
}

TEST(SourceReader, NamesIdsThatStandTwice) {
  EXPECT_EQ(found(withBox("    text: x\n    yes: {id: a, text: \"y\"}\n")), Found{"6:15 T0206"});
}

TEST(SourceReader, NamesIdsThatNoBoxHas) {
  EXPECT_EQ(found(withBox("    text: x\n    no: nowhere\n")), Found{"6:9 T0207"});
  EXPECT_EQ(found("chart: Opening\nstart: b\nboxes:\n  a: {text: \"x\"}\n"), Found{"2:8 T0207"});
}

TEST(SourceReader, NamesChartsThatTheCatalogueHasNot) {
  EXPECT_EQ(found("chart: opening\nstart: a\nboxes:\n  a: {text: \"x\"}\n"), Found{"1:8 T0208"});
}

// The check warns of them, and a file can hold them.
TEST(SourceReader, TakesLinksToChartsThatTheCatalogueHasNot) {
  const ChartSource chart = sourceOf(withBox("    text: x\n    chart: Openings\n"));
  EXPECT_EQ(chart[0].link->chart, "Openings");
  for (const char* name : {"\"\"", "\"Open\\nings\"", "\"Open\\tings\"", "|\n      Opening"}) {
    EXPECT_EQ(found(withBox(std::string("    text: x\n    chart: ") + name + "\n")),
              Found{"6:12 T0208"})
        << name;
  }
}

TEST(SourceReader, WantsATextInEveryBox) {
  EXPECT_EQ(found(withBox("    comment: x\n")), Found{"4:3 T0203"});
  EXPECT_EQ(found(withBox("    text: \"\"\n")), Found{"5:11 T0210"});
  EXPECT_EQ(found(withBox("    text: \" \"\n")), Found{"5:11 T0210"});
}

TEST(SourceReader, WantsTextsInBracesQuoted) {
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a: {text: x}\n"), Found{"4:13 T0118"});
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a: {text: 'x'}\n"), Found{"4:13 T0118"});
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a: {text: \"x\", comment: y}\n"),
            Found{"4:27 T0118"});
}

TEST(SourceReader, DropsNoPartOfATextForAComment) {
  EXPECT_EQ(found(withBox("    text: 5+ HCP #1 suit?\n")), Found{"5:18 T0117"});
  EXPECT_EQ(found(withBox("    text: \"5+ HCP #1 suit?\"  # a comment\n")), Found{});
  EXPECT_EQ(found(withBox("    text: 5+ HCP#1 suit?\n")), Found{});
}

// No text of a flowchart file may hold them.
TEST(SourceReader, TakesNoControlCharactersFromEscapes) {
  for (const char* escape :
       {"\\r", "\\t", "\\0", "\\e", "\\x7f", "\\N", "\\_", "\\x9b", "\\ufeff"}) {
    const std::string text = std::string("\"Pass") + escape + "\"\n";
    EXPECT_EQ(found(withBox("    text: " + text)), Found{"5:11 T0104"}) << text;
    EXPECT_EQ(found(withBox("    text: Pass\n    comment: " + text)), Found{"6:14 T0104"}) << text;
    EXPECT_EQ(found("intro: " + text + withBox("    text: Pass\n")), Found{"1:8 T0104"}) << text;
  }
  EXPECT_EQ(found(withBox("    text: \"Pa\\nss\\u00e9\"\n")), Found{});
}

TEST(SourceReader, SaysEverythingThatIsWrongAtOnce) {
  EXPECT_EQ(found("chart: Nope\nstart: b\ncolor: red\nboxes:\n  a:\n    text: !c x\n    yes: c\n"),
            (Found{"1:8 T0208", "2:8 T0207", "3:1 T0202", "6:11 T0110", "7:10 T0207"}));
}

}  // namespace
}  // namespace tavrel::authoring
