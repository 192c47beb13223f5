#include "hosts/tavrel/Compile.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <thread>

#include "authoring/Compiler.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/Library.h"
#include "hosts/tavrel/OutputFile.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace authoring;

bool isFolder(const fs::path& path) {
  std::error_code unseen;
  return fs::is_directory(path, unseen);
}

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
  const SourceFile file = readInput(source);
  Diagnostics found;
  const std::optional<CompiledChart> chart = compile(file, catalogueNames(), found);
  if (chart && !destination.isChosen) checkFileName(chart->source, source.string(), found);
  for (const Diagnostic& diagnostic : found.sorted()) std::cerr << shown(diagnostic, file);
  if (!chart || found.hasErrors()) return false;
  writeOutput(destination.path, chart->bytes);
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

void checkUsage(const CompileArguments& arguments) {
  if (arguments.output && arguments.sources.size() > 1 && !isFolder(*arguments.output)) {
    throw Failure("several sources need a folder that exists behind -o");
  }
  if (!arguments.watches) return;
  for (const std::string& source : arguments.sources) {
    if (source == "-") throw Failure("standard input can't be watched");
  }
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
