// One round of the quiz: question by question, and the result.

#ifndef TAVREL_HOSTS_TAVREL_QUIZROUND_H
#define TAVREL_HOSTS_TAVREL_QUIZROUND_H

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "hosts/tavrel/InkedLines.h"
#include "hosts/tavrel/QuizCharts.h"
#include "hosts/tavrel/QuizWords.h"
#include "hosts/tavrel/ScoreFile.h"

namespace tavrel {

/// While a question stands, nothing is on the screen but the question: a terminal begins a new
/// page for each. Without a terminal there are the same lines, one below the other, with what was
/// read, and a line of input for each question.
class QuizRound {
 public:
  /// All must outlive the round.
  QuizRound(QuizCharts& charts, const ScoreFile& scoreFile, InkedLines& out, std::istream& in)
      : charts_(charts), scoreFile_(scoreFile), out_(out), in_(in) {}

  /// Asks so many questions, fewer when the player stops or the input ends, and tells the result.
  /// In an exam, nothing is told before that. Throws Failure if the score can't be kept, and if
  /// there is no hand to be dealt.
  void play(int questions, bool isExam, hands::Random random);

 private:
  struct Answer {
    DealtQuestion asked;
    hands::Call given;
    bool isRight;
  };

  void ask(int number, int questions, const DealtQuestion& asked);
  void beginPage();
  std::optional<hands::Call> readCall(const hands::Auction& auction);
  std::optional<hands::Call> callIn(const std::string& word, const hands::Auction& auction);
  void correct(const Answer& answer);
  void pause();
  void tellResult(bool isExam);
  void tellTable();
  void tellMisses();
  bool readLine(std::string& line);

  QuizCharts& charts_;
  const ScoreFile& scoreFile_;
  InkedLines& out_;
  std::istream& in_;
  std::vector<Answer> answers_;
  bool isPraised_ = false;  // the answer before was right, and that has not been said
  Lines rest_;              // of the way of the hand before
  bool isOver_ = false;     // the player wants no more
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_QUIZROUND_H
