// What a proof finds, in small charts with one fault each.

#include "hands/Proof.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
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
  Tally tally = tallyOf(subject, proving, [](std::uint64_t) {});
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

}  // namespace
}  // namespace tavrel::hands
