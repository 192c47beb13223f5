// Eight navigators, made by eight threads at the same moment, and then eight threads
// that hold all the conversations, each with charts and navigators of its own.
//
//     eight_navigators CHARTS CONVERSATION...
//
// Status 1, after words on standard error, if a thread got other titles or answers; 2 if
// a file can't be played. Of use above all under the thread sanitizer.

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <exception>
#include <string>
#include <thread>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/builds/Transcript.h"
#include "tests/support/ExceptionText.h"

namespace {

constexpr int kThreads = 8;

/// Lets the threads go once all of them have come.
class StartingLine {
 public:
  void wait() {
    ++arrived_;
    while (arrived_ < kThreads) std::this_thread::yield();
  }

 private:
  std::atomic<int> arrived_{0};
};

struct Runner {
  std::vector<std::string> titles;
  tavrel::Transcript transcript;
  std::string failure;

  void run(StartingLine& line, const std::vector<std::string>& files, const std::string& charts) {
    try {
      line.wait();
      const Tavrel navigator(charts);
      titles = navigator.flowchartTitles();
      transcript = tavrel::transcriptOf(files, charts);
    } catch (const std::exception& error) {
      failure = tavrel::textOf(error);
    }
  }
};

using Runners = std::array<Runner, kThreads>;

void runAll(Runners& runners, const std::vector<std::string>& files, const std::string& charts) {
  StartingLine line;
  std::vector<std::thread> threads;
  for (Runner& runner : runners) {
    threads.emplace_back([&] { runner.run(line, files, charts); });
  }
  for (std::thread& thread : threads) thread.join();
}

int statusOf(const Runner& runner, const Runner& first) {
  std::fputs((runner.failure + runner.transcript.differences).c_str(), stderr);
  if (!runner.failure.empty()) return 2;
  const bool isAlike = runner.titles.size() == 45 && runner.titles == first.titles &&
                       runner.transcript.text == first.transcript.text;
  if (!isAlike) std::fputs("one thread's answers are not another's\n", stderr);
  return isAlike && runner.transcript.differences.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("usage: eight_navigators CHARTS CONVERSATION...\n", stderr);
    return 2;
  }
  Runners runners;
  runAll(runners, {arguments + 2, arguments + count}, arguments[1]);
  int status = 0;
  for (const Runner& runner : runners) status = std::max(status, statusOf(runner, runners[0]));
  std::printf("%d navigators on %d threads\n", kThreads, kThreads);
  return status;
}
