// What a proof says where it can't settle something, or knows too little.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "hands/Contradiction.h"
#include "hands/Proof.h"
#include "hands/Prover.h"
#include "hands/Ways.h"
#include "tests/hands/TestChart.h"

namespace tavrel::hands {
namespace {

using Lines = std::vector<std::string>;

constexpr std::uint64_t nothing = 0;  // kinds of hands that are tried

Proof proved(const TestChart& test, std::uint64_t mostForEach = Feasibility::mostForOne,
             const KnownCharts& others = {}, std::uint64_t deals = 5'000) {
  const Subject subject(test.chart(), others);
  Feasibility feasibility(subject.tables(), mostForEach);
  Proving proving;
  proving.range = {0, deals};
  const Tally tally = tallyOf(subject, feasibility, proving, [](std::uint64_t) {});
  return proofOf(subject, tally, feasibility);
}

// "dead exit: box: what is wrong".
Lines linesOf(const TestChart& test, const Proof& proof) {
  Lines lines;
  for (const Finding& finding : proof.findings) {
    lines.push_back(std::string(nameOf(finding.kind)) + ": " + test.chart().nameOf(finding.box) +
                    ": " + finding.text);
  }
  return lines;
}

std::string chartOf(const std::string& boxes,
                    const std::string& applies = "{auction: \"P? P? P?\"}") {
  return "chart: Opening\nstart: strong\napplies: " + applies + "\nboxes:\n" + boxes;
}

std::string deadEndWith(const std::string& more) {
  return chartOf(R"(
  strong: {text: "Strong?", when: "hcp >= 15", yes: notrump, no: pass}
  notrump: {text: "Enough?", when: "hcp >= 12", yes: open-1nt, no: shapely)" +
                 more + R"(}
  shapely: {text: "Balanced?", when: "balanced", yes: open-1nt, no: rare}
  rare: {text: "Open 2♣", call: 2C}
  open-1nt: {text: "Open 1NT", call: 1NT}
  pass: {text: "Pass", call: P}
)");
}

// --- no time to search -----------------------------------------------------------------

TEST(UnsettledProof, ClaimsNoMoreThanThatNoHandWasFound) {
  const TestChart test(deadEndWith(""));
  const std::string nobody =
      "no hand was found that comes here; whether there is one isn't settled";
  const Proof proof = proved(test, nothing);
  const Lines lines = linesOf(test, proof);
  ASSERT_GE(lines.size(), 3U);
  EXPECT_EQ(lines[0],
            "dead exit: notrump: no hand was found that answers no; whether there is one isn't "
            "settled");
  EXPECT_TRUE(proof.findings[0].proof.empty());
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "never reached: shapely: " + nobody), 1);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "never reached: rare: " + nobody), 1);
}

TEST(UnsettledProof, ExcusesWhatLiesBehindAnAnswerThatIsNeverGiven) {
  const TestChart test(deadEndWith(", never: {no: \"to teach\"}"));
  const Proof quick = proved(test, nothing), thorough = proved(test);
  EXPECT_EQ(linesOf(test, quick), Lines());
  const std::string why = "no hand comes here, as \"never\" says";
  EXPECT_EQ(quick.notes, (Lines{"notrump: never no: to teach (no hand was found; not proved)",
                                "shapely: " + why, "rare: " + why}));
  EXPECT_EQ(linesOf(test, thorough), Lines());
  EXPECT_EQ(thorough.notes,
            (Lines{"notrump: never no: to teach (proved)", "shapely: " + why, "rare: " + why}));
}

TEST(UnsettledProof, NotesAPromiseThatMayBeFalse) {
  const TestChart test(chartOf(R"(
  strong: {text: "Strong?", when: "hcp >= 15", yes: open-1c, no: pass}
  open-1c: {text: "Open 1♣", call: 1C, shows: "hcp >= 15"}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(proved(test).notes, Lines());
  EXPECT_EQ(proved(test, nothing).notes,
            Lines{"open-1c: whether there is a hand for this isn't settled: \"shows\" is false: "
                  "hcp >= 15"});
}

TEST(UnsettledProof, DealsNothingForAHandThatIsNeitherDealtNorFound) {
  const TestChart test(chartOf(R"(
  strong: {text: "Strong?", when: "hcp >= 15", yes: open-1c, no: pass}
  open-1c: {text: "Open 1♣", call: 1C}
  pass: {text: "Pass", call: P}
)",
                               "{auction: \"\", hand: \"hcp == 37\"}"));
  const Subject subject(test.chart(), {});
  Feasibility quick(subject.tables(), nothing), thorough(subject.tables());
  Proving proving;
  proving.range = {0, 20};
  const Tally tally = tallyOf(subject, quick, proving, [](std::uint64_t) {});
  EXPECT_EQ(tally.deals, 20U);
  EXPECT_EQ(tally.undealt, 20U);
  EXPECT_EQ(linesOf(test, proofOf(subject, tally, quick)),
            Lines{"no hand: strong: no hand was found for which hcp == 37 is true"});
  const Lines known = linesOf(test, proofOf(subject, tally, thorough));
  ASSERT_FALSE(known.empty());
  EXPECT_EQ(known[0].find("dead exit: strong: no hand answers no"), 0U);
}

TEST(UnsettledProof, LeavesOutNeedlessConditionsWhereTheSmallestSetCantBeFound) {
  const std::vector<Table> tables = tablesOf({});
  Feasibility quick(tables, 50), thorough(tables);
  const std::vector<Wanted> all = {
      {"hcp == 37", true}, {"longest == 13", true}, {"spades >= 1", true}};
  ASSERT_EQ(quick.find({{"hcp == 37", true}}).verdict, Verdict::unsettled);
  const Contradiction found = smallestContradiction(quick, all);
  EXPECT_EQ(found.conditions, (std::vector<std::size_t>{0, 1}));
  EXPECT_FALSE(found.isSmallest);
  const Contradiction smallest = smallestContradiction(thorough, all);
  EXPECT_EQ(smallest.conditions, found.conditions);
  EXPECT_TRUE(smallest.isSmallest);
}

// Each of 15 numbers of points is ruled out three times: there are 3^15 smallest sets.
TEST(UnsettledProof, LeavesOutNeedlessConditionsWhereThereAreTooManySets) {
  const std::vector<Table> tables = tablesOf({});
  Feasibility feasibility(tables);
  std::vector<Wanted> all = {{"hcp <= 14", true}};
  for (int points = 0; points <= 14; ++points) {
    const std::string number = std::to_string(points);
    all.push_back({"hcp != " + number, true});
    all.push_back({number + " != hcp", true});
    all.push_back({"hcp == " + number, false});
  }
  const Contradiction found = smallestContradiction(feasibility, all);
  EXPECT_FALSE(found.isSmallest);
  EXPECT_EQ(found.conditions.size(), 16U);
  std::vector<Wanted> chosen;
  for (const std::size_t number : found.conditions) chosen.push_back(all[number]);
  EXPECT_EQ(feasibility.find(chosen).verdict, Verdict::none);
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    std::vector<Wanted> fewer = chosen;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_EQ(feasibility.find(fewer).verdict, Verdict::found);
  }
}

// --- too many ways, and too long ones ----------------------------------------------------

TEST(UnsettledProof, DeniesNoHandBehindMoreWaysThanItLists) {
  std::string boxes = "  strong: {text: \"Strong?\", asks: judgement, yes: q1, no: r1}\n";
  constexpr int doublings = 7;
  for (int i = 1; i <= doublings; ++i) {
    const std::string number = std::to_string(i);
    const std::string next = i == doublings ? "last" : "q" + std::to_string(i + 1);
    const std::string other = i == doublings ? "last" : "r" + std::to_string(i + 1);
    boxes += "  q" + number + ": {text: \"Q?\", asks: judgement, yes: " + next + ", no: " + other +
             "}\n  r" + number + ": {text: \"R?\", asks: judgement, yes: " + next +
             ", no: " + other + "}\n";
  }
  const TestChart test(chartOf(boxes + R"(
  last: {text: "All points?", when: "hcp >= 38", yes: grand, no: pass}
  grand: {text: "Open 7NT", call: 7NT}
  pass: {text: "Pass", call: P}
)"));
  const Subject subject(test.chart(), {});
  const Ways ways = waysTo(subject, test.box("last"));
  EXPECT_FALSE(ways.areAll);
  EXPECT_EQ(ways.ways.size(), mostWays);
  const Lines lines = linesOf(test, proved(test));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].find("dead exit: last: no hand was found that answers yes"), 0U);
  EXPECT_EQ(lines[1].find("never reached: grand: no hand was found"), 0U);
}

TEST(UnsettledProof, SearchesNoWayOfHundredsOfQuestions) {
  std::string boxes = "  strong: {text: \"Strong?\", asks: judgement, yes: q1, no: pass}\n";
  constexpr int questions = 202;
  for (int i = 1; i <= questions; ++i) {
    const std::string next = i == questions ? "last" : "q" + std::to_string(i + 1);
    boxes += "  q" + std::to_string(i) + ": {text: \"Q?\", asks: judgement, yes: " + next +
             ", no: pass}\n";
  }
  const TestChart test(chartOf(boxes + R"(
  last: {text: "Open 1♣", call: 1C}
  pass: {text: "Pass", call: P}
)"));
  const Lines lines = linesOf(test, proved(test, Feasibility::mostForOne, {}, 100));
  EXPECT_EQ(std::count(lines.begin(), lines.end(),
                       "never reached: last: no hand was found that comes here; whether there is "
                       "one isn't settled"),
            1);
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) {
                            return line.find("no hand comes here") != std::string::npos;
                          }),
            0);
}

// --- the same on several ways -------------------------------------------------------------

TEST(Refutation, IsGivenOnceForAllWaysThatItHoldsFor) {
  const TestChart test(chartOf(R"(
  strong: {text: "Strong?", when: "hcp >= 15", yes: shapely, no: pass}
  shapely: {text: "Balanced?", when: "balanced", yes: notrump, no: long}
  long: {text: "Long spades?", when: "spades >= 6", yes: notrump, no: open-1c}
  notrump: {text: "Enough?", when: "hcp >= 12", yes: open-1nt, no: pass}
  open-1c: {text: "Open 1♣", call: 1C}
  open-1nt: {text: "Open 1NT", call: 1NT}
  pass: {text: "Pass", call: P}
)"));
  const Subject subject(test.chart(), {});
  EXPECT_EQ(waysTo(subject, test.box("notrump")).ways.size(), 2U);
  const Proof proof = proved(test);
  ASSERT_EQ(proof.findings.size(), 1U);
  ASSERT_EQ(proof.findings[0].proof.size(), 1U);
  EXPECT_EQ(proof.findings[0].proof[0].conditions,
            (Lines{"hcp >= 15: yes (strong)", "hcp >= 12: no (notrump)"}));
}

// --- ranges in texts ----------------------------------------------------------------------

TEST(Ranges, AreTooWideWhereNoHandHasTheHighestNumber) {
  const TestChart test(chartOf(R"(
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: big, no: pass}
  big: {text: "17+ HCP?", when: "hcp >= 17", yes: open-1c, no: open-1nt}
  open-1c: {text: "Open 1♣", call: 1C}
  open-1nt: {text: "Open 1NT: 15–17 HCP", call: 1NT}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(
      linesOf(test, proved(test)),
      Lines{"range too wide: open-1nt: the text says \"15–17 HCP\", and no hand with 17 comes "
            "here: those that come have 15–16"});
}

// A suit of 13 cards has ten points, and is never dealt.
TEST(Ranges, AreTooWideForHandsThatAreOnlySearchedFor) {
  const TestChart test(chartOf(R"(
  strong: {text: "All of a suit?", when: "longest == 13", yes: grand, no: pass}
  grand: {text: "Open 7NT: 9–12 HCP", call: 7NT}
  pass: {text: "Pass", call: P}
)"));
  const std::string says = "range too wide: grand: the text says \"9–12 HCP\", and no hand with ";
  EXPECT_EQ(linesOf(test, proved(test)), (Lines{says + "9 comes here", says + "12 comes here"}));
}

TEST(Ranges, InOneTextArePromisedTogether) {
  const TestChart test(chartOf(R"(
  strong: {text: "15+ HCP, 5+ spades?", when: "hcp >= 15", yes: open-1s, no: pass}
  open-1s: {text: "Open 1♠", call: 1S}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(linesOf(test, proved(test)),
            Lines{"false text: strong: the text says \"15+ HCP, 5+ spades\", which is false"});
}

TEST(Ranges, AreNotLookedAtWhereNobodyAnswersYes) {
  const TestChart test(chartOf(R"(
  strong: {text: "Strong?", when: "hcp >= 15", yes: open-1c, no: weak}
  weak: {text: "16+ HCP?", when: "hcp >= 18", yes: open-1c, no: pass}
  open-1c: {text: "Open 1♣", call: 1C}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(linesOf(test, proved(test)),
            Lines{"dead exit: weak: no hand answers yes: what is known before settles it as no"});
}

TEST(Ranges, PromiseNothingOfJudgement) {
  const TestChart test(chartOf(R"(
  strong: {text: "15+ HCP?", asks: judgement, yes: open-1c, no: pass}
  open-1c: {text: "Open 1♣", call: 1C}
  pass: {text: "Pass", call: P}
)"));
  EXPECT_EQ(linesOf(test, proved(test)), Lines());
}

// --- other charts -------------------------------------------------------------------------

std::string leadingOn(const std::string& end) {
  return chartOf(R"(
  strong: {text: "Strong?", when: "hcp >= 15", yes: on, no: pass}
  on: {text: "Go on", )" +
                 end + R"(}
  pass: {text: "Pass", call: P}
)");
}

std::string nextChart(const std::string& applies) {
  return "chart: RespNT\nstart: pass\n" + applies + "boxes:\n  pass: {text: \"Pass\", call: P}\n";
}

TEST(Links, ToAChartThatSaysNothingOfAuctionsAreNoted) {
  const TestChart test(leadingOn("call: 1NT, chart: RespNT, next: partner"));
  const Lines noted = {"on: nothing is known of the auctions that RespNT is for"};
  EXPECT_EQ(proved(test).notes, noted);
  const TestChart silent(nextChart("applies: {hand: \"hcp <= 20\"}\n"));
  EXPECT_EQ(proved(test, Feasibility::mostForOne, {{"RespNT", &silent.chart().conditions()}}).notes,
            noted);
}

TEST(Links, WithoutACallGoOnInTheSameAuction) {
  const TestChart test(leadingOn("chart: RespNT"));
  const TestChart same(nextChart("applies: {auction: \"P? P? P?\"}\n"));
  const TestChart later(nextChart("applies: {auction: \"P? P? P? 2NT P 3C P\"}\n"));
  const auto with = [&test](const TestChart& next) {
    return linesOf(test,
                   proved(test, Feasibility::mostForOne, {{"RespNT", &next.chart().conditions()}}));
  };
  EXPECT_EQ(with(same), Lines());
  EXPECT_EQ(with(later),
            Lines{"wrong chart: \"Go on\": RespNT isn't for the auction that follows"});
}

TEST(Links, MakeTheNextChartPartOfTheDigest) {
  const TestChart test(leadingOn("call: 1NT, chart: RespNT, next: partner"));
  const TestChart one(nextChart("applies: {auction: \"P? P? P? 1NT P\"}\n"));
  const TestChart other(nextChart("applies: {auction: \"P? P? P? 2NT P\"}\n"));
  const auto digest = [&test](const TestChart& next) {
    return Subject(test.chart(), {{"RespNT", &next.chart().conditions()}}).digest();
  };
  EXPECT_EQ(digest(one), digest(one));
  EXPECT_NE(digest(one), digest(other));
}

}  // namespace
}  // namespace tavrel::hands
