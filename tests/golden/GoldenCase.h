// A test in a text file: commands with what they print or show, in the notation of
// the conversations. README.md describes it.

#ifndef TAVREL_TESTS_GOLDEN_GOLDENCASE_H
#define TAVREL_TESTS_GOLDEN_GOLDENCASE_H

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/ChartDirectory.h"
#include "tests/support/Operation.h"

namespace tavrel {

/// Where a case's charts are, and what its text calls the directories that depend
/// on the machine.
class Places {
 public:
  const ChartDirectory& here() const { return here_; }

  /// The text with {here} and {charts} replaced by directories.
  std::string expanded(std::string text) const;
  std::vector<Word> expanded(std::vector<Word> words) const;

  /// The text with directories replaced by {here} and {charts}.
  std::string abstracted(std::string text) const;

 private:
  ChartDirectory here_;
};

using PlayStep = std::function<Answer(const Operation&, const Places&)>;

/// Plays the file's steps in order, in a directory of their own: those that make its
/// files here, the others by `play`. Expects the answers written in the file, or writes them there.
void playGoldenCase(const std::filesystem::path& file, const PlayStep& play);

}  // namespace tavrel

#endif  // TAVREL_TESTS_GOLDEN_GOLDENCASE_H
