#include "bench/Contest.h"

#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>

namespace tavrel::bench {
namespace {

constexpr std::size_t warmUpRounds = 3;
constexpr std::size_t leastRounds = 25;

double processorNanoseconds() {
  timespec time;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

double timed(const Contestant& contestant) {
  if (contestant.prepare) contestant.prepare();
  const double start = processorNanoseconds();
  contestant.work();
  return processorNanoseconds() - start;
}

struct Spread {
  double low, median, high;  // the quartiles
};

Spread spreadOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const auto quantile = [&](double part) {
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
  };
  return {quantile(0.25), quantile(0.5), quantile(0.75)};
}

class Rounds {
 public:
  Rounds(const Question& question, const std::vector<Contestant>& contestants)
      : question_(question), contestants_(contestants), times_(contestants.size()) {}

  void warmUp() {
    for (std::size_t round = 0; round < warmUpRounds; ++round) {
      for (const Contestant& contestant : contestants_) timed(contestant);
    }
    requireEqualChecksums();
  }

  void run(double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (times_[0].size() < leastRounds || Clock::now() < end) runOne();
    requireEqualChecksums();
  }

  void print() const {
    for (std::size_t i = 0; i < contestants_.size(); ++i) printRow(i);
  }

 private:
  void runOne() {
    const std::size_t count = contestants_.size();
    const std::size_t round = times_[0].size();
    for (std::size_t turn = 0; turn < count; ++turn) {
      const std::size_t i = (round + turn) % count;
      times_[i].push_back(timed(contestants_[i]) / static_cast<double>(question_.pieces));
    }
  }

  void requireEqualChecksums() const {
    std::optional<std::uint64_t> agreed;
    for (const Contestant& contestant : contestants_) {
      if (!contestant.checksum) continue;
      const std::uint64_t sum = contestant.checksum();
      if (agreed.value_or(sum) != sum) {
        std::cerr << question_.name << ", " << question_.input << ": " << contestant.name
                  << " makes something else than " << contestants_.front().name << '\n';
        std::exit(2);
      }
      agreed = sum;
    }
  }

  Spread ratioTo(std::size_t rival) const {
    std::vector<double> ratios;
    for (std::size_t round = 0; round < times_[0].size(); ++round) {
      const double ratio = times_[0][round] / times_[rival][round];
      ratios.push_back(contestants_[rival].rival == Rival::floor ? ratio : 1 / ratio);
    }
    return spreadOf(std::move(ratios));
  }

  void printRow(std::size_t i) const {
    const Contestant& contestant = contestants_[i];
    const Spread time = spreadOf(times_[i]);
    std::printf("%s\t%s\t%s\tns\t%.6g\t%.6g\t%.6g\t", question_.name.c_str(),
                question_.input.c_str(), contestant.name.c_str(), time.low, time.median, time.high);
    if (contestant.rival == Rival::itself) {
      std::printf("itself\t\t\t\t");
    } else {
      const Spread ratio = ratioTo(i);
      std::printf("%s\t%.4g\t%.4g\t%.4g\t", contestant.rival == Rival::floor ? "floor" : "peer",
                  ratio.low, ratio.median, ratio.high);
    }
    std::printf("%s\n", contestant.bar == noBar ? "" : std::to_string(contestant.bar).c_str());
    std::fflush(stdout);
  }

  const Question& question_;
  const std::vector<Contestant>& contestants_;
  std::vector<std::vector<double>> times_;  // by contestant, then by round
};

}  // namespace

void compete(const Question& question, const std::vector<Contestant>& contestants, double seconds) {
  Rounds rounds(question, contestants);
  rounds.warmUp();
  rounds.run(seconds);
  rounds.print();
}

void reportCount(const Question& question, const std::string& what, std::size_t count,
                 std::size_t bar) {
  std::printf("%s\t%s\t%s\tcount\t%zu\t%zu\t%zu\titself\t\t\t\t%zu\n", question.name.c_str(),
              question.input.c_str(), what.c_str(), count, count, count, bar);
}

double secondsAsked(int argc, char** argv, double usual) {
  if (argc == 1) return usual;
  char* end = nullptr;
  const double seconds = argc == 2 ? std::strtod(argv[1], &end) : 0;
  if (end != nullptr && *end == '\0' && seconds > 0) return seconds;
  std::cerr << "usage: " << argv[0] << " [SECONDS]\n";
  std::exit(2);
}

void keepFreedMemory() {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

}  // namespace tavrel::bench
