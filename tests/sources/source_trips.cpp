// Sources, there and back: compiled, and walked through the client interface.
//
//     source_trips --count N [--first SEED] [--threads N] [--least N] [--figures FILE]
//     source_trips --seed SEED
//     source_trips FILE ...
//
// The first form tries the random sources of the seeds SEED, SEED + 1 ..., and fails where a
// feature was met fewer than --least times. The others try what one seed makes, or what stands
// in files; of a document, NAME.md, each example in YAML that compiles. A walk that differs is
// printed with the source, which may be tried again as a file. Exit status: 0 alike, 1 a
// difference or a feature met too seldom, 2 wrong use.

#include <atomic>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <mutex>
#include <string>
#include <vector>

#include "tests/reference/ChartFiles.h"
#include "tests/sources/RandomSource.h"
#include "tests/sources/Trip.h"
#include "tests/support/CommandLine.h"
#include "tests/support/Files.h"
#include "tests/support/Threads.h"
#include "tests/support/TimesMet.h"
#include "tests/support/TrialOptions.h"

namespace tavrel::sources {
namespace {

void print(const std::string& origin, const std::string& what, const std::string& source) {
  std::printf("%s: %s\n# The source:\n%s", origin.c_str(), what.c_str(), source.c_str());
  std::fflush(stdout);
}

bool isGood(Outcome outcome) { return outcome == Outcome::alike || outcome == Outcome::noWayBack; }

/// Tries source after source, on several threads.
class Run {
 public:
  explicit Run(const TrialOptions& options) : options_(options), next_(options.first) {}

  bool isClean() {
    onThreads(static_cast<std::size_t>(options_.threads), [this] { work(); });
    return !hasFailed_;
  }

  std::uint64_t walked() const { return walked_; }
  const Features& met() const { return met_; }

 private:
  void work() {
    try {
      Traveller traveller;
      Features met;
      for (std::uint64_t seed = next_++; seed < options_.first + options_.count && !hasFailed_;
           seed = next_++) {
        travel(seed, traveller, met);
      }
      const std::lock_guard<std::mutex> lock(mutex_);
      met_.add(met);
    } catch (const std::exception& error) {
      std::printf("source_trips: %s\n", error.what());
      hasFailed_ = true;
    }
  }

  void travel(std::uint64_t seed, Traveller& traveller, Features& met) {
    const std::string source = randomSource(seed, met);
    const Result result = traveller.travel("Opening.yaml", source, met);
    if (result.outcome == Outcome::alike) ++walked_;
    if (isGood(result.outcome)) return;
    const std::lock_guard<std::mutex> lock(mutex_);
    if (hasFailed_.exchange(true)) return;
    print("source_trips --seed " + std::to_string(seed), result.text, source);
  }

  const TrialOptions& options_;
  std::atomic<std::uint64_t> next_, walked_{0};
  std::atomic<bool> hasFailed_{false};
  std::mutex mutex_;
  Features met_;
};

int tryMany(const TrialOptions& options) {
  Run run(options);
  if (!run.isClean()) return 1;
  const int seldom = report(run.met(), featureWords, options.least, options.figures);
  std::printf("%" PRIu64 " sources, %" PRIu64 " walked, %zu features, %d met too seldom\n",
              options.count, run.walked(), featureCount, seldom);
  return seldom == 0 ? 0 : 1;
}

int trySeed(std::uint64_t seed) {
  Features met;
  const std::string source = randomSource(seed, met);
  const Result result = Traveller().travel("Opening.yaml", source, met);
  const char* const words[] = {"alike", "no way for a line back", "refused", "differs"};
  print(words[static_cast<std::size_t>(result.outcome)], result.text, source);
  return isGood(result.outcome) ? 0 : 1;
}

/// What stands between lines of three backquotes, as YAML in a file of any name.
std::vector<std::string> examplesIn(const std::string& document) {
  const std::string begin = "\n```yaml", end = "\n```\n";
  std::vector<std::string> examples;
  for (std::size_t at = document.find(begin); at != std::string::npos;
       at = document.find(begin, at + 1)) {
    const std::size_t first = document.find('\n', at + 1) + 1;
    examples.push_back(document.substr(first, document.find(end, first) + 1 - first));
  }
  return examples;
}

/// A document also shows sources that don't compile.
int tryFile(const std::string& name) {
  const bool isDocument = name.size() > 3 && name.compare(name.size() - 3, 3, ".md") == 0;
  const std::string bytes = readFile(name);
  const std::vector<std::string> sources =
      isDocument ? examplesIn(bytes) : std::vector<std::string>{bytes};
  Traveller traveller;
  int alike = 0;
  for (const std::string& source : sources) {
    Features met;
    const Result result = traveller.travel(name, source, met);
    if (result.outcome == Outcome::alike) {
      ++alike;
    } else if (!isDocument || result.outcome == Outcome::differs) {
      print(name, result.text, source);
      return 1;
    }
  }
  std::printf("%s: %d of %zu sources walked\n", name.c_str(), alike, sources.size());
  return alike > 0 ? 0 : 1;
}

int run(const std::vector<std::string>& arguments) {
  const TrialOptions options = trialOptionsOf(arguments, "--count");
  reference::keepTemporaryFilesInMemory();
  if (options.hasSeed) return trySeed(options.seed);
  if (options.files.empty()) return tryMany(options);
  int status = 0;
  for (const std::string& file : options.files) status |= tryFile(file);
  return status;
}

}  // namespace
}  // namespace tavrel::sources

int main(int argc, char** argv) {
  try {
    return tavrel::sources::run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "source_trips: %s\n", error.what());
    return 2;
  }
}
