// Counts what operations cost on flowcharts of a size, of twice and of four times it.
//
//     growth --list            the measures, a name on each line
//     growth NAME...           counts these, under callgrind

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "tests/limits/Counted.h"
#include "tests/limits/Measures.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace {

std::vector<Measure> growthMeasures() {
  std::vector<Measure> all = readingMeasures();
  for (const auto& some : {lineMeasures(), findMeasures(), otherMeasures()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

void list() {
  for (const Measure& measure : growthMeasures()) std::cout << measure.name << '\n';
}

// The names that callgrind writes: "a find: a row with gaps, last|8000".
void count(const Measure& measure) {
  for (const std::size_t times : {std::size_t{1}, std::size_t{2}, std::size_t{4}}) {
    const std::size_t size = times * measure.size;
    measure.count(size, measure.name + "|" + std::to_string(size));
  }
}

void countAll(const std::vector<std::string>& names) {
  const TemporaryDirectory directory;
  std::filesystem::current_path(directory.path());
  for (const Measure& measure : growthMeasures()) {
    if (std::find(names.begin(), names.end(), measure.name) != names.end()) count(measure);
  }
}

}  // namespace
}  // namespace tavrel

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  try {
    if (arguments == std::vector<std::string>{"--list"}) {
      tavrel::list();
    } else {
      tavrel::countAll(arguments);
    }
  } catch (const std::exception& exception) {
    std::cerr << argv[0] << ": " << exception.what() << '\n';
    return 1;
  }
}
