// The walk of a hand from chart to chart.

#include "hands/HandWalk.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "authoring/Compiler.h"
#include "hands/AuctionText.h"
#include "hands/ConditionCompiler.h"
#include "hands/HandText.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Files.h"

namespace tavrel::hands {
namespace {

const char* const opening = R"(
chart: Opening
applies: {auction: "P? P? P?"}
start: notrump
boxes:
  notrump:
    text: 15–17 HCP?
    comment: Count them.
    when: hcp >= 15 && hcp <= 17
    "yes": {text: "Open 1NT", call: "1NT", forcing: "no", chart: RespNT, next: partner}
    "no": suit
  suit:
    text: 12+ HCP?
    when: hcp >= 12
    "yes": {text: "Bid your longest suit", call: [{when: "spades >= 5", call: "1S"}, {when: "longestSuit == H", call: "1H"}]}
    "no": {text: "Pass", call: P}
)";

const char* const responding = R"(
chart: RespNT
applies: {auction: "P? P? P? 1NT P", hand: "hcp <= 25"}
start: major
boxes:
  major:
    text: A four-card major?
    when: max(spades, hearts) == 4
    "yes": {text: "Bid 2♣", call: "2C", forcing: "round", chart: Stayman, next: self}
    "no": upgrade
  upgrade:
    text: Worth an upgrade?
    asks: judgement
    "yes": {text: "Bid 3NT", call: "3NT"}
    "no": {text: "Pass", call: P}
)";

const char* const stayman = R"(
chart: Stayman
applies: {auction: "1NT P 2C P (2D|2H|2S) P", hand: "hcp >= 8"}
start: fit
boxes:
  fit:
    text: A fit?
    when: length(suitOf(partner(2))) >= 4
    "yes": {text: "Raise", call: [{when: "partner(2) == c2H", call: "4H"}, {when: "partner(2) == c2S", call: "4S"}]}
    "no": {text: "See the other chart", chart: Leben}
)";

const char* const leben = R"(
chart: Leben
start: any
boxes:
  any:
    text: A void?
    when: voids > 0
    "yes": {text: "On and on", chart: Leben}
    "no": {text: "Bid 3NT", call: "3NT"}
)";

const char* const oneExit = R"(
chart: Jacoby
start: strong
boxes:
  strong: {text: "15+ HCP?", when: "hcp >= 15", "yes": pass}
  pass: {text: "Pass", call: P}
)";

const char* const circle = R"(
chart: Overcall
start: flat
boxes:
  flat: {text: "Balanced?", when: "balanced", "yes": pass, "no": again}
  pass: {text: "Pass", call: P}
  again: {text: "Really?", when: "balanced", "yes": double, "no": flat}
  double: {text: "Double", call: X}
)";

class HandWalkTest : public testing::Test {
 protected:
  HandWalkTest() {
    for (const char* source : {opening, responding, stayman, leben, oneExit, circle}) add(source);
  }

  const HandChart& chart(const std::string& name) const { return charts_.at(name); }

  HandWalked walk(const std::string& name, const Situation& situation, std::size_t turn,
                  std::optional<Answer> judgement = std::nullopt) {
    const auto find = [this](const std::string& wanted) {
      const auto found = charts_.find(wanted);
      return found == charts_.end() ? nullptr : &found->second;
    };
    HandWalk walk(folder_.path(), find);
    return walk.walk(chart(name), situation, turn,
                     [&](const HandChart&, BoxIndex) { return judgement; });
  }

  void forget(const std::string& name) { charts_.erase(name); }

  // Writes other words into the file of a chart.
  void replace(const std::string& name, const std::string& words, const std::string& others) {
    const std::filesystem::path file = std::filesystem::path(folder_.path()) / (name + ".fv");
    std::string bytes = readFile(file);
    bytes.replace(bytes.find(words), words.size(), others);
    writeFile(file, bytes);
  }

 private:
  void add(const std::string& text) {
    authoring::Diagnostics found;
    const auto compiled =
        authoring::compile({"chart.yaml", text},
                           {"Opening", "RespNT", "Stayman", "Leben", "Jacoby", "Overcall"}, found);
    ASSERT_TRUE(compiled) << text;
    const std::string name = compiled->source.chart;
    writeFile(std::filesystem::path(folder_.path()) / (name + ".fv"), compiled->bytes);
    Tavrel navigator(folder_.path());
    navigator.resetToStartLocationForFlowchartAtIndex(navigator.indexOfFlowchartWithTitle(name));
    auto chart = HandChart::of(navigator.allElements(), conditionsOf(*compiled));
    ASSERT_TRUE(std::holds_alternative<HandChart>(chart)) << std::get<std::string>(chart);
    charts_.emplace(name, std::get<HandChart>(std::move(chart)));
  }

  ChartDirectory folder_;
  std::map<std::string, HandChart> charts_;
};

const char* const notrumpHand = "AQ85.KJ7.KQ4.J62";
const char* const staymanHand = "K974.Q963.A53.73";

Situation situation(const std::string& auction, const std::string& north = notrumpHand,
                    const std::string& south = staymanHand) {
  Situation made;
  made.auction = std::get<Auction>(readAuction(auction));
  if (!north.empty()) handOf(made.hands, Seat::north) = std::get<Hand>(readHand(north));
  if (!south.empty()) handOf(made.hands, Seat::south) = std::get<Hand>(readHand(south));
  return made;
}

TEST_F(HandWalkTest, EndsAtTheFirstCall) {
  const HandWalked walked = walk("Opening", situation(""), 0);
  EXPECT_EQ(walked.outcome, WalkOutcome::calls);
  EXPECT_EQ(walked.last().call, bid(1, Strain::notrump));
  EXPECT_EQ(walked.last().seat, Seat::north);
  EXPECT_EQ(walked.last().end.text, std::vector<std::string>{"Open 1NT"});
  EXPECT_EQ(walked.last().said->forcing, Forcing::no);
  EXPECT_EQ(walked.answers(), "y");
}

TEST_F(HandWalkTest, KeepsEachQuestionWithItsReasonsAndCommentary) {
  const HandWalked walked = walk("Opening", situation(""), 0);
  ASSERT_EQ(walked.last().questions.size(), 1U);
  const WalkedQuestion& question = walked.last().questions[0];
  EXPECT_EQ(question.box.text, std::vector<std::string>{"15–17 HCP?"});
  EXPECT_EQ(question.box.commentary, std::vector<std::string>{"Count them."});
  EXPECT_EQ(question.answer, Answer::yes);
  EXPECT_FALSE(question.isJudged);
  EXPECT_EQ(shown(question.reasons), "16 (A4 Q2 K3 J1 K3 Q2 J1)");
}

TEST_F(HandWalkTest, SaysWhoseTurnItIsInTheNextChart) {
  EXPECT_EQ(walk("Opening", situation(""), 0).nextTurn, 2U);
  EXPECT_EQ(walk("RespNT", situation("1NT P"), 2).nextTurn, 6U);
  EXPECT_EQ(walk("Opening", situation("", "AQ85.KJ7.K54.762"), 0).nextTurn, std::nullopt);
}

TEST_F(HandWalkTest, GoesOnWithPartnersHandWhereTheCallHasBeenMade) {
  const HandWalked walked = walk("Opening", situation("1NT P"), 0);
  EXPECT_EQ(walked.outcome, WalkOutcome::calls);
  ASSERT_EQ(walked.charts.size(), 2U);
  EXPECT_EQ(walked.last().seat, Seat::south);
  EXPECT_EQ(walked.last().call, bid(2, Strain::clubs));
  EXPECT_EQ(walked.answers(), "yy");
}

TEST_F(HandWalkTest, GoesOnWithTheSameHandAtItsNextTurn) {
  const HandWalked walked = walk("RespNT", situation("1NT P 2C P 2S P"), 2);
  EXPECT_EQ(walked.outcome, WalkOutcome::calls);
  EXPECT_EQ(walked.last().chart->name(), "Stayman");
  EXPECT_EQ(walked.last().seat, Seat::south);
  EXPECT_EQ(walked.last().call, bid(4, Strain::spades));
}

TEST_F(HandWalkTest, GoesOnAtTheSameTurnBehindABoxWithoutACall) {
  const HandWalked walked = walk("RespNT", situation("1NT P 2C P 2D P"), 2);
  EXPECT_EQ(walked.last().chart->name(), "Leben");
  EXPECT_EQ(walked.last().turn, 6U);
  EXPECT_EQ(walked.last().call, bid(3, Strain::notrump));
  EXPECT_EQ(walked.answers(), "ynn");
}

TEST_F(HandWalkTest, EndsWhereTheAuctionHasAnotherCall) {
  const HandWalked walked = walk("Opening", situation("1C P"), 0);
  EXPECT_EQ(walked.outcome, WalkOutcome::calls);
  EXPECT_EQ(walked.charts.size(), 1U);
  EXPECT_EQ(walked.last().call, bid(1, Strain::notrump));
}

TEST_F(HandWalkTest, SeesTheTableAsItWasAtTheTurn) {
  Situation late = situation("1NT P 2C P 2H P 4H P P P");
  EXPECT_EQ(walk("Stayman", late, 6).outcome, WalkOutcome::called);
  late.vulnerability = {false, true};
  EXPECT_FALSE(late.tableAt(2).isVulnerable);
  EXPECT_TRUE(late.tableAt(2).areTheyVulnerable);
  EXPECT_TRUE(late.tableAt(3).isVulnerable);
  EXPECT_EQ(late.tableAt(2).auction.size(), 2U);
}

TEST_F(HandWalkTest, StopsAtAQuestionOfJudgement) {
  const HandWalked walked = walk("RespNT", situation("1NT P", "", "K97.Q96.A532.732"), 2);
  EXPECT_EQ(walked.outcome, WalkOutcome::judgement);
  EXPECT_EQ(walked.last().end.text, std::vector<std::string>{"Worth an upgrade?"});
  EXPECT_EQ(walked.answers(), "n");
}

TEST_F(HandWalkTest, TakesAPersonsJudgement) {
  const Situation flat = situation("1NT P", "", "K97.Q96.A532.732");
  EXPECT_EQ(walk("RespNT", flat, 2, Answer::yes).last().call, bid(3, Strain::notrump));
  EXPECT_EQ(walk("RespNT", flat, 2, Answer::no).last().call, Call::pass);
  EXPECT_TRUE(walk("RespNT", flat, 2, Answer::no).last().questions[1].isJudged);
}

TEST_F(HandWalkTest, SaysWhyNoChartGoesOn) {
  EXPECT_EQ(walk("Opening", situation("1NT"), 0).outcome, WalkOutcome::waits);
  EXPECT_EQ(walk("Opening", situation("1NT P", notrumpHand, ""), 0).outcome,
            WalkOutcome::handUnknown);
  EXPECT_EQ(walk("Opening", situation("1NT 2H"), 0).outcome, WalkOutcome::notForAuction);
  EXPECT_EQ(walk("RespNT", situation("1NT P 2C P 2H P", "", "9874.J963.AK5.73"), 2).outcome,
            WalkOutcome::calls);
  EXPECT_EQ(walk("RespNT", situation("1NT P 2C P 2H P", "", "9874.J963.753.73"), 2).outcome,
            WalkOutcome::notForHand);
  EXPECT_EQ(walk("Opening", situation("P P", "AJ85.J97.54.7632"), 0).outcome, WalkOutcome::called);
  EXPECT_EQ(walk("Opening", situation("", "A5.K97.K54.KT762"), 0).outcome, WalkOutcome::noCall);
  EXPECT_EQ(walk("Leben", situation("", "AQ853.KJ742.K54."), 0).outcome, WalkOutcome::loop);
  forget("RespNT");
  EXPECT_EQ(walk("Opening", situation("1NT P"), 0).outcome, WalkOutcome::chartUnknown);
}

TEST_F(HandWalkTest, StopsWhereAnAnswerLeadsNowhere) {
  const HandWalked walked = walk("Jacoby", situation("", staymanHand), 0);
  EXPECT_EQ(walked.outcome, WalkOutcome::noExit);
  EXPECT_EQ(walked.answers(), "n");
}

TEST_F(HandWalkTest, StopsWhereTheWayComesBackToItself) {
  const HandWalked walked = walk("Overcall", situation("", "AQ853.KJ742.K5.2"), 0);
  EXPECT_EQ(walked.outcome, WalkOutcome::loop);
}

TEST_F(HandWalkTest, ReadsOnWhereACommentaryIsNoText) {
  replace("Opening", "Count them.", "Count \xFF.");
  const HandWalked walked = walk("Opening", situation(""), 0);
  EXPECT_EQ(walked.outcome, WalkOutcome::calls);
  EXPECT_EQ(walked.last().questions[0].box.commentary, std::vector<std::string>{"(not UTF-8)"});
}

TEST_F(HandWalkTest, BeginsAtTheFirstTurnThatTheChartIsFor) {
  EXPECT_EQ(turnFor(chart("Opening"), situation("P P P 1C"), Seat::north), 0U);
  EXPECT_EQ(turnFor(chart("Opening"), situation("P P 1C"), Seat::south), 2U);
  EXPECT_EQ(turnFor(chart("Opening"), situation("1C P"), Seat::south), std::nullopt);
  EXPECT_EQ(turnFor(chart("RespNT"), situation("P 1NT P"), Seat::west), 3U);
  EXPECT_EQ(turnFor(chart("Leben"), situation("1C P"), Seat::south), 2U);
}

TEST_F(HandWalkTest, KnowsWhatTheChartAssumes) {
  HandWalk walk("/nowhere", [](const std::string&) { return nullptr; });
  EXPECT_TRUE(walk.isForHand(chart("RespNT"), situation("1NT P"), 2));
  EXPECT_FALSE(walk.isForHand(chart("RespNT"), situation("1NT P", "", "AKQ2.AKQ2.AKQ.32"), 2));
}

}  // namespace
}  // namespace tavrel::hands
