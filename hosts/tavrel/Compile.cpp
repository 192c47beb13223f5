#include "hosts/tavrel/Compile.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <map>
#include <system_error>
#include <thread>

#include "authoring/Compiler.h"
#include "hands/ConditionCompiler.h"
#include "hosts/tavrel/ChartFiles.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/Library.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace authoring;

// Where the file of a source goes. A name that the caller has not chosen is the chart's.
struct Destination {
  fs::path path;
  bool isChosen;
};

Destination destinationOf(const fs::path& source, const std::optional<std::string>& output) {
  const fs::path name = source.stem().string() + ".fv";
  if (!output) return {source == "-" ? fs::path("-") : source.parent_path() / name, source == "-"};
  if (isFolder(*output)) return {fs::path(*output) / name, false};
  return {*output, true};
}

// Whatever a source is called, nothing is written over it.
void refuseSame(const fs::path& source, const fs::path& destination) {
  std::error_code missing;
  if (source == "-" || !fs::equivalent(source, destination, missing)) return;
  throw Failure("'" + source.string() + "' would be written over; name another file with -o");
}

bool compileOne(const fs::path& source, const std::optional<std::string>& output) {
  const Destination destination = destinationOf(source, output);
  refuseSame(source, destination.path);
  refuseSame(source, conditionsBeside(destination.path));
  const SourceFile file = readInput(source);
  Diagnostics found;
  const std::optional<CompiledChart> chart = hands::compileWithConditions(file, catalogueNames(), found);
  if (chart && !destination.isChosen) checkFileName(chart->source, source.string(), found);
  for (const Diagnostic& diagnostic : found.sorted()) std::cerr << shown(diagnostic, file);
  if (!chart || found.hasErrors()) return false;
  writeChart(destination.path, *chart);
  return true;
}

// The exit status for one source; why it failed is told.
int statusOf(const std::string& source, const std::optional<std::string>& output) try {
  return compileOne(source, output) ? 0 : 1;
} catch (const Failure& failure) {
  return tellFailure(failure.what());
}

// All of them, whatever became of those before.
int compileAll(const CompileArguments& arguments) {
  int status = 0;
  for (const std::string& source : arguments.sources) {
    status = std::max(status, statusOf(source, arguments.output));
  }
  return status;
}

// Of two sources with one name, the second would write over what came of the first.
void refuseSameDestination(const CompileArguments& arguments) {
  std::map<fs::path, std::string> sources;  // by destination
  for (const std::string& source : arguments.sources) {
    const fs::path destination = destinationOf(source, arguments.output).path.lexically_normal();
    const auto [other, isNew] = sources.emplace(destination, source);
    if (isNew || other->second == source) continue;
    throw Failure("'" + other->second + "' and '" + source + "' would both become '" +
                  destination.string() +
                  "'; compile one of them alone, with another name behind -o");
  }
}

void checkStandardInput(const CompileArguments& arguments) {
  if (arguments.watches) throw Failure("standard input can't be watched");
  if (arguments.output && isFolder(*arguments.output)) {
    throw Failure("standard input has no name; write a file behind -o");
  }
}

void checkUsage(const CompileArguments& arguments) {
  const std::vector<std::string>& sources = arguments.sources;
  if (arguments.output && sources.size() > 1 && !isFolder(*arguments.output)) {
    throw Failure("several sources need a folder that exists behind -o");
  }
  if (std::count(sources.begin(), sources.end(), "-") > 0) checkStandardInput(arguments);
  refuseSameDestination(arguments);
}

[[noreturn]] void watch(const CompileArguments& arguments) {
  std::vector<fs::file_time_type> seen(arguments.sources.size());
  while (true) {
    for (std::size_t i = 0; i < seen.size(); ++i) {
      const std::string& source = arguments.sources[i];
      const fs::file_time_type change = lastChange(source);
      if (change == seen[i]) continue;
      seen[i] = change;
      if (statusOf(source, arguments.output) == 0) std::cerr << source << ": compiled\n";
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
  }
}

}  // namespace

int compileSources(const CompileArguments& arguments) {
  checkUsage(arguments);
  if (arguments.watches) watch(arguments);
  return compileAll(arguments);
}

}  // namespace tavrel
