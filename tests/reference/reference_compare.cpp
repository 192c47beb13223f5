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
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "tests/reference/Comparison.h"
#include "tests/support/CommandLine.h"
#include "tests/support/Files.h"
#include "tests/support/Threads.h"

namespace tavrel::reference {
namespace {

struct Options {
  std::uint64_t operations = 0, first = 1, threads = 1, least = 0, seed = 0;
  bool hasSeed = false;
  std::string figures;
  std::vector<std::string> conversations;
};

void takeOption(const std::string& name, const std::string& value, Options& options) {
  std::map<std::string, std::uint64_t*> numbers = {{"--operations", &options.operations},
                                                   {"--first", &options.first},
                                                   {"--threads", &options.threads},
                                                   {"--least", &options.least},
                                                   {"--seed", &options.seed}};
  if (name == "--figures") {
    options.figures = value;
  } else if (numbers.count(name) > 0) {
    *numbers[name] = number(value);
    options.hasSeed |= name == "--seed";
  } else {
    throw WrongUse("unknown option " + name);
  }
}

Options optionsOf(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i].compare(0, 2, "--") != 0) {
      options.conversations.push_back(arguments[i]);
    } else if (i + 1 == arguments.size()) {
      throw WrongUse(arguments[i] + " takes a value");
    } else {
      takeOption(arguments[i], arguments[i + 1], options);
      ++i;
    }
  }
  const bool isAny = options.operations > 0 || options.hasSeed || !options.conversations.empty();
  if (!isAny || options.threads == 0) throw WrongUse("nothing to do");
  return options;
}

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
  explicit Run(const Options& options) : options_(options), next_(options.first) {}

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
      while (operations_ < options_.operations && !hasFailed_) play(next_++, files, met);
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

  const Options& options_;
  std::atomic<std::uint64_t> next_, operations_{0};
  std::atomic<bool> hasFailed_{false};
  std::mutex mutex_;
  Behaviours met_;
};

/// Writes how often each behaviour was met; returns how many were met too seldom.
int report(const Behaviours& met, std::uint64_t least, std::FILE* to) {
  int seldom = 0;
  for (std::size_t i = 0; i < behaviourCount; ++i) {
    const bool isSeldom = met.times[i] < least;
    seldom += isSeldom ? 1 : 0;
    std::fprintf(to, "%12" PRIu64 "  %s%s\n", met.times[i], behaviourWords[i],
                 isSeldom ? "  (too seldom)" : "");
  }
  return seldom;
}

/// The same into the file of that name, or to standard output without one.
int report(const Behaviours& met, std::uint64_t least, const std::string& figures) {
  if (figures.empty()) return report(met, least, stdout);
  OpenFile file(std::fopen(figures.c_str(), "w"));
  const int seldom = file ? report(met, least, file.get()) : 0;
  const bool isWritten = file && std::ferror(file.get()) == 0;
  if (!isWritten || std::fclose(file.release()) != 0) throw WrongUse("can't write " + figures);
  return seldom;
}

int playMany(const Options& options) {
  Run run(options);
  if (!run.isClean()) return 1;
  const int seldom = report(run.met(), options.least, options.figures);
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
  const Options options = optionsOf(arguments);
  keepTemporaryFilesInMemory();
  if (options.hasSeed) return playSeed(options.seed);
  if (!options.conversations.empty()) return playFiles(options.conversations);
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
