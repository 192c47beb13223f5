#include "hosts/tavrel/BidReport.h"

#include <array>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "hands/HandText.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/HandStart.h"

namespace tavrel {
namespace {

using namespace hands;
using Json = nlohmann::ordered_json;

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : " ") + line;
  return text;
}

const char* nameOf(Answer answer) { return answer == Answer::yes ? "yes" : "no"; }

// In the order of WalkOutcome.
constexpr std::array outcomeNames = {"calls",       "called",       "noCall",        "judgement",
                                     "noExit",      "loop",         "noNext",        "waits",
                                     "handUnknown", "chartUnknown", "notForAuction", "notForHand"};

constexpr std::array forcingWords = {"no", "one round", "to game"};
constexpr std::array forcingNames = {"no", "round", "game"};

template <typename Names, typename Value>
const char* nameIn(const Names& names, Value value) {
  return names[static_cast<std::size_t>(value)];
}

// The call that was made at the turn of the last chart where the chart has another.
std::optional<Call> calledInstead(const Bid& bid) {
  const ChartWalk& last = bid.walked.last();
  const Auction& auction = bid.situation.auction;
  if (bid.walked.outcome != WalkOutcome::calls || last.turn >= auction.size()) return std::nullopt;
  return auction[last.turn];
}

// What follows from a call doesn't where another one was made.
bool isFollowed(const Bid& bid) {
  return bid.walked.last().ending == Ending::end && !calledInstead(bid);
}

std::optional<Forcing> forcingOf(const Bid& bid) {
  const ChartWalk& last = bid.walked.last();
  if (!isFollowed(bid) || last.said == nullptr) return std::nullopt;
  return last.said->forcing;
}

// --- for people -------------------------------------------------------------------

std::string commentary(const WalkedBox& box) {
  std::string lines;
  for (const std::string& line : box.commentary) lines += "      " + line + "\n";
  return lines;
}

std::string headOf(const ChartWalk& walk, const Bid& bid, const Library& library) {
  std::string head = walk.chart->name() + ": " + library.find(walk.chart->name()).title;
  const Auction before = bid.situation.auction.first(walk.turn);
  if (before.size() > 0) head += ", after " + shown(before, Charset::utf8);
  return head + "\n  " + hands::nameOf(walk.seat) + ": " + shown(walk.hand) + "\n";
}

std::string told(const ChartWalk& walk, const Bid& bid, const Library& library, bool isExplained) {
  std::string text = headOf(walk, bid, library);
  for (const WalkedQuestion& question : walk.questions) {
    text += "    " + questionOf(question.box) + " " + reasonOf(question) + "\n";
    if (isExplained) text += commentary(question.box);
  }
  if (walk.ending == Ending::end || walk.ending == Ending::judgement) {
    text += (walk.ending == Ending::end ? "  > " : "  ? ") + joined(walk.end.text) + "\n";
    if (isExplained) text += commentary(walk.end);
  }
  return text;
}

std::string whoCalls(const Bid& bid, std::size_t turn) {
  const Seat seat = bid.situation.seatAt(turn);
  const bool isSame = seat == bid.walked.last().seat;
  return std::string(hands::nameOf(seat)) + (isSame ? "" : " (partner)");
}

std::string nextLine(const Bid& bid) {
  const ChartWalk& last = bid.walked.last();
  if (!isFollowed(bid) || last.link.empty()) return "";
  std::string line = "next: " + last.link;
  if (bid.walked.nextTurn) line += ", at the turn of " + whoCalls(bid, *bid.walked.nextTurn);
  return line + "\n";
}

// --- for programs -----------------------------------------------------------------

Json jsonOf(const WalkedBox& box) {
  return {{"cell", {box.cell.x, box.cell.y}},
          {"text", joined(box.text)},
          {"commentary", box.commentary}};
}

Json number(double value) {
  const auto whole = static_cast<std::int64_t>(value);
  return static_cast<double>(whole) == value ? Json(whole) : Json(value);
}

Json jsonOf(const Reason& reason) {
  return {{"name", reason.source},
          {"value", number(reason.value)},
          {"text", reason.text},
          {"detail", reason.detail}};
}

Json jsonOf(const WalkedQuestion& question) {
  Json object = jsonOf(question.box);
  object["answer"] = nameOf(question.answer);
  object["judged"] = question.isJudged;
  object["reasons"] = Json::array();
  for (const Reason& reason : question.reasons) object["reasons"].push_back(jsonOf(reason));
  return object;
}

Json jsonOf(Call call) { return call == Call::none ? Json(nullptr) : Json(hands::nameOf(call)); }

Json jsonOf(const ChartWalk& walk, const Bid& bid, const Library& library) {
  Json object;
  object["chart"] = walk.chart->name();
  object["title"] = library.find(walk.chart->name()).title;
  object["seat"] = std::string(1, letterOf(walk.seat));
  object["hand"] = written(walk.hand);
  object["auction"] = written(bid.situation.auction.first(walk.turn));
  object["questions"] = Json::array();
  for (const WalkedQuestion& each : walk.questions) object["questions"].push_back(jsonOf(each));
  object[walk.ending == Ending::judgement ? "open" : "end"] = jsonOf(walk.end);
  object["call"] = jsonOf(walk.call);
  return object;
}

Json nextJson(const Bid& bid) {
  const ChartWalk& last = bid.walked.last();
  if (!isFollowed(bid) || last.link.empty()) return nullptr;
  Json next;
  next["chart"] = last.link;
  next["seat"] = nullptr;
  if (const auto turn = bid.walked.nextTurn) {
    next["seat"] = std::string(1, letterOf(bid.situation.seatAt(*turn)));
    next["who"] = bid.situation.seatAt(*turn) == last.seat ? "self" : "partner";
  }
  return next;
}

Json jsonOf(const Bid& bid, const Library& library) {
  Json object;
  object["call"] = jsonOf(callOf(bid));
  object["outcome"] = nameIn(outcomeNames, bid.walked.outcome);
  object["answers"] = bid.walked.answers();
  object["forcing"] = nullptr;
  if (const auto forcing = forcingOf(bid)) object["forcing"] = nameIn(forcingNames, *forcing);
  if (const auto other = calledInstead(bid)) object["calledInstead"] = jsonOf(*other);
  object["next"] = nextJson(bid);
  object["charts"] = Json::array();
  for (const ChartWalk& each : bid.walked.charts) {
    object["charts"].push_back(jsonOf(each, bid, library));
  }
  return object;
}

}  // namespace

Call callOf(const Bid& bid) {
  return bid.walked.outcome == WalkOutcome::calls ? bid.walked.last().call : Call::none;
}

std::string report(const Bid& bid, const Library& library, bool isExplained) {
  const Call call = callOf(bid);
  std::string text = call == Call::none ? "no call" : shown(call, Charset::utf8);
  text += "\n";
  for (const ChartWalk& walk : bid.walked.charts) {
    text += "\n" + told(walk, bid, library, isExplained);
  }
  const std::string answers = bid.walked.answers();
  text += answers.empty() ? "\n" : "\nanswers: " + answers + "\n";
  if (const auto other = calledInstead(bid)) {
    text += "called instead: " + shown(*other, Charset::utf8) + "\n";
  }
  if (const auto forcing = forcingOf(bid)) {
    text += std::string("forcing: ") + nameIn(forcingWords, *forcing) + "\n";
  }
  return text + nextLine(bid);
}

std::string reportLine(const Bid& bid) {
  const Call call = callOf(bid);
  std::string line = call == Call::none ? "?" : shown(call, Charset::utf8);
  line += "\t" + written(bid.walked.charts.front().hand) + "\t";
  for (const ChartWalk& walk : bid.walked.charts) {
    line += (&walk == &bid.walked.charts.front() ? "" : " ") + walk.chart->name();
  }
  return line + "\t" + bid.walked.answers();
}

std::string reportJson(const Bid& bid, const Library& library, bool isOneLine) {
  return jsonOf(bid, library).dump(isOneLine ? -1 : 2);
}

std::string failureJson(const std::string& why) { return Json{{"error", why}}.dump(); }

std::string questionOf(const WalkedBox& box) { return joined(box.text); }

std::string reasonOf(const WalkedQuestion& question) {
  const std::string answer = nameOf(question.answer);
  if (question.isJudged) return answer + ": your judgement";
  return question.reasons.empty() ? answer : answer + ": " + shown(question.reasons);
}

int statusOf(const Bid& bid) {
  if (openEndOf(bid).empty()) return 0;
  return bid.walked.outcome == WalkOutcome::judgement ? judgementStatus : failureStatus;
}

std::string openEndOf(const Bid& bid) {
  const ChartWalk& last = bid.walked.last();
  const std::string box = "'" + joined(last.end.text) + "'";
  switch (bid.walked.outcome) {
    case WalkOutcome::calls:
      return "";
    case WalkOutcome::called:
      return hands::nameOf(last.call) + " at " + box +
             " has been called already, and no chart goes on";
    case WalkOutcome::waits:
      return hands::nameOf(last.call) + " at " + box + " has been called already, and the chart " +
             last.link + " goes on at the next turn of " + whoCalls(bid, *bid.walked.nextTurn);
    case WalkOutcome::judgement:
      return box + " takes judgement, and nobody is there to ask; on a terminal it is asked";
    case WalkOutcome::noCall:
      return "the chart " + last.chart->name() + " has no call at " + box;
    case WalkOutcome::noExit:
      return "the answer to " + box + " leads nowhere in the chart " + last.chart->name();
    case WalkOutcome::loop:
      return "the way through the charts comes back to " + box;
    case WalkOutcome::noNext:
      return "the chart " + last.chart->name() + " leads from " + box + " into " + last.link +
             ", and doesn't say with whose hand";
    case WalkOutcome::handUnknown:
      return "the chart " + last.link + " goes on with the hand of " +
             whoCalls(bid, *bid.walked.nextTurn) + "; --partner gives it";
    case WalkOutcome::chartUnknown:
      return "the chart " + last.link + " goes on, and it says nothing of hands, or isn't there";
    case WalkOutcome::notForAuction:
      return "the chart " + last.link + " goes on, and it isn't for " +
             auctionNamed(bid.situation.auction.first(*bid.walked.nextTurn));
    case WalkOutcome::notForHand:
      return "the chart " + last.link + " goes on, and it isn't for the hand of " +
             whoCalls(bid, *bid.walked.nextTurn);
  }
  return "";
}

}  // namespace tavrel
