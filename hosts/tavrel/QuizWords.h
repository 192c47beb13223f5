// What the quiz says, in lines. Suits stand as symbols; whoever shows the lines knows better.

#ifndef TAVREL_HOSTS_TAVREL_QUIZWORDS_H
#define TAVREL_HOSTS_TAVREL_QUIZWORDS_H

#include <cstddef>
#include <string>
#include <vector>

#include "hands/Parting.h"
#include "hosts/tavrel/QuizCharts.h"

namespace tavrel {

using Lines = std::vector<std::string>;

/// The hand, the seat, the vulnerability and the auction: all that a player may know who has to
/// call, and nothing of what the chart makes of it.
Lines linesOf(const hands::QuizQuestion& question);

/// The same in one line.
std::string inOneLine(const hands::QuizQuestion& question);

/// What can be typed; the rest of an earlier hand's way, if there is one to be shown.
Lines quizHelp(bool hasRest);

/// Why the laws don't allow a call now, as a clause. REQUIRES: they don't, and the auction is not
/// over.
std::string illegalityOf(hands::Call call, const hands::Auction& auction);

/// An end as tables name it: its text, and its name if it has one of its own.
std::string shownEnd(const hands::HandChart& chart, hands::BoxIndex end);

/// Says where a chart and a call that is not the hand's part, and why. Walks the question.
class Correction {
 public:
  /// REQUIRES: the chart's call is another one. The question must outlive this, and the chart's
  /// dealer walk no other hand meanwhile.
  Correction(const DealtQuestion& asked, hands::Call given);

  hands::Call chartsCall() const { return right_; }

  /// Whether no end of the chart makes the call that was given: they part from the beginning.
  bool isWithoutParting() const { return !parting_; }

  /// The question where they part, with its answer and its commentary.
  Lines parting();

  /// The rest of the hand's way, to the end and its commentary.
  Lines rest();

  /// The parting in a line, for a list.
  std::string inShort();

 private:
  std::size_t shownStep() const { return parting_ ? parting_->step : 0; }
  bool isAtEnd() const { return shownStep() == walker_.steps().size(); }
  Lines text(hands::BoxIndex box) const;
  Lines commentary(hands::BoxIndex box) const;
  Lines step(std::size_t number);
  Lines question();
  Lines end();
  std::string answer(std::size_t step);

  QuizChart& chart_;
  hands::Walker& walker_;
  const hands::Call given_;
  hands::Call right_;
  std::optional<hands::Parting> parting_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_QUIZWORDS_H
