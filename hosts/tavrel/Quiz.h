// tavrel quiz: hands are dealt, and the player says what to call.

#ifndef TAVREL_HOSTS_TAVREL_QUIZ_H
#define TAVREL_HOSTS_TAVREL_QUIZ_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

struct QuizArguments {
  std::vector<std::string> charts;  ///< names or titles; none: all that can be asked of
  int questions = 20;
  bool isExam = false;
  std::optional<std::uint64_t> seed;
  bool reports = false;
  bool forgets = false;
};

/// Asks, or says what the score is, or forgets it. `directory` holds the charts. Throws Failure for
/// charts that no hands can be dealt for, and a score that can't be read or kept.
void takeQuiz(const QuizArguments& arguments, const std::string& directory);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_QUIZ_H
