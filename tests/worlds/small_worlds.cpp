// Tries all charts of a small world, or every n-th.
//
//     small_worlds occupancies|lines|answers [--every N] [--threads N]
//
// Prints the world's size, how many charts were tried and how many requests that took. Exit
// status: 0 alike, 1 a difference, which is printed, 2 wrong use.

#include <algorithm>
#include <atomic>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tests/support/CommandLine.h"
#include "tests/support/Threads.h"
#include "tests/worlds/Worlds.h"

namespace tavrel::worlds {
namespace {

struct Options {
  std::string world;
  std::uint64_t every = 1, threads = 1;
};

Options optionsOf(const std::vector<std::string>& arguments) {
  Options options;
  if (arguments.empty() || arguments.size() % 2 == 0) throw WrongUse("name a world");
  options.world = arguments[0];
  for (std::size_t i = 1; i < arguments.size(); i += 2) {
    std::uint64_t* const option = arguments[i] == "--every"     ? &options.every
                                  : arguments[i] == "--threads" ? &options.threads
                                                                : nullptr;
    if (option == nullptr) throw WrongUse("unknown option " + arguments[i]);
    *option = number(arguments[i + 1]);
    if (*option == 0) throw WrongUse(arguments[i] + " takes a number from 1");
  }
  return options;
}

std::unique_ptr<World> worldNamed(const std::string& name) {
  if (name == "occupancies") return std::make_unique<Occupancies>();
  if (name == "lines") return std::make_unique<LinesBetween>();
  if (name == "answers") return std::make_unique<Answers>();
  throw WrongUse("unknown world " + name);
}

/// Takes the world's charts sheet by sheet, on several threads.
class Tour {
 public:
  Tour(const World& world, std::size_t every) : world_(world), every_(every) {}

  bool isClean(std::size_t threads) {
    onThreads(threads, [this] { work(); });
    return !hasFailed_;
  }

  std::size_t charts() const { return charts_; }
  std::uint64_t requests() const { return requests_; }

 private:
  void work() {
    try {
      Sheet sheet;
      while (!hasFailed_ && trySheet(next_++ * Sheet::room * every_, sheet)) continue;
      requests_ += sheet.requests();
    } catch (const std::exception& error) {
      hasFailed_ = true;
      const std::lock_guard<std::mutex> lock(mutex_);
      std::printf("%s\n", error.what());
    }
  }

  bool trySheet(std::size_t first, Sheet& sheet) {
    std::vector<std::string> files;
    for (std::size_t i = first; i < world_.size() && files.size() < Sheet::room; i += every_) {
      files.push_back(world_.file(i));
    }
    if (files.empty()) return false;
    sheet.lay(files);
    for (std::size_t i = 0; i < files.size(); ++i) world_.tryChart(i, sheet);
    charts_ += files.size();
    return true;
  }

  const World& world_;
  const std::size_t every_;
  std::atomic<std::size_t> next_{0}, charts_{0};
  std::atomic<std::uint64_t> requests_{0};
  std::atomic<bool> hasFailed_{false};
  std::mutex mutex_;
};

int run(const std::vector<std::string>& arguments) {
  const Options options = optionsOf(arguments);
  reference::keepTemporaryFilesInMemory();
  const std::unique_ptr<World> world = worldNamed(options.world);
  Tour tour(*world, static_cast<std::size_t>(options.every));
  const bool isClean = tour.isClean(static_cast<std::size_t>(options.threads));
  std::printf("%s: %zu charts, %zu tried, %" PRIu64 " requests\n", options.world.c_str(),
              world->size(), tour.charts(), tour.requests());
  return isClean ? 0 : 1;
}

}  // namespace
}  // namespace tavrel::worlds

int main(int argc, char** argv) {
  try {
    return tavrel::worlds::run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "small_worlds: %s\n", error.what());
    return 2;
  }
}
