// What a proof finds, in small charts with one fault each.

#include "hands/Proof.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "hands/Prover.h"
#include "tests/hands/TestChart.h"

namespace tavrel::hands {
namespace {

struct Proved {
  Tally tally;
  Proof proof;
};

Proved prove(const HandChart& chart, const KnownCharts& others = {}, std::uint64_t deals = 20'000) {
  const Subject subject(chart, others);
  Feasibility feasibility(subject.tables());
  Proving proving;
  proving.range = {0, deals};
  Tally tally = tallyOf(subject, feasibility, proving, [](std::uint64_t) {});
  Proof proof = proofOf(subject, tally, feasibility);
  return {std::move(tally), std::move(proof)};
}

// "dead exit: box no".
std::string brief(const HandChart& chart, const Finding& finding) {
  std::string text = std::string(nameOf(finding.kind)) + ": " + chart.nameOf(finding.box);
  if (finding.answer) text += *finding.answer == Answer::yes ? " yes" : " no";
  return text;
}

std::vector<std::string> found(const TestChart& test, const KnownCharts& others = {}) {
  std::vector<std::string> all;
  for (const Finding& finding : prove(test.chart(), others).proof.findings) {
    all.push_back(brief(test.chart(), finding));
  }
  return all;
}

Finding theFinding(const TestChart& test, const KnownCharts& others = {}) {
  const Proof proof = prove(test.chart(), others).proof;
  if (proof.findings.size() != 1) throw std::runtime_error("not one finding");
  return proof.findings[0];
}

using Lines = std::vector<std::string>;

// A chart that begins as all of them do.
std::string chartOf(const std::string& boxes,
                    const std::string& applies = "{auction: \"P? P? P?\"}") {
  return "chart: Opening\nstart: strong\napplies: " + applies + "\nboxes:\n" + boxes;
}

const std::string soundBoxes = R"(
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: notrump, no: weak}
  notrump: {text: "18+ HCP?", when: "hcp >= 18", yes: big, no: open-1nt}
  big: {text: "Open 2♣: 18+ HCP", call: 2C, shows: "hcp >= 18"}
  open-1nt: {text: "Open 1NT: 15–17 HCP", call: 1NT, shows: "hcp >= 15 && hcp <= 17"}
  weak: {text: "Pass: 0–14 HCP", call: P, shows: "hcp <= 14"}
)";

std::string replaced(std::string text, const std::string& old, const std::string& now) {
  const std::size_t at = text.find(old);
  if (at == std::string::npos) throw std::runtime_error("not there: " + old);
  return text.replace(at, old.size(), now);
}

TEST(Proof, FindsNothingWrongWithASoundChart) {
  EXPECT_EQ(found(TestChart(chartOf(soundBoxes))), Lines{});
}

TEST(Proof, CountsEveryDealAtAnEndAndKeepsAWitnessOfEach) {
  const TestChart test(chartOf(soundBoxes));
  const Proof proof = prove(test.chart()).proof;
  std::uint64_t sum = 0;
  for (const EndOfHands& end : proof.ends) {
    sum += end.count;
    ASSERT_TRUE(end.position.has_value());
    EXPECT_EQ(end.position->hand.size(), 13U);
  }
  EXPECT_EQ(proof.ends.size(), 3U);
  EXPECT_EQ(sum, 20'000U);
}

// --- the five planted faults ------------------------------------------------------

TEST(Proof, FindsAGapBetweenTwoRanges) {
  const TestChart test(chartOf(R"(
  strong: {text: "15–17 HCP?", when: "hcp >= 15 && hcp <= 17", yes: open-1nt, no: weak}
  open-1nt: {text: "Open 1NT", call: 1NT}
  weak: {text: "12 HCP or fewer?", when: "hcp <= 12", yes: pass, no: big}
  pass: {text: "Pass", call: P}
  big: {text: "Open 2♣", call: [{when: "hcp >= 18", call: 2C}]}
)"));
  const Finding finding = theFinding(test);
  EXPECT_EQ(brief(test.chart(), finding), "no call: big");
  ASSERT_TRUE(finding.position.has_value());
  Evaluation evaluation;
  evaluation.setHand(finding.position->hand);
  EXPECT_GE(evaluation[Variable::hcp], 13);
  EXPECT_LE(evaluation[Variable::hcp], 14);
}

// The hands with 12 and 13 points are said to answer yes, and answer no.
TEST(Proof, FindsAGapBetweenAQuestionAndItsCondition) {
  const TestChart test(chartOf(R"(
  strong: {text: "12+ HCP?", when: "hcp >= 14", yes: open-1c, no: pass}
  open-1c: {text: "Open 1♣", call: 1C}
  pass: {text: "Pass", call: P}
)"));
  const Finding finding = theFinding(test);
  EXPECT_EQ(brief(test.chart(), finding), "false text: strong");
  ASSERT_TRUE(finding.position.has_value());
  Evaluation evaluation;
  evaluation.setHand(finding.position->hand);
  EXPECT_GE(evaluation[Variable::hcp], 12);
  EXPECT_LE(evaluation[Variable::hcp], 13);
}

// Other words may ask for more than points.
TEST(Proof, LetsAQuestionAskForMoreThanItsRange) {
  const TestChart test(chartOf(R"(
  strong: {text: "12+ HCP and balanced?", when: "hcp >= 12 && balanced", yes: open-1c, no: pass}
  open-1c: {text: "Open 1♣", call: 1C}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(found(test), Lines());
}

TEST(Proof, FindsAnAnswerThatLeadsNowhere) {
  const TestChart test(chartOf(R"(
  strong: {text: "15–17 HCP?", when: "hcp >= 15 && hcp <= 17", yes: open-1nt, no: weak}
  open-1nt: {text: "Open 1NT", call: 1NT}
  weak: {text: "0–12 HCP?", when: "hcp <= 12", yes: pass}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(found(test), Lines{"gap: weak no"});
}

TEST(Proof, FindsAnOverlapOfTwoRanges) {
  const TestChart test(chartOf(R"(
  strong: {text: "12–15 HCP?", when: "hcp >= 12 && hcp <= 15", yes: open-1d, no: notrump}
  open-1d: {text: "Open 1♦: 12–15 HCP", call: 1D}
  notrump: {text: "15–17 HCP?", when: "hcp >= 15 && hcp <= 17", yes: open-1nt, no: pass}
  open-1nt: {text: "Open 1NT: 15–17 HCP", call: 1NT}
  pass: {text: "Pass", call: P}
)"));
  const Finding finding = theFinding(test);
  EXPECT_EQ(brief(test.chart(), finding), "range too wide: open-1nt");
  ASSERT_EQ(finding.proof.size(), 1U);
  EXPECT_EQ(finding.proof[0].conditions,
            (Lines{"hcp >= 12 && hcp <= 15: no (strong)", "hcp == 15: yes (the text)"}));
}

TEST(Proof, FindsAQuestionThatIsNeverReached) {
  const TestChart test(chartOf(R"(
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: notrump, no: weak}
  notrump: {text: "12+ HCP?", when: "hcp >= 12", yes: open-1nt, no: shapely}
  shapely: {text: "Balanced?", when: "balanced", yes: open-1nt, no: weak}
  open-1nt: {text: "Open 1NT", call: 1NT}
  weak: {text: "Pass", call: P}
)"));
  EXPECT_EQ(found(test), (Lines{"dead exit: notrump no", "never reached: shapely"}));
}

const std::string responses = R"(
chart: RespNT
start: pass
applies: {auction: "P? P? P? 1NT P"}
boxes:
  pass: {text: "Pass", call: P}
)";

const std::string stayman = R"(
chart: Stayman
start: pass
applies: {auction: "P? P? P? 1NT P 2C P 2D P"}
boxes:
  pass: {text: "Pass", call: P}
)";

std::string withLink(const std::string& chart) {
  return chartOf(
      replaced(soundBoxes, "call: 1NT,", "call: 1NT, chart: " + chart + ", next: partner,"));
}

TEST(Proof, FindsALinkToTheWrongChart) {
  const TestChart right(responses), wrong(replaced(stayman, "1NT P 2C P 2D P", "2NT P 3C P 3D P"));
  const KnownCharts known = {{"RespNT", &right.chart().conditions()},
                             {"Stayman", &wrong.chart().conditions()}};
  EXPECT_EQ(found(TestChart(withLink("RespNT")), known), Lines{});
  EXPECT_EQ(found(TestChart(withLink("Stayman")), known), Lines{"wrong chart: open-1nt"});
}

TEST(Proof, FindsYesAndNoSwapped) {
  const TestChart test(
      chartOf(replaced(soundBoxes, "yes: big, no: open-1nt", "yes: open-1nt, no: big")));
  EXPECT_EQ(found(test),
            (Lines{"false promise: open-1nt", "false text: open-1nt", "range too wide: open-1nt",
                   "false promise: big", "false text: big"}));
}

// --- everything else that can be found -------------------------------------------

TEST(Proof, FindsACallThatTheLawsDontAllow) {
  const TestChart test(chartOf(soundBoxes, "{auction: [\"\", \"2D P\"]}"));
  EXPECT_EQ(found(test), (Lines{"illegal call: big", "illegal call: open-1nt"}));
}

TEST(Proof, FindsHandsThatGoRoundInACircle) {
  const TestChart test(chartOf(R"(
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: open-1nt, no: weak}
  open-1nt: {text: "Open 1NT", call: 1NT}
  weak: {text: "0–10 HCP?", when: "hcp <= 10", yes: pass, no: strong}
  pass: {text: "Pass", call: P}
)"));
  const Finding finding = theFinding(test);
  EXPECT_EQ(brief(test.chart(), finding).find("loop: "), 0U);
  EXPECT_GT(finding.count, 0U);
}

const std::string deadBoxes = R"(
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: notrump, no: weak}
  notrump: {text: "12+ HCP?", when: "hcp >= 12", yes: open-1nt, no: weak}
  open-1nt: {text: "Open 1NT", call: 1NT}
  weak: {text: "Pass", call: P}
)";

TEST(Proof, FindsADeadExitWithTheSmallestContradiction) {
  const TestChart test(chartOf(deadBoxes));
  const Finding finding = theFinding(test);
  EXPECT_EQ(brief(test.chart(), finding), "dead exit: notrump no");
  ASSERT_EQ(finding.proof.size(), 1U);
  EXPECT_TRUE(finding.proof[0].isSmallest);
  EXPECT_EQ(finding.proof[0].conditions,
            (Lines{"hcp >= 15: yes (strong)", "hcp >= 12: no (notrump)"}));
}

TEST(Proof, LeavesADeadExitAloneThatIsExcused) {
  const TestChart test(chartOf(replaced(deadBoxes, "yes: open-1nt, no: weak}",
                                        "yes: open-1nt, no: weak, never: {no: \"to teach\"}}")));
  const Proof proof = prove(test.chart()).proof;
  EXPECT_TRUE(proof.findings.empty());
  EXPECT_EQ(proof.notes, Lines{"notrump: never no: to teach (proved)"});
}

TEST(Proof, FindsAnExcuseForAnAnswerThatHandsGive) {
  const TestChart test(chartOf(replaced(deadBoxes, "yes: notrump, no: weak}",
                                        "yes: notrump, no: weak, never: {yes: \"rare\"}}")));
  EXPECT_EQ(found(test), (Lines{"false excuse: strong yes", "dead exit: notrump no"}));
}

TEST(Proof, FindsAHandThatTheNextChartDoesntAssume) {
  const TestChart next(replaced(replaced(stayman, "1NT P 2C P 2D P", "2C P 2D P"), "{auction",
                                "{hand: \"hcp >= 20\", auction"));
  const KnownCharts known = {{"Stayman", &next.chart().conditions()}};
  const std::string link = "call: 2C, chart: Stayman, next: self,";
  const TestChart test(chartOf(replaced(soundBoxes, "call: 2C,", link)));
  EXPECT_EQ(found(test, known), Lines{"wrong hand: big"});
}

TEST(Proof, SaysThatAChartIsForNoHand) {
  const TestChart test(chartOf(soundBoxes, "{auction: \"\", hand: \"hcp >= 20 && quick < 1\"}"));
  const std::vector<std::string> all = found(test);
  EXPECT_EQ(all, Lines{"no hand: strong"});
}

// About one hand of 160 billion has this.
TEST(Proof, SearchesForHandsThatAreNeverDealt) {
  const TestChart test(chartOf(R"(
  strong: {text: "All of a suit?", when: "longest == 13", yes: grand, no: pass}
  grand: {text: "Open 7NT", call: 7NT, shows: "voids == 3"}
  pass: {text: "Pass", call: P}
)"));
  const Proof proof = prove(test.chart()).proof;
  EXPECT_TRUE(proof.findings.empty());
  ASSERT_TRUE(proof.ends[0].position.has_value());
  EXPECT_EQ(proof.ends[0].count, 0U);
  Evaluation evaluation;
  evaluation.setHand(proof.ends[0].position->hand);
  EXPECT_EQ(evaluation[Variable::longest], 13);
}

// Nor is there chance of a hand with 37 points and a long suit.
TEST(Proof, FindsFalsePromisesThatNoDealShows) {
  const TestChart test(
      chartOf(replaced(soundBoxes, "shows: \"hcp >= 18\"", "shows: \"hcp >= 18 && hcp <= 36\"")));
  const Finding finding = theFinding(test);
  EXPECT_EQ(brief(test.chart(), finding), "false promise: big");
  EXPECT_EQ(finding.count, 0U);
  ASSERT_TRUE(finding.position.has_value());
}

TEST(Proof, TossesACoinWhereJudgementDecides) {
  const TestChart test(chartOf(R"(
  feel: {text: "Does it feel good?", asks: judgement, yes: open-1nt, no: pass}
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: feel, no: pass}
  open-1nt: {text: "Open 1NT", call: 1NT}
  pass: {text: "Pass", call: P}
)"));
  const Proved proved = prove(test.chart());
  EXPECT_TRUE(proved.proof.findings.empty());
  const BoxTally& feel = proved.tally.boxes[test.box("feel")];
  const auto yes = static_cast<double>(feel.answers.yes.count);
  const auto no = static_cast<double>(feel.answers.no.count);
  EXPECT_NEAR(yes / (yes + no), 0.5, 0.05);
}

TEST(Proof, CountsHandsThatChanceHardlyDeals) {
  const TestChart test(chartOf(soundBoxes, "{auction: \"\", hand: \"hcp >= 30\"}"));
  const Subject subject(test.chart(), {});
  Feasibility feasibility(subject.tables());
  Proving proving;
  proving.range = {0, 50};
  const Tally tally = tallyOf(subject, feasibility, proving, [](std::uint64_t) {});
  EXPECT_EQ(tally.undealt, 0U);
  EXPECT_EQ(tally.boxes[test.box("big")].reached.count, 50U);
  EXPECT_GE(tally.boxes[test.box("big")].extents[0].least, 30);
}

// --- sharing the work ----------------------------------------------------------------

Tally tallied(const HandChart& chart, DealRange range, unsigned threads) {
  const Subject subject(chart, {});
  Feasibility feasibility(subject.tables());
  Proving proving;
  proving.range = range;
  proving.threads = threads;
  return tallyOf(subject, feasibility, proving, [](std::uint64_t) {});
}

TEST(Tally, IsTheSameOnAnyNumberOfThreads) {
  const TestChart test(chartOf(soundBoxes));
  const Tally one = tallied(test.chart(), {0, 30'000}, 1);
  EXPECT_EQ(one, tallied(test.chart(), {0, 30'000}, 2));
  EXPECT_EQ(one, tallied(test.chart(), {0, 30'000}, 7));
}

TEST(Tally, OfSlicesAddsUpToThatOfAllDeals) {
  const TestChart test(chartOf(soundBoxes));
  Tally sum = tallied(test.chart(), {12'345, 30'000}, 1);
  sum += tallied(test.chart(), {0, 1}, 1);
  EXPECT_FALSE(sum == tallied(test.chart(), {0, 30'000}, 1));
  sum += tallied(test.chart(), {1, 12'345}, 1);
  EXPECT_EQ(sum, tallied(test.chart(), {0, 30'000}, 1));
}

TEST(Tally, PassesOnWhatIsThrownMeanwhile) {
  const TestChart test(chartOf(soundBoxes));
  const Subject subject(test.chart(), {});
  Feasibility feasibility(subject.tables());
  Proving proving;
  proving.range = {0, 1'000'000};
  proving.threads = 3;
  const auto fail = [](std::uint64_t) { throw std::runtime_error("enough"); };
  EXPECT_THROW(tallyOf(subject, feasibility, proving, fail), std::runtime_error);
}

}  // namespace
}  // namespace tavrel::hands
