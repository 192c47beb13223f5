#include "hands/HandWalk.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace tavrel::hands {
namespace {

// Whether what was called at that turn is what the end says, so that the walk can go on.
bool isMade(const ChartWalk& walk, const Auction& auction) {
  return walk.call != Call::none && walk.turn < auction.size() && auction[walk.turn] == walk.call;
}

// When the chart behind a link goes on: without a call it is still the same turn.
std::optional<std::size_t> turnBehind(const ChartWalk& walk) {
  const std::optional<Next> next = walk.said == nullptr ? std::nullopt : walk.said->next;
  if (walk.call == Call::none && next != Next::partner) return walk.turn;
  if (!next) return std::nullopt;
  return walk.turn + (*next == Next::self ? playerCount : playerCount / 2);
}

bool wasThere(const HandWalked& walked, const HandChart* chart, std::size_t turn) {
  return std::any_of(walked.charts.begin(), walked.charts.end(), [&](const ChartWalk& each) {
    return each.chart == chart && each.turn == turn;
  });
}

std::vector<std::string> commentaryOf(const ScreenElement& element) try {
  return element.commentaryText();
} catch (const std::invalid_argument&) {
  return {"(not UTF-8)"};
}

WalkOutcome outcomeOf(Ending ending) {
  switch (ending) {
    case Ending::judgement:
      return WalkOutcome::judgement;
    case Ending::noExit:
      return WalkOutcome::noExit;
    default:
      return WalkOutcome::loop;
  }
}

}  // namespace

Table Situation::tableAt(std::size_t turn) const {
  return {auction.first(turn), vulnerability.of(seatAt(turn)), vulnerability.of(seatAt(turn + 1))};
}

bool isFor(const HandChart& chart, const Auction& auction) {
  if (chart.conditions().patterns.empty()) return true;
  const std::vector<Auction>& auctions = chart.conditions().auctions;
  return std::find(auctions.begin(), auctions.end(), auction) != auctions.end();
}

std::optional<std::size_t> turnFor(const HandChart& chart, const Situation& situation, Seat seat) {
  for (std::size_t turn = 0; turn <= situation.auction.size(); ++turn) {
    if (situation.seatAt(turn) == seat && isFor(chart, situation.auction.first(turn))) return turn;
  }
  return std::nullopt;
}

std::string HandWalked::answers() const {
  std::string answers;
  for (const ChartWalk& walk : charts) {
    for (const WalkedQuestion& question : walk.questions) {
      answers += question.answer == Answer::yes ? 'y' : 'n';
    }
  }
  return answers;
}

HandWalk::HandWalk(const std::filesystem::path& directory, FindChart find)
    : navigator_(directory), find_(std::move(find)) {}

bool HandWalk::isForHand(const HandChart& chart, const Situation& situation, std::size_t turn) {
  return walkerAt(chart, situation, turn).isForHand();
}

HandWalked HandWalk::walk(const HandChart& chart, const Situation& situation, std::size_t turn,
                          const Judge& judge) {
  HandWalked walked;
  walked.charts.push_back(walkChart(chart, situation, turn, judge));
  while (true) {
    if (const auto outcome = goOn(walked, situation)) {
      walked.outcome = *outcome;
      return walked;
    }
    const HandChart* next = find_(walked.last().link);
    walked.charts.push_back(walkChart(*next, situation, *walked.nextTurn, judge));
  }
}

// The chart's walker, with its evaluation at that turn.
Walker& HandWalk::walkerAt(const HandChart& chart, const Situation& situation, std::size_t turn) {
  std::unique_ptr<Walker>& walker = walkers_[&chart];
  if (!walker) walker = std::make_unique<Walker>(chart);
  table_ = situation.tableAt(turn);
  walker->evaluation().setTable(table_);
  walker->evaluation().setHand(*handOf(situation.hands, situation.seatAt(turn)));
  return *walker;
}

ChartWalk HandWalk::walkChart(const HandChart& chart, const Situation& situation, std::size_t turn,
                              const Judge& judge) {
  const Seat seat = situation.seatAt(turn);
  ChartWalk walk = {&chart,     turn,    seat, *handOf(situation.hands, seat), {}, {}, Ending::end,
                    Call::none, nullptr, ""};
  Walker& walker = walkerAt(chart, situation, turn);
  navigator_.resetToStartLocationForFlowchartAtIndex(
      navigator_.indexOfFlowchartWithTitle(chart.name()));
  walkQuestions(walker, walk, judge);
  walk.end = boxHere();
  const BoxIndex end = chart.at(walk.end.cell);
  walk.said = chart[end].conditions;
  if (walk.ending != Ending::end) return walk;
  walk.link = chart[end].link;
  walk.call = walker.callAt(end);
  return walk;
}

void HandWalk::walkQuestions(Walker& walker, ChartWalk& walk, const Judge& judge) {
  const HandChart& chart = *walk.chart;
  while (true) {
    WalkedQuestion question = {boxHere(), Answer::yes, false, {}};
    const BoxIndex box = chart.at(question.box.cell);
    if (chart[box].isEnd()) return;
    if (walk.questions.size() == chart.boxes().size()) {
      walk.ending = Ending::loop;
      return;
    }
    std::optional<Answer> answer = walker.answerAt(box);
    question.isJudged = !answer;
    if (!answer) answer = judge(chart, box);
    if (!answer) {
      walk.ending = Ending::judgement;
      return;
    }
    if (!question.isJudged) {
      question.reasons = reasonsOf(*chart[box].conditions->when, walker.evaluation());
    }
    question.answer = *answer;
    walk.questions.push_back(std::move(question));
    if (chart[box].exits[*answer] == noBox) {
      walk.ending = Ending::noExit;
      return;
    }
    *answer == Answer::yes ? navigator_.moveYes() : navigator_.moveNo();
  }
}

WalkedBox HandWalk::boxHere() const {
  const auto [name, x, y] = navigator_.currentLocation();
  const ScreenElement element = navigator_.currentElement();
  return {{x, y}, element.boxText(), commentaryOf(element)};
}

// Why the walk ends here; std::nullopt if the chart behind the link goes on.
std::optional<WalkOutcome> HandWalk::goOn(HandWalked& walked, const Situation& situation) {
  const ChartWalk& last = walked.last();
  walked.nextTurn.reset();
  if (last.ending != Ending::end) return outcomeOf(last.ending);
  const bool makesOther = last.call != Call::none && !isMade(last, situation.auction);
  if (!last.link.empty()) walked.nextTurn = turnBehind(last);
  if (makesOther) return WalkOutcome::calls;
  if (last.link.empty()) return last.call == Call::none ? WalkOutcome::noCall : WalkOutcome::called;
  if (!walked.nextTurn) return WalkOutcome::noNext;
  const std::size_t turn = *walked.nextTurn;
  if (turn > situation.auction.size()) return WalkOutcome::waits;
  if (!handOf(situation.hands, situation.seatAt(turn))) return WalkOutcome::handUnknown;
  const HandChart* chart = find_(last.link);
  if (chart == nullptr) return WalkOutcome::chartUnknown;
  if (!isFor(*chart, situation.auction.first(turn))) return WalkOutcome::notForAuction;
  if (wasThere(walked, chart, turn)) return WalkOutcome::loop;
  if (!isForHand(*chart, situation, turn)) return WalkOutcome::notForHand;
  return std::nullopt;
}

}  // namespace tavrel::hands
