// What a source may say about hands, and what is found where it says something else.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "authoring/Compiler.h"
#include "authoring/SourceReader.h"
#include "tests/authoring/Found.h"

namespace tavrel::authoring {
namespace {

using Strings = std::vector<std::string>;

const Catalogue catalogue = {"Opening", "RespNT", "Stayman"};

ChartSource sourceOf(const std::string& text) {
  Diagnostics found;
  const auto source = readSource(SourceFile("Opening.yaml", text), catalogue, found);
  EXPECT_EQ(placesOf(found), Strings{}) << text;
  return source.value_or(ChartSource());
}

Strings found(const std::string& text) {
  Diagnostics found;
  readSource(SourceFile("Opening.yaml", text), catalogue, found);
  return placesOf(found);
}

// The messages and cures, a line each.
Strings said(const std::string& text) {
  Diagnostics found;
  readSource(SourceFile("Opening.yaml", text), catalogue, found);
  Strings lines;
  for (const Diagnostic& each : found.sorted()) lines.push_back(each.text + ": " + each.cure);
  return lines;
}

// A chart with one question, to whose keys these lines are added, the first of them line 8.
std::string withQuestion(const std::string& lines) {
  return "chart: Opening\nstart: a\nboxes:\n  a:\n    text: Five?\n    yes: {text: \"Bid\"}\n"
         "    no: {text: \"Pass\"}\n" +
         lines;
}

// The same with one end, line 6.
std::string withEnd(const std::string& lines) {
  return "chart: Opening\nstart: a\nboxes:\n  a:\n    text: Bid\n" + lines;
}

// A chart that begins with these lines.
std::string withSettings(const std::string& lines) {
  return lines + "chart: Opening\nstart: a\nboxes:\n  a:\n    text: Bid\n";
}

std::string textOf(const std::optional<SourceExpression>& expression) {
  return expression ? expression->text : "none";
}

// --- what is read ---------------------------------------------------------------

TEST(HandKeys, SayWhenAChartApplies) {
  const ChartSource chart =
      sourceOf(withSettings("applies:\n  auction: \"(1C|1D) P\"  # dealer first\n  hand: hcp >= 6 "
                            "|| length(S) >= 5 #\n"));
  EXPECT_TRUE(chart.hasApplies);
  EXPECT_EQ(chart.appliesPlace, (Place{1, 1}));
  ASSERT_EQ(chart.auctions.size(), 1U);
  EXPECT_EQ(chart.auctions[0].text, "(1C|1D) P");
  EXPECT_EQ(chart.auctions[0].place, (Place{2, 12}));
  EXPECT_EQ(textOf(chart.hand), "hcp >= 6 || length(S) >= 5");
  EXPECT_EQ(chart.hand->place, (Place{3, 9}));
}

TEST(HandKeys, SayOfSeveralAuctions) {
  const std::string list = "applies:\n  auction:\n    - (1C|1D) P\n    - \"\"\n    - 1NT\n";
  const ChartSource chart = sourceOf(withSettings(list));
  ASSERT_EQ(chart.auctions.size(), 3U);
  EXPECT_EQ(chart.auctions[0].text, "(1C|1D) P");
  EXPECT_EQ(chart.auctions[1].text, "");
  EXPECT_EQ(chart.auctions[2].place, (Place{5, 7}));
  EXPECT_EQ(textOf(chart.hand), "none");
  EXPECT_EQ(sourceOf(withSettings("applies: {auction: [\"1C\", \"1D\"]}\n")).auctions.size(), 2U);
}

TEST(HandKeys, SayNothingWhereTheyAreLeftOut) {
  const ChartSource chart = sourceOf(withQuestion(""));
  EXPECT_FALSE(chart.hasApplies);
  EXPECT_FALSE(chart.saysOfHands());
  EXPECT_FALSE(chart[0].when || chart[0].asksJudgement || chart[0].never.yes);
  EXPECT_TRUE(chart[1].calls.empty());
  EXPECT_FALSE(chart[1].shows || chart[1].forcing || chart[1].next);
  EXPECT_TRUE(chart[0].hasSureHands);
}

TEST(HandKeys, SayWhatAnswersAQuestion) {
  const ChartSource chart = sourceOf(withQuestion(
      "    when: length(H) >= 5\n    never: {no: \"Hands without !h pass.\", yes: \"None.\"}\n"));
  EXPECT_EQ(textOf(chart[0].when), "length(H) >= 5");
  EXPECT_EQ(chart[0].when->place, (Place{8, 11}));
  EXPECT_EQ(textOf(chart[0].never.no), "Hands without ♥ pass.");
  EXPECT_EQ(textOf(chart[0].never.yes), "None.");
  EXPECT_TRUE(chart.saysOfHands());
  EXPECT_TRUE(sourceOf(withQuestion("    asks: judgement\n"))[0].asksJudgement);
  EXPECT_TRUE(sourceOf(withQuestion("    asks: judgement\n")).saysOfHands());
}

TEST(HandKeys, SayWhatAnEndCallsAndPromises) {
  const ChartSource chart = sourceOf(withEnd(
      "    call: 2NT\n    shows: hcp >= 20 && balanced\n    forcing: no\n    chart: RespNT\n"
      "    next: partner\n"));
  ASSERT_EQ(chart[0].calls.size(), 1U);
  EXPECT_EQ(chart[0].calls[0].call.text, "2NT");
  EXPECT_EQ(chart[0].calls[0].call.place, (Place{6, 11}));
  EXPECT_FALSE(chart[0].calls[0].when);
  EXPECT_EQ(textOf(chart[0].shows), "hcp >= 20 && balanced");
  EXPECT_EQ(chart[0].forcing, Forcing::no);
  EXPECT_EQ(chart[0].next, Next::partner);
  EXPECT_TRUE(chart.saysOfHands());
}

TEST(HandKeys, TakeWordsBetweenBracesWithQuotesOrWithout) {
  for (const char* box : {"{text: \"Bid\", call: X, forcing: no, chart: RespNT, next: self}",
                          "{text: \"Bid\", call: \"X\", forcing: \"no\", chart: RespNT, "
                          "next: \"self\"}"}) {
    const ChartSource chart =
        sourceOf(std::string("chart: Opening\nstart: a\nboxes:\n  a: ") + box + "\n");
    EXPECT_EQ(chart[0].calls.at(0).call.text, "X");
    EXPECT_EQ(chart[0].forcing, Forcing::no);
    EXPECT_EQ(chart[0].next, Next::self);
  }
  EXPECT_EQ(sourceOf(withEnd("    forcing: round\n"))[0].forcing, Forcing::round);
  EXPECT_EQ(sourceOf(withEnd("    forcing: game\n"))[0].forcing, Forcing::game);
}

TEST(HandKeys, SayOfSeveralCallsWhichIsMade) {
  const ChartSource chart = sourceOf(withEnd(
      "    call:\n      - {when: \"length(S) >= 5\", call: 2S}\n      - when: length(H) >= 5\n"
      "        call: \"2H\"\n      - {call: P}\n"));
  ASSERT_EQ(chart[0].calls.size(), 3U);
  EXPECT_EQ(textOf(chart[0].calls[0].when), "length(S) >= 5");
  EXPECT_EQ(chart[0].calls[0].when->place, (Place{7, 16}));
  EXPECT_EQ(textOf(chart[0].calls[1].when), "length(H) >= 5");
  EXPECT_EQ(chart[0].calls[1].call.text, "2H");
  EXPECT_FALSE(chart[0].calls[2].when);
  EXPECT_EQ(chart[0].calls[2].call.place, (Place{10, 16}));
}

TEST(HandKeys, TakeTheLastCallWithAConditionToo) {
  const std::string list =
      "    call: [{when: \"hcp > 1\", call: 2S}, {call: P, when: \"1 > 0\"}]\n";
  EXPECT_EQ(textOf(sourceOf(withEnd(list))[0].calls.at(1).when), "1 > 0");
}

TEST(HandKeys, JoinTheLinesOfAnExpression) {
  EXPECT_EQ(
      textOf(sourceOf(withQuestion("    when: |\n      hcp >= 5\n      && balanced\n"))[0].when),
      "hcp >= 5 && balanced");
  EXPECT_EQ(textOf(sourceOf(withQuestion("    when: hcp >= 5\n      && balanced\n"))[0].when),
            "hcp >= 5 && balanced");
}

TEST(HandKeys, AreThoseOfInlineBoxesToo) {
  const ChartSource chart = sourceOf(withEnd(
      "    yes: {text: \"Six?\", when: \"length(S) > 5\", yes: {text: \"2!s\", call: 2S}}\n"));
  EXPECT_EQ(textOf(chart[1].when), "length(S) > 5");
  EXPECT_EQ(chart[2].calls.at(0).call.text, "2S");
}

TEST(HandKeys, ChangeNothingInTheFile) {
  const std::string plain =
      "chart: Opening\nstart: a\nboxes:\n  a:\n    text: Five?\n    yes: {text: \"Bid\"}\n"
      "    no: {text: \"2NT\", chart: RespNT}\n";
  const std::string full =
      "chart: Opening\napplies: {auction: [\"P\", \"\"], hand: \"hcp > 3\"}\nstart: a\nboxes:\n"
      "  a:\n    text: Five?\n    when: length(S) >= 5\n    never: {yes: \"No.\"}\n"
      "    yes: {text: \"Bid\", call: [{when: \"hcp > 1\", call: 2S}, {call: P}], shows: \"hcp > "
      "1\"}\n"
      "    no: {text: \"2NT\", call: 2NT, forcing: no, chart: RespNT, next: partner}\n";
  Diagnostics found;
  const auto before = compile(SourceFile("Opening.yaml", plain), catalogue, found);
  const auto after = compile(SourceFile("Opening.yaml", full), catalogue, found);
  ASSERT_TRUE(before && after);
  EXPECT_EQ(before->bytes, after->bytes);
}

// --- values of the wrong type ---------------------------------------------------

TEST(HandKeys, WantTextsForExpressions) {
  EXPECT_EQ(found(withQuestion("    when: [hcp]\n")), Strings{"8:11 T0204"});
  EXPECT_EQ(found(withQuestion("    when: {hcp: \"x\"}\n")), Strings{"8:11 T0204"});
  EXPECT_EQ(found(withQuestion("    when: true\n")), Strings{"8:11 T0204"});
  EXPECT_EQ(found(withQuestion("    when: 12\n")), Strings{"8:11 T0204"});
  EXPECT_EQ(found(withEnd("    shows: [hcp]\n")), Strings{"6:12 T0204"});
  EXPECT_EQ(found(withSettings("applies:\n  hand: [hcp]\n")), Strings{"2:9 T0204"});
}

TEST(HandKeys, WantDoubleQuotesBetweenBraces) {
  EXPECT_EQ(found(withSettings("applies: {auction: 1C P, hand: 'hcp > 1'}\n")),
            (Strings{"1:20 T0118", "1:32 T0118"}));
  EXPECT_EQ(found(withSettings("applies: {auction: [1C, \"1D\"]}\n")), Strings{"1:21 T0118"});
  EXPECT_EQ(found(withEnd("    yes: {text: \"x\", when: balanced, yes: a}\n")),
            Strings{"6:28 T0118"});
  EXPECT_EQ(found(withEnd("    call: [{when: hcp > 1, call: 2S}]\n")), Strings{"6:19 T0118"});
  EXPECT_EQ(found(withQuestion("    never: {no: Because}\n")), Strings{"8:17 T0118"});
}

TEST(HandKeys, WantAMapOfWhatAChartAppliesTo) {
  EXPECT_EQ(found(withSettings("applies: 1NT P\n")), Strings{"1:10 T0204"});
  EXPECT_EQ(found(withSettings("applies: {}\n")), Strings{"1:10 T0204"});
  EXPECT_EQ(found(withSettings("applies:\n  auction: {P: \"x\"}\n")), Strings{"2:12 T0204"});
  EXPECT_EQ(found(withSettings("applies:\n  auction: []\n")), Strings{"2:12 T0204"});
  EXPECT_EQ(found(withSettings("applies:\n  auction: [[\"P\"]]\n")), Strings{"2:13 T0204"});
}

TEST(HandKeys, WantWordsThatThereAre) {
  EXPECT_EQ(said(withQuestion("    asks: judgment\n")),
            Strings{"asks is judgement, and nothing else: did you mean judgement?"});
  EXPECT_EQ(found(withQuestion("    asks: judgment\n")), Strings{"8:11 T0204"});
  EXPECT_EQ(said(withEnd("    forcing: yes\n")),
            Strings{"forcing is no, round or game, and nothing else: it says whether partner may "
                    "pass"});
  EXPECT_EQ(found(withEnd("    forcing: [no]\n")), Strings{"6:14 T0204"});
  EXPECT_EQ(found(withEnd("    chart: RespNT\n    next: left\n")), Strings{"7:11 T0204"});
}

TEST(HandKeys, WantACallOrAListOfThem) {
  EXPECT_EQ(found(withEnd("    call: {call: 2H}\n")), Strings{"6:11 T0204"});
  EXPECT_EQ(found(withEnd("    call: 2\n")), Strings{"6:11 T0204"});
  EXPECT_EQ(found(withEnd("    call: []\n")), Strings{"6:11 T0204"});
  EXPECT_EQ(found(withEnd("    call: [2H, {call: 2S}]\n")), Strings{"6:12 T0204"});
  EXPECT_EQ(found(withEnd("    call: [{call: [2S]}]\n")), Strings{"6:19 T0204"});
  EXPECT_EQ(found(withEnd("    call: \"2\\x00\"\n")), Strings{"6:11 T0104"});
}

TEST(HandKeys, WantAMapOfReasons) {
  EXPECT_EQ(said(withQuestion("    never: no\n")),
            Strings{"never is a text, and has to be a map of answers and reasons: write it as "
                    "{no: \"…\"}, with the reason why no hand says so"});
  EXPECT_EQ(found(withQuestion("    never: {}\n")), Strings{"8:12 T0204"});
  EXPECT_EQ(found(withQuestion("    never: {no: [\"a\"]}\n")), Strings{"8:17 T0204"});
}

TEST(HandKeys, NameUnknownKeysWithinThem) {
  EXPECT_EQ(said(withSettings("applies: {auctoin: \"P\"}\n")),
            Strings{"applies has no auctoin: did you mean auction? It may have auction, hand"});
  EXPECT_EQ(said(withEnd("    call: [{if: \"hcp > 1\", call: 2S}]\n")),
            Strings{"an entry of call has no if: it may have when, call"});
  EXPECT_EQ(said(withQuestion("    never: {No: \"x\"}\n")),
            Strings{"never has no No: did you mean no? It may have yes, no"});
  EXPECT_EQ(found(withQuestion("    whne: balanced\n")), Strings{"8:5 T0202"});
  EXPECT_EQ(found(withSettings("aplies: {auction: \"P\"}\n")), Strings{"1:1 T0202"});
}

// --- what is empty --------------------------------------------------------------

TEST(HandKeys, HaveNoEmptyTexts) {
  EXPECT_EQ(found(withQuestion("    when: \"\"\n")), Strings{"8:11 T0801"});
  EXPECT_EQ(found(withQuestion("    when: |\n      \n")), Strings{"8:11 T0801"});
  EXPECT_EQ(found(withEnd("    shows: \" \"\n")), Strings{"6:12 T0801"});
  EXPECT_EQ(found(withEnd("    call: \"\"\n")), Strings{"6:11 T0801"});
  EXPECT_EQ(found(withSettings("applies: {hand: \"\"}\n")), Strings{"1:17 T0801"});
  EXPECT_EQ(found(withQuestion("    never: {no: \"\"}\n")), Strings{"8:17 T0801"});
  EXPECT_EQ(found(withQuestion("    when:\n")), Strings{"8:5 T0114"});
}

// --- what doesn't go together ---------------------------------------------------

TEST(HandKeys, OfQuestionsDoNotStandAtEnds) {
  EXPECT_EQ(found(withEnd("    when: balanced\n    never: {no: \"x\"}\n")),
            (Strings{"6:5 T0802", "7:5 T0802"}));
  EXPECT_EQ(found(withEnd("    asks: judgement\n")), Strings{"6:5 T0802"});
}

TEST(HandKeys, OfEndsDoNotStandAtQuestions) {
  EXPECT_EQ(
      found(withQuestion("    call: P\n    shows: balanced\n    forcing: no\n    next: self\n")),
      (Strings{"8:5 T0803", "9:5 T0803", "10:5 T0803", "11:5 T0803"}));
}

// An answer that can't be read may be an exit all the same.
TEST(HandKeys, AreNotSaidToStandAtEndsWhereAnExitHasAnError) {
  EXPECT_EQ(found(withEnd("    when: balanced\n    yes: ~\n")), Strings{"7:5 T0114"});
  EXPECT_EQ(found(withEnd("    when: balanced\n    yess: a\n")), Strings{"7:5 T0202"});
  EXPECT_EQ(found("chart: Opening\nstart: a\nboxes:\n  a:\n    when: balanced\n    text: |\n"
                  "      Five?\n      yes: a\n"),
            Strings{"8:7 T0122"});
}

TEST(HandKeys, LetAConditionAnswerOrAPerson) {
  EXPECT_EQ(found(withQuestion("    asks: judgement\n    when: balanced\n")), Strings{"8:5 T0804"});
}

TEST(HandKeys, ExcuseNoAnswerThatCannotBeGiven) {
  EXPECT_EQ(found(withEnd("    yes: a\n    never: {no: \"x\", yes: \"y\"}\n")),
            Strings{"7:13 T0805"});
}

TEST(HandKeys, SayWhoseHandGoesOnInAChartOnly) {
  EXPECT_EQ(found(withEnd("    next: partner\n")), Strings{"6:5 T0806"});
  EXPECT_EQ(found(withEnd("    next: partner\n    chrt: RespNT\n")), Strings{"7:5 T0202"});
}

TEST(HandKeys, WantACallInEachEntryAndAConditionInAllButTheLast) {
  EXPECT_EQ(found(withEnd("    call: [{call: 2S}, {call: P}]\n")), Strings{"6:12 T0807"});
  EXPECT_EQ(found(withEnd("    call: [{when: \"hcp > 1\"}]\n")), Strings{"6:12 T0203"});
  EXPECT_EQ(found(withEnd("    call: [{wen: \"hcp > 1\", call: 2S}, {call: P}]\n")),
            Strings{"6:13 T0202"});
  EXPECT_EQ(found(withEnd("    call: [{when: ~, call: 2S}, {call: ~}]\n")),
            (Strings{"6:13 T0114", "6:34 T0114"}));
  EXPECT_EQ(found(withEnd("    call: [~]\n")), Strings{"6:12 T0114"});
}

// --- slips ----------------------------------------------------------------------

TEST(HandKeys, AreNoticedWhereATextSwallowsThem) {
  const std::string box = "chart: Opening\nstart: a\nboxes:\n  a:\n    text: |\n      Bid\n";
  EXPECT_EQ(found(box + "      call: 2H\n"), Strings{"7:7 T0122"});
  EXPECT_EQ(found(box + "      when: hcp > 5\n"), Strings{"7:7 T0122"});
  EXPECT_EQ(found(box + "      forcing: round\n"), Strings{"7:7 T0122"});
  EXPECT_EQ(found(box + "      asks: judgement\n"), Strings{"7:7 T0122"});
  EXPECT_EQ(found(box + "      never: {no: \"x\"}\n"), Strings{"7:7 T0122"});
  EXPECT_EQ(found(box + "      next: self\n"), Strings{"7:7 T0122"});
  EXPECT_EQ(found(box + "      call: the opponents to mind\n      next: think of partner\n"
                        "      when: in doubt\n      shows: spades\n      never: say so\n"),
            Strings{});
  EXPECT_EQ(found("chart: Opening\nintro: |\n  Open.\n  applies:\n    auction: P\nstart: a\n"
                  "boxes:\n  a: {text: \"x\"}\n"),
            Strings{"4:3 T0122"});
}

// The reader of YAML can't go on, and what stopped it is looked for line by line.
TEST(HandKeys, LeaveErrorsOfSyntaxWhereTheyAre) {
  const std::string list =
      "    call:\n      - {when: \"hcp > 1\", call: 2S}\n      - when: hcp > 2\n        call: 2H\n"
      "      - {call: P}\n";
  EXPECT_EQ(found(withEnd(list + "    comment: a: b\n")), Strings{"11:15 T0117"});
  EXPECT_EQ(found(withEnd(list + "  b: {text: \"x\"\n")), Strings{"11:6 T0124"});
  const std::string auctions = "applies:\n  auction:\n  - (1C|1D) P\n  - \"1NT P\"\n";
  EXPECT_EQ(found(withSettings(auctions) + "    comment: \"x\n"), Strings{"10:14 T0119"});
}

TEST(HandKeys, HaveListsWhoseSlipsAreFound) {
  EXPECT_EQ(found(withEnd("    call:\n      - {when: \"hcp > 1\", call: 2S\n      - {call: P}\n")),
            Strings{"7:9 T0124"});
  EXPECT_EQ(found(withEnd("    call:\n      - when: hcp > 1\n      call: 2S\n")),
            Strings{"8:7 T0109"});
  EXPECT_EQ(found(withEnd("    call:\n      - when: hcp > 1: 2\n        call: 2S\n")),
            Strings{"7:22 T0117"});
  EXPECT_EQ(found(withEnd("    call:\n      - {when: \"hcp > 1\" call: 2S}\n")),
            Strings{"7:26 T0123"});
}

TEST(HandKeys, WantBracesOnOneLine) {
  EXPECT_EQ(said(withQuestion("    never: no: because\n")),
            Strings{"what never says by keys stands between braces, or below it: write it as "
                    "{no: \"…\"}"});
  EXPECT_EQ(found(withQuestion("    never: no: because\n")), Strings{"8:12 T0109"});
  EXPECT_EQ(said(withEnd("    call: when: hcp > 1\n")),
            Strings{"what call says by keys stands between braces, or below it: write it as "
                    "[{when: \"…\", call: 2H}]"});
  EXPECT_EQ(said(withSettings("applies: auction: P P\n")),
            Strings{"what applies says by keys stands between braces, or below it: write it as "
                    "{auction: \"…\"}"});
  EXPECT_EQ(said(withSettings("auction: P P\n")),
            Strings{"a chart has no auction: write it below applies:"});
}

TEST(HandKeys, BrokenAtTheirCommasAreSaidOnce) {
  EXPECT_EQ(found(withEnd("    yes: {text: \"x\", when: shape(5,3,3,2), yes: a}\n")),
            Strings{"6:28 T0118"});
}

TEST(HandKeys, LoseNothingOfTheirTexts) {
  EXPECT_EQ(found(withQuestion("    never:\n      no: because # really\n")), Strings{"9:19 T0117"});
  EXPECT_EQ(found(withQuestion("    when: !balanced\n")), Strings{"8:11 T0110"});
  EXPECT_EQ(found(withQuestion("    when: hcp > 1 ? aces : kings\n")), Strings{"8:26 T0117"});
  EXPECT_EQ(found("chart: Opening\nstart: never\nboxes:\n  never:\n    text: Five?\n"
                  "    yes: b # really\n    no: b\n  b: {text: \"Bid\"}\n"),
            Strings{});
}

TEST(HandKeys, GoOnInLinesThatAreIndented) {
  EXPECT_EQ(found(withQuestion("    when: hcp > 3 &&\n    balanced\n    comment: x\n")),
            Strings{"9:5 T0122"});
}

// The words were ids before they were keys.
TEST(HandKeys, MayBeIds) {
  EXPECT_EQ(
      found("chart: Opening\nstart: next\nboxes:\n  next: {text: \"x?\", yes: call, no: never}\n"
            "  call:\n    text: Bid\n  never:\n    text: Is it?\n    yes: call\n    no: when\n"
            "  when: {text: \"x\"}\n"),
      Strings{});
}

}  // namespace
}  // namespace tavrel::authoring
