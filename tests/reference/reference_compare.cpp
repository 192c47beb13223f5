// Random dialogues with the navigator and the plain reference.
//
//     reference_compare --operations N [--first SEED] [--threads N] [--least N] [--figures FILE]
//     reference_compare --seed SEED
//     reference_compare FILE.conversation ...
//
// The first form plays dialogues of the seeds SEED, SEED + 1 ... until so many requests have
// been made, and fails where a behaviour was met fewer than --least times. The others play
// again what one seed makes, or what stands in files. Exit status: 0 alike, 1 a difference
// or a behaviour met too seldom, 2 wrong use.

#include <atomic>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <string>
#include <vector>

#include "tests/reference/Comparison.h"
#include "tests/support/CommandLine.h"
#include "tests/support/Files.h"
#include "tests/support/Threads.h"
#include "tests/support/TimesMet.h"
#include "tests/support/TrialOptions.h"

namespace tavrel::reference {
namespace {

void print(const std::string& origin, const Difference& difference) {
  std::printf("%s: request %zu, %s\n  reference: %s\n  navigator: %s\n", origin.c_str(),
              difference.request, difference.what.c_str(), difference.reference.c_str(),
              difference.navigator.c_str());
}

void printSmallest(const std::string& origin, const Dialogue& dialogue, TemporaryFiles& files) {
  const Dialogue smallest = minimised(dialogue, files);
  if (const auto difference = compare(smallest, files)) print(origin, *difference);
  std::printf("# The smallest conversation, with the answers of the reference:\n%s",
              inNotation(smallest, files).c_str());
  std::fflush(stdout);
}

/// Plays dialogue after dialogue, on several threads.
class Run {
 public:
  explicit Run(const TrialOptions& options) : options_(options), next_(options.first) {}

  bool isClean() {
    onThreads(static_cast<std::size_t>(options_.threads), [this] { work(); });
    return !hasFailed_;
  }

  std::uint64_t operations() const { return operations_; }
  std::uint64_t dialogues() const { return next_ - options_.first; }
  const Behaviours& met() const { return met_; }

 private:
  void work() {
    try {
      TemporaryFiles files;
      Behaviours met;
      while (operations_ < options_.count && !hasFailed_) play(next_++, files, met);
      const std::lock_guard<std::mutex> lock(mutex_);
      met_.add(met);
    } catch (const std::exception& error) {
      std::printf("reference_compare: %s\n", error.what());
      hasFailed_ = true;
    }
  }

  void play(std::uint64_t seed, TemporaryFiles& files, Behaviours& met) {
    try {
      Choices choices(seed);
      const Dialogue dialogue = dialogueFrom(choices);
      operations_ += dialogue.requests.size();
      if (!compare(dialogue, files, &met)) return;
      const std::lock_guard<std::mutex> lock(mutex_);
      if (hasFailed_.exchange(true)) return;
      printSmallest("reference_compare --seed " + std::to_string(seed), dialogue, files);
    } catch (const std::exception& error) {
      std::printf("reference_compare --seed %" PRIu64 ": %s\n", seed, error.what());
      hasFailed_ = true;
    }
  }

  const TrialOptions& options_;
  std::atomic<std::uint64_t> next_, operations_{0};
  std::atomic<bool> hasFailed_{false};
  std::mutex mutex_;
  Behaviours met_;
};

int playMany(const TrialOptions& options) {
  Run run(options);
  if (!run.isClean()) return 1;
  const int seldom = report(run.met(), behaviourWords, options.least, options.figures);
  std::printf("%" PRIu64 " operations in %" PRIu64
              " dialogues, %zu behaviours, %d met too seldom\n",
              run.operations(), run.dialogues(), behaviourCount, seldom);
  return seldom == 0 ? 0 : 1;
}

int playOne(const std::string& origin, const Dialogue& dialogue) {
  TemporaryFiles files;
  if (!compare(dialogue, files)) {
    std::printf("%s: alike, %zu requests\n", origin.c_str(), dialogue.requests.size());
    return 0;
  }
  printSmallest(origin, dialogue, files);
  return 1;
}

int playSeed(std::uint64_t seed) {
  Choices choices(seed);
  return playOne("seed " + std::to_string(seed), dialogueFrom(choices));
}

int playFiles(const std::vector<std::string>& names) {
  int status = 0;
  for (const std::string& name : names) {
    status |= playOne(name, dialogueOf(name, readFile(name), TAVREL_CHARTS));
  }
  return status;
}

int run(const std::vector<std::string>& arguments) {
  const TrialOptions options = trialOptionsOf(arguments, "--operations");
  keepTemporaryFilesInMemory();
  if (options.hasSeed) return playSeed(options.seed);
  if (!options.files.empty()) return playFiles(options.files);
  return playMany(options);
}

}  // namespace
}  // namespace tavrel::reference

int main(int argc, char** argv) {
  try {
    return tavrel::reference::run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "reference_compare: %s\n", error.what());
    return 2;
  }
}
