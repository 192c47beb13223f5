// What is said of charts that can be walked.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/authoring/Charts.h"

namespace tavrel::authoring {
namespace {

using Said = std::vector<std::string>;

// A source with these boxes; the first of them, b0, stands on line 5.
Said saidOfBoxes(const std::string& boxes) {
  return saidOfSource("chart: Opening\nintro: When to open.\nstart: b0\nboxes:\n" + boxes);
}

std::string question(int number, const std::string& yes, const std::string& no,
                     const std::string& text = "") {
  const std::string asked = text.empty() ? "Is it " + std::to_string(number) + "?" : text;
  return "  b" + std::to_string(number) + ": {text: \"" + asked + "\", comment: \"So.\", yes: \"" +
         yes + "\", no: \"" + no + "\"}\n";
}

std::string end(int number, const std::string& text = "Pass") {
  return "  b" + std::to_string(number) + ": {text: \"" + text + "\", comment: \"So.\"}\n";
}

TEST(MeaningCheck, SaysNothingOfAGoodSource) {
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b2") + end(1) + end(2)), Said{});
}

TEST(MeaningCheck, WantsAnIntroductionAndComments) {
  EXPECT_EQ(saidOfSource("chart: Opening\nstart: b0\nboxes:\n  b0: {text: \"Pass\"}\n"),
            (Said{"1:1 T0609", "4:3 T0610"}));
}

TEST(MeaningCheck, SaysOfSoundBoxesWhatItSaysWithoutErrors) {
  EXPECT_EQ(saidOfBoxes("  b0: {text: \"Is it\", comment: \"15-17.\", yes: \"b1\", no: \"b2\"}\n"
                        "  b1: {text: \"Open 2C\"}\n"
                        "  b2: {text: \"Pass\", coment: \"So.\"}\n"),
            (Said{"5:14 T0603", "5:33 T0614", "6:3 T0610", "6:20 T0613", "7:22 T0202"}));
  EXPECT_EQ(saidOfSource("chart: Nope\nstart: b0\nboxes:\n" + end(0)),
            (Said{"1:1 T0609", "1:8 T0208"}));
}

TEST(MeaningCheck, LooksAtABoxRoundOneWithAnError) {
  const std::string inner = "{text: \"Is it?\", comment: \"8-9.\", yes: {text: \"2C\", link: x}}";
  EXPECT_EQ(saidOfBoxes("  b0: {text: \"Five?\", comment: \"15-17.\", yes: " + inner + "}\n"),
            (Said{"5:3 T0601", "5:33 T0614", "5:47 T0601", "5:74 T0614", "5:99 T0202"}));
}

// Whether something is missing, or leads somewhere, nobody knows where it can't be read.
TEST(MeaningCheck, SaysNothingThatAnErrorMayHaveCaused) {
  for (const char* intro : {"intro: &k When.\n", "intro: [When]\n", "Intro: When.\n", "intro:\n"}) {
    const Said said =
        saidOfSource("chart: Opening\nstart: b0\n" + std::string(intro) + "boxes:\n" + end(0));
    EXPECT_EQ(said.size(), 1U) << intro;
  }
  EXPECT_EQ(saidOfBoxes("  b0:\n    text: Is it?\n    comment: &k So.\n    yes: b1\n    no: b1\n" +
                        end(1)),
            Said{"7:14 T0111"});
  EXPECT_EQ(saidOfBoxes("  b0: {text: \"Is it?\", comment: \"So.\", yes: \"b1\"}\n" + end(2)),
            (Said{"5:45 T0207"}));
  EXPECT_EQ(saidOfBoxes(end(0) + "  b1: {text: \"Pass?\", comment: \"So.\", yes: [b0]}\n"),
            (Said{"6:44 T0204"}));
  EXPECT_EQ(saidOfBoxes("  b0: {text: \"Open 2C\"}\n  b1: [\n"), (Said{"6:7 T0124"}));
}

TEST(MeaningCheck, SaysItBesideAnErrorOfTheDrawingToo) {
  const std::string lines = question(0, "b4", "b1") + question(1, "b0", "b2") +
                            question(2, "b0", "b3") + question(3, "b0", "b4") + end(4, "Open 2C");
  EXPECT_EQ(saidOfBoxes(lines), (Said{"8:3 T0301", "9:20 T0613"}));
}

TEST(MeaningCheck, WantsMarksAtQuestionsAlone) {
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b2", "It is") + end(1, "Pass?") + end(2)),
            (Said{"5:14 T0603", "6:14 T0604"}));
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b2", "Five? (or six)") + end(1) + end(2)), Said{});
  EXPECT_EQ(saidOfBoxes("  b0:\n    text: |\n      Five?\n      Or six\n    comment: So.\n"
                        "    yes: b1\n    no: b2\n" +
                        end(1) + end(2)),
            Said{});
}

TEST(MeaningCheck, TellsTheMissingExit) {
  const SourceFile file("Opening.yaml",
                        "chart: Opening\nintro: When.\nstart: b0\nboxes:\n"
                        "  b0: {text: \"Five?\", comment: \"So.\", no: \"b1\"}\n" +
                            end(1));
  const std::vector<Diagnostic> found = checkChart(file, fewCharts).found.sorted();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].text, "the box has a no exit alone");
}

TEST(MeaningCheck, FindsOneBoxBehindBothAnswers) {
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b1") + end(1)), (Said{"5:3 T0608"}));
}

TEST(MeaningCheck, FindsABoxOutOfReachThatLeadsToItselfAlone) {
  EXPECT_EQ(saidOfBoxes(end(0) + question(1, "b1", "b2") + end(2)), (Said{"6:3 T0605"}));
}

TEST(MeaningCheck, NamesOneBoxOfThoseThatHangTogetherOutOfReach) {
  EXPECT_EQ(saidOfBoxes(end(0) + question(1, "b2", "b3") + end(2) + end(3)), (Said{"6:3 T0605"}));
  EXPECT_EQ(saidOfBoxes(end(0) + question(1, "b2", "b3") + question(2, "b1", "b3") + end(3)),
            (Said{"6:3 T0605"}));
}

TEST(MeaningCheck, FindsAQuestionAgainOnItsWayAndNotBesideIt) {
  const std::string ends = end(3) + end(4, "Open 1NT");
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b2") + question(1, "b3", "b4", "Five?") +
                        question(2, "b3", "b4", "Five?") + ends),
            Said{});
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b3", "Five?") + question(1, "b2", "b4") +
                        question(2, "b3", "b4", "Five?") + ends),
            (Said{"7:3 T0607"}));
}

TEST(MeaningCheck, NamesTheQuestionThatWasAskedBefore) {
  const std::string ends = end(5) + end(6, "Open 1NT");
  const std::string text = "chart: Opening\nintro: When.\nstart: b0\nboxes:\n" +
                           question(0, "b1", "b3") + question(1, "b2", "b5", "Five?") +
                           question(2, "b4", "b6") + question(3, "b5", "b4", "Five?") +
                           question(4, "b5", "b6", "Five?") + ends;
  const auto found = checkChart(SourceFile("Opening.yaml", text), fewCharts).found.sorted();
  ASSERT_EQ(found.size(), 1U);  // of two that may be meant, one is named
  EXPECT_EQ(found[0].place.line, 9U);
  EXPECT_EQ(found[0].text, "the question was asked already, on line 6");
}

TEST(MeaningCheck, SparesTheFirstOfTheQuestionsInALoop) {
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b3", "Five?") + question(1, "b2", "b3") +
                        question(2, "b0", "b3", "Five?") + end(3)),
            (Said{"7:3 T0607"}));
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b3", "Five?") + question(1, "b2", "b3", "Five?") +
                        question(2, "b1", "b3") + end(3)),
            (Said{"6:3 T0607"}));
}

// Each question of a chain is asked again behind the chain.
TEST(MeaningCheck, FindsEachOfManyQuestionsAgain) {
  std::string boxes;
  const int count = 600;
  for (int i = 0; i < 2 * count; ++i) {
    boxes += question(i, "b" + std::to_string(i + 1), "b" + std::to_string(2 * count),
                      "Is it " + std::to_string(i % count) + "?");
  }
  boxes += end(2 * count);
  boxes.replace(boxes.rfind("yes: \"b1200\""), 12, "yes: \"b1201\"");
  const Said said = saidOfBoxes(boxes + end(2 * count + 1, "Open 1NT"));
  EXPECT_EQ(std::count_if(
                said.begin(), said.end(),
                [](const std::string& each) { return each.find("T0607") != std::string::npos; }),
            count);
}

TEST(MeaningCheck, NamesBoxesOnceThatLeadToNoEnd) {
  EXPECT_EQ(
      saidOfBoxes(question(0, "b1", "b2") + question(1, "b0", "b2") + question(2, "b0", "b1")),
      Said{"5:3 T0616"});
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b2") + question(1, "b0", "b2") + end(2)), Said{});
}

TEST(MeaningCheck, LeavesBoxesOutOfReachWhereAnAnswerIsMissing) {
  EXPECT_EQ(
      saidOfBoxes("  b0: {text: \"Five?\", comment: \"So.\", no: \"b1\"}\n" + end(1) + end(2)),
      Said{"5:3 T0601"});
}

TEST(MeaningCheck, TellsHowARangeShouldBeWritten) {
  const SourceFile file("Opening.yaml",
                        "chart: Opening\nintro: 8-9 or 15 – 17.\nstart: b0\nboxes:\n" + end(0));
  const std::vector<Diagnostic> found = checkChart(file, fewCharts).found.sorted();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].cure, "write 8–9, with an en dash");
  EXPECT_EQ(found[1].cure, "write 15–17, without blanks");
}

TEST(MeaningCheck, SaysALoneCallOnce) {
  EXPECT_EQ(saidOfBoxes(end(0, "Bid 2 ♣")), (Said{"5:19 T0613"}));
  EXPECT_EQ(saidOfBoxes(end(0, "2 ♣")), (Said{"5:15 T0613"}));
  EXPECT_EQ(saidOfBoxes(end(0, "Pass.")), (Said{"5:15 T0613"}));
}

TEST(MeaningCheck, PointsAtEachOfSeveralWords) {
  EXPECT_EQ(saidOfBoxes("  b0:\n    text: Bid 2C\n    comment: 7-9 or 6-8, 7-9 or 2 !c, !S.\n"),
            (Said{"6:15 T0613", "7:14 T0614", "7:21 T0614", "7:26 T0614", "7:39 T0615"}));
  EXPECT_EQ(saidOfBoxes("  b0:\n    text: Bid 2 !c\n    comment: So.\n"), Said{"6:15 T0613"});
}

TEST(MeaningCheck, TakesALoopForNoQuestionThatComesTwice) {
  EXPECT_EQ(saidOfBoxes(question(0, "b1", "b2") + question(1, "b0", "b2") + end(2)), Said{});
  // The questions 1 and 2 are the same, on two ways, and a loop leads back to the first.
  EXPECT_EQ(
      saidOfBoxes(question(0, "b1", "b2") + question(1, "b3", "b4", "Five?") +
                  question(2, "b4", "b5", "Five?") + question(3, "b1", "b5") + end(4) + end(5)),
      Said{});
}

TEST(MeaningCheck, MeasuresLinesByTheWidthOfTheChart) {
  const std::string text = "Open, whatever you hold, 1♣";  // 27 columns
  const std::string box =
      "start: b0\nboxes:\n  b0:\n    text: |\n      " + text + "\n      now\n    comment: So.\n";
  EXPECT_EQ(saidOfSource("chart: Opening\nintro: When.\n" + box), (Said{"6:11 T0611"}));
  EXPECT_EQ(saidOfSource("chart: Opening\nintro: When.\nwidth: 27\n" + box), Said{});
  EXPECT_EQ(saidOfSource("chart: Opening\nintro: When.\nwidth: 26\n" + box), (Said{"7:11 T0611"}));
}

TEST(MeaningCheck, CountsTheLinesOfABox) {
  const std::string beginning = "  b0:\n    comment: So.\n    text: |\n";
  std::string lines;
  for (int i = 0; i < 6; ++i) lines += "      Pass\n";
  EXPECT_EQ(saidOfBoxes(beginning + lines), Said{});
  EXPECT_EQ(saidOfBoxes(beginning + lines + "      Pass\n"), (Said{"7:11 T0612"}));
}

TEST(MeaningCheck, LooksAtTheSpellingOfAllTexts) {
  EXPECT_EQ(saidOfSource("chart: Opening\nintro: With 15-17 open 1N.\nstart: b0\nboxes:\n"
                         "  b0: {text: \"pass\", comment: \"Not 2C, with 8-9.\"}\n"),
            (Said{"2:13 T0614", "2:24 T0613", "5:15 T0613", "5:36 T0613", "5:45 T0614"}));
}

TEST(MeaningCheck, PointsAtTheWordInABlockOfASource) {
  EXPECT_EQ(saidOfSource("chart: Opening\nintro: |\n  Not 1NT.\n\n  ♣ is 1N, and\n  8 -\n  9 too.\n"
                         "start: b0\nboxes:\n" +
                         end(0)),
            (Said{"2:8 T0614", "5:8 T0613"}));
}

TEST(MeaningCheck, PointsAtAWordAndNotAtAPartOfOne) {
  const std::string start =
      "chart: Opening\nintro: When.\nstart: b0\nboxes:\n  b0:\n    text: Pass\n";
  EXPECT_EQ(saidOfSource(start + "    comment: A2C and 2CX but 2C.\n"), (Said{"7:30 T0613"}));
  EXPECT_EQ(saidOfSource(start + "    comment: It is 2C"), (Said{"7:20 T0613"}));
}

TEST(MeaningCheck, PointsAtTheWordInAFlowchartFile) {
  EXPECT_EQ(saidOfFv("Opening\nx\n2\nWhen\n♣ to open 2C\n1\n2\nBid\npass\n3\n\nmay\nbe 8-9.\n\n"
                     "1\n0 0 0 0 0 -1 -1\n0\n"),
            (Said{"5:11 T0613", "9:1 T0613", "13:4 T0614"}));
}

TEST(MeaningCheck, PointsAtTheWordInTheFirstOfSeveralLines) {
  EXPECT_EQ(saidOfFv("Opening\nx\n2\nOpen 2C\nthen\n1\n1\nPass\n1\nSo.\n\n"
                     "1\n0 0 0 0 0 -1 -1\n0\n"),
            (Said{"4:6 T0613"}));
}

TEST(MeaningCheck, TellsAnEndFromAQuestionOfTheSameText) {
  EXPECT_EQ(saidOfCells({"0 0 0 0 0 1 0", "1 1 0 0 0 -1 -1", "1 0 1 0 0 0 -1", "2 0 2 0 0 -1 -1"}),
            (Said{"12:1 T0603", "24:1 T0601"}));
}

TEST(MeaningCheck, WarnsOnceOfWhatBoxesOfAFileShare) {
  const std::string file =
      "Opening\nx\n0 lines\n3 nodes\n1\nFive of 2C\n0 lines\n\n1\nPass?\n1\nSo.\nNowhere\n"
      "1\nOpen 1NT\n1\n15-17\nRespNT\n"
      "6 boxes\n0 0 0 0 0 1 0\n0 1 0 0 0 1 -1\n1 2 0 0 0 -1 -1\n2 0 1 0 0 1 0\n1 1 1 0 0 -1 -1\n"
      "1 0 2 0 0 -1 -1\n0 connectors\n";
  EXPECT_EQ(saidOfFv(file), (Said{"3:1 T0609", "6:1 T0603", "6:9 T0613", "7:1 T0610", "10:1 T0604",
                                  "13:1 T0606", "15:1 T0603", "17:1 T0614", "21:1 T0601",
                                  "21:1 T0607", "23:1 T0608", "23:1 T0602"}));
}

}  // namespace
}  // namespace tavrel::authoring
