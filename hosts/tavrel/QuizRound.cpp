#include "hosts/tavrel/QuizRound.h"

#include <algorithm>

#include "authoring/InShort.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/QuizTable.h"
#include "hosts/tavrel/Words.h"
#include "text/NearMiss.h"

namespace tavrel {
namespace {

using hands::Call;

// What is typed beyond that is no call, and not kept.
constexpr std::size_t longestLine = 1000;

// Blanks may stand anywhere in a call.
std::string withoutBlanks(const std::string& line) {
  std::string word;
  std::copy_if(line.begin(), line.end(), std::back_inserter(word),
               [](char c) { return c != ' ' && c != '\t' && c != '\r'; });
  return word;
}

std::string rightOf(std::size_t right, std::size_t all) {
  return std::to_string(right) + " of " + std::to_string(all) + " right";
}

std::string shownCall(Call call) { return hands::shown(call, Charset::utf8); }

}  // namespace

void QuizRound::play(int questions, bool isExam, hands::Random random) {
  hands::Score score = scoreFile_.change([](hands::Score&) {});
  for (int number = 1; number <= questions && !isOver_; ++number) {
    const std::optional<DealtQuestion> asked = charts_.deal(score, random);
    if (!asked) throw Failure("no hand was found that the charts have a call for");
    ask(number, questions, *asked);
    const std::optional<Call> given = readCall(asked->question.table.auction);
    if (!given) break;
    const bool isRight = *given == asked->chart->dealer.walk(asked->question);
    answers_.push_back({*asked, *given, isRight});
    score = scoreFile_.change([&](hands::Score& kept) { kept.note(asked->end, isRight); });
    rest_.clear();
    if (!isExam) correct(answers_.back());
  }
  tellResult(isExam);
}

void QuizRound::ask(int number, int questions, const DealtQuestion& asked) {
  beginPage();
  const CatalogueEntry& chart = asked.chart->entry;
  out_.line("Question " + std::to_string(number) + " of " + std::to_string(questions) + ". " +
            chart.title);
  out_.line();
  out_.block(linesOf(asked.question));
}

// With the word on the hand before.
void QuizRound::beginPage() {
  out_.newPage();
  if (!isPraised_) return;
  out_.line("Right.");
  out_.line();
  isPraised_ = false;
}

// std::nullopt when the player wants no more.
std::optional<Call> QuizRound::readCall(const hands::Auction& auction) {
  std::string line;
  out_.line();
  while (out_.prompt("Your call: "), readLine(line)) {
    const std::string word = lowerCase(withoutBlanks(line));
    if (word == "q" || word == "quit") return std::nullopt;
    if (const std::optional<Call> call = callIn(word, auction)) return call;
  }
  out_.line();
  return std::nullopt;
}

// The call, if the word is one that may be made; else the word has been answered.
std::optional<Call> QuizRound::callIn(const std::string& word, const hands::Auction& auction) {
  if (word.empty()) return std::nullopt;
  const std::optional<Call> call = hands::callIn(word);
  if (call && auction.allows(*call)) return call;
  if (call) {
    out_.line(sentence(illegalityOf(*call, auction)));
  } else if (word == "?" || word == "help") {
    out_.block(quizHelp(!rest_.empty()));
  } else if (word == "m" || word == "more") {
    out_.block(rest_.empty() ? Lines{"There is no way of a hand before to show."} : rest_);
  } else {
    out_.line("'" + authoring::inShort(word) + "' is no call; ? shows what can be typed.");
  }
  return std::nullopt;
}

void QuizRound::correct(const Answer& answer) {
  isPraised_ = answer.isRight;
  if (answer.isRight) return;
  out_.newPage();
  Correction correction(answer.asked, answer.given);
  out_.block(linesOf(answer.asked.question));
  out_.line();
  out_.block(correction.parting());
  rest_ = correction.rest();
  if (!out_.isTerminal()) return;
  pause();
  rest_.clear();  // which has no place beside the next question
}

// Until the player has read.
void QuizRound::pause() {
  std::string line;
  out_.line();
  while (out_.prompt("Enter: the next hand. m: the rest of the way. q: stop. "), readLine(line)) {
    const std::string word = lowerCase(withoutBlanks(line));
    isOver_ = word == "q" || word == "quit";
    if (word != "m" && word != "more") return;
    out_.line();
    out_.block(rest_);
    out_.line();
  }
  out_.line();
  isOver_ = true;
}

void QuizRound::tellResult(bool isExam) {
  const auto right = std::count_if(answers_.begin(), answers_.end(),
                                   [](const Answer& answer) { return answer.isRight; });
  beginPage();
  if (isExam && !answers_.empty()) {
    tellTable();
    tellMisses();
  }
  out_.line(answers_.empty() ? "Nothing was answered."
                             : rightOf(static_cast<std::size_t>(right), answers_.size()));
}

void QuizRound::tellTable() {
  QuizTable table;
  for (const Answer& answer : answers_) {
    const hands::HandChart& chart = answer.asked.chart->dealer.chart();
    const CatalogueEntry& entry = answer.asked.chart->entry;
    table.add(entry.name + ": " + entry.title, shownEnd(chart, answer.asked.box),
              answer.isRight ? 1 : 0, 1);
  }
  out_.block(table.lines());
  out_.line();
}

void QuizRound::tellMisses() {
  std::size_t number = 0;
  for (const Answer& answer : answers_) {
    ++number;
    if (answer.isRight) continue;
    Correction correction(answer.asked, answer.given);
    out_.line(std::to_string(number) + ". " + inOneLine(answer.asked.question));
    out_.line("   You: " + shownCall(answer.given) +
              ". The chart: " + shownCall(correction.chartsCall()) + ". " +
              (correction.isWithoutParting() ? "No end makes your call; the chart begins so:"
                                             : "You part at:"));
    out_.line("   " + correction.inShort());
    out_.line();
  }
}

// A line, of which no more is kept than a call could be; false at the end of the input.
bool QuizRound::readLine(std::string& line) {
  line.clear();
  int byte = 0;
  while ((byte = in_.get()) != std::istream::traits_type::eof() && byte != '\n') {
    if (line.size() < longestLine) line += static_cast<char>(byte);
  }
  if (byte != '\n' && line.empty()) return false;
  if (!out_.isTerminal()) out_.line(authoring::inShort(line));
  return true;
}

}  // namespace tavrel
