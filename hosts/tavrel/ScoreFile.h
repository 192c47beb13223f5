// The file in which the quiz keeps the score from one day to the next.

#ifndef TAVREL_HOSTS_TAVREL_SCOREFILE_H
#define TAVREL_HOSTS_TAVREL_SCOREFILE_H

#include <filesystem>
#include <functional>

#include "hands/Score.h"

namespace tavrel {

/// "tavrel/quiz-score" in the user's state directory: $XDG_STATE_HOME, or else
/// $HOME/.local/state. All throw Failure where it can't be read or written, or holds something
/// else; it is left alone then.
class ScoreFile {
 public:
  ScoreFile();

  /// No answers, while there is no file.
  hands::Score read() const;

  /// Changes what is in the file now, while no other program does: those that change it too wait
  /// for one another. Returns the score that it has then. Nobody ever sees half of a file.
  hands::Score change(const std::function<void(hands::Score&)>& change) const;

 private:
  std::filesystem::path path_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_SCOREFILE_H
