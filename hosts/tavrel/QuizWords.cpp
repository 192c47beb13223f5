#include "hosts/tavrel/QuizWords.h"

#include <array>

#include "authoring/InShort.h"
#include "hands/Reasons.h"

namespace tavrel {
namespace {

using namespace hands;

std::string shownCall(Call call) { return shown(call, Charset::utf8); }

std::string shownRank(char rank) { return rank == 'T' ? "10" : std::string(1, rank); }

// "♠ A Q 8 5"; a dash for a void.
std::string suitLine(Suit suit, Holding holding) {
  std::string line = symbolOf(suit);
  for (const char rank : ranksOf(holding)) line += " " + shownRank(rank);
  return holding == 0 ? line + " –" : line;
}

// "♠AQ85 ♥KJ7 ♦KQ4 ♣J62"
std::string shownInShort(Hand hand) {
  std::string text;
  for (const Suit suit : suitsAsWritten) {
    const std::string ranks = ranksOf(hand.holding(suit));
    text += (text.empty() ? "" : " ") + std::string(symbolOf(suit)) + (ranks.empty() ? "–" : ranks);
  }
  return text;
}

const char* vulnerabilityOf(const Table& table) {
  if (table.isVulnerable && table.areTheyVulnerable) return "both sides are vulnerable";
  if (table.isVulnerable) return "you are vulnerable, they are not";
  return table.areTheyVulnerable ? "they are vulnerable, you are not" : "nobody is vulnerable";
}

std::string seatOf(const Table& table) {
  constexpr std::array seats = {"You are the dealer", "You sit second", "You sit third",
                                "You sit fourth"};
  return seats[static_cast<std::size_t>(table.auction.seat()) - 1];
}

std::string auctionOf(const Table& table) {
  const std::string calls = shown(table.auction, Charset::utf8);
  return calls.empty() ? "?" : calls + " ?";
}

std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : " ") + line;
  return text;
}

void append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

// The condition that decided between the calls of an end.
std::optional<std::string> conditionOf(const BoxConditions& end, Call made) {
  std::optional<std::string> condition;
  for (const CallChoice& choice : end.calls) {
    if (choice.when) condition = choice.when;
    if (choice.call == made) break;
  }
  return condition;
}

}  // namespace

Lines linesOf(const QuizQuestion& question) {
  Lines lines;
  for (const Suit suit : suitsAsWritten) {
    lines.push_back("  " + suitLine(suit, question.hand.holding(suit)));
  }
  lines.push_back("");
  lines.push_back("  " + seatOf(question.table) + "; " + vulnerabilityOf(question.table) + ".");
  lines.push_back("  " + auctionOf(question.table));
  return lines;
}

std::string inOneLine(const QuizQuestion& question) {
  return shownInShort(question.hand) + "; " + vulnerabilityOf(question.table) + "; " +
         (question.table.auction.size() == 0 ? "you deal" : auctionOf(question.table));
}

Lines quizHelp(bool hasRest) {
  Lines lines = {
      "Type the call that you make with this hand: a bid as its level and its suit,",
      "by letter or symbol, or n for notrump; p for a pass, x for a double, xx for a",
      "redouble. The question mark in the auction is your turn, and calls in",
      "parentheses are the opponents'.",
      "  ?   these lines",
      "  q   stop here",
  };
  if (hasRest) lines.push_back("  m   the rest of the way of the hand before");
  return lines;
}

std::string illegalityOf(Call call, const Auction& auction) {
  const std::string made = shownCall(call);
  if (call == Call::doubled)
    return made + " doubles a bid of the opponents, and there is none to double";
  if (call == Call::redoubled) return made + " needs a double by the opponents, and there is none";
  Call last = Call::none;
  for (const Call each : auction.calls()) {
    if (isBid(each)) last = each;
  }
  return made + " is not above " + shownCall(last) + ", and a bid has to be";
}

std::string shownEnd(const HandChart& chart, BoxIndex end) {
  const std::string text = authoring::inShort(joined(chart[end].text));
  const std::string name = chart.nameOf(end);
  return name.front() == '"' ? text : text + " (" + name + ")";
}

Correction::Correction(const DealtQuestion& asked, Call given)
    : chart_(*asked.chart), walker_(chart_.dealer.walker()), given_(given) {
  right_ = chart_.dealer.walk(asked.question);
  parting_ = partingOf(walker_, given);
}

Lines Correction::text(BoxIndex box) const {
  Lines lines;
  for (const std::string& line : walker_.chart()[box].text) lines.push_back("| " + line);
  return lines;
}

Lines Correction::commentary(BoxIndex box) const {
  Lines lines;
  for (const std::string& line : chart_.commentaries[box]) lines.push_back("  " + line);
  return lines;
}

// "yes: 16 (A4 Q2 K3 J1 K3 Q2 J1)"
std::string Correction::answer(std::size_t step) {
  const auto& [box, answer] = walker_.steps()[step];
  const std::string word = answer == Answer::yes ? "yes" : "no";
  const std::string reasons =
      shown(reasonsOf(*walker_.chart()[box].conditions->when, walker_.evaluation()));
  return reasons.empty() ? word : word + ": " + reasons;
}

Lines Correction::step(std::size_t number) {
  Lines lines = text(walker_.steps()[number].box);
  lines.push_back("> " + answer(number));
  return lines;
}

Lines Correction::end() {
  const auto condition = conditionOf(*walker_.chart()[walker_.end()].conditions, right_);
  const std::string reasons =
      condition ? shown(reasonsOf(*condition, walker_.evaluation())) : std::string();
  Lines lines = text(walker_.end());
  lines.push_back("> " + shownCall(right_) + (reasons.empty() ? "" : ": " + reasons));
  append(lines, commentary(walker_.end()));
  return lines;
}

Lines Correction::parting() {
  Lines lines = {"No: the chart says " + shownCall(right_) + ", not " + shownCall(given_) + "."};
  if (!parting_) {
    lines.push_back("No end of the chart makes that call here. It begins so:");
  } else {
    lines.push_back(isAtEnd() ? "You part at the end:" : "You part here:");
  }
  lines.push_back("");
  append(lines, isAtEnd() ? end() : question());
  return lines;
}

// The question where the ways part, and where the other way leads.
Lines Correction::question() {
  const Step& parted = walker_.steps()[shownStep()];
  Lines lines = step(shownStep());
  append(lines, commentary(parted.box));
  if (!parting_) return lines;
  lines.push_back("");
  lines.push_back("The other answer can lead to: " + joined(walker_.chart()[parting_->end].text));
  return lines;
}

Lines Correction::rest() {
  if (isAtEnd()) return {"That was the end of the way."};
  Lines lines;
  for (std::size_t i = shownStep() + 1; i < walker_.steps().size(); ++i) {
    append(lines, step(i));
    lines.push_back("");
  }
  append(lines, end());
  return lines;
}

std::string Correction::inShort() {
  if (isAtEnd()) return joined(walker_.chart()[walker_.end()].text);
  return joined(walker_.chart()[walker_.steps()[shownStep()].box].text) + " " + answer(shownStep());
}

}  // namespace tavrel
