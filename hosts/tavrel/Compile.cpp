#include "hosts/tavrel/Compile.h"

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

// Where the file of a source goes. A name that the caller has not chosen is the chart's.
struct Destination {
  fs::path path;
  bool isChosen;
};

Destination destinationOf(const fs::path& source, const std::optional<std::string>& output) {
  const fs::path name = source.stem().string() + ".fv";
  if (!output) return {source == "-" ? fs::path("-") : source.parent_path() / name, source == "-"};
  if (fs::is_directory(*output)) return {fs::path(*output) / name, false};
  return {*output, true};
}

bool compileOne(const fs::path& source, const std::optional<std::string>& output) {
  const SourceFile file = readInput(source);
  const Destination destination = destinationOf(source, output);
  Diagnostics found;
  const std::optional<CompiledChart> chart = compile(file, catalogueNames(), found);
  if (chart && !destination.isChosen) checkFileName(chart->source, source.string(), found);
  for (const Diagnostic& diagnostic : found.sorted()) std::cerr << shown(diagnostic, file);
  if (!chart || found.hasErrors()) return false;
  writeOutput(destination.path, chart->bytes);
  return true;
}

bool compileAll(const CompileArguments& arguments) {
  bool isFine = true;
  for (const std::string& source : arguments.sources) {
    isFine &= compileOne(source, arguments.output);
  }
  return isFine;
}

void checkUsage(const CompileArguments& arguments) {
  const bool isFolder = arguments.output && fs::is_directory(*arguments.output);
  if (arguments.output && arguments.sources.size() > 1 && !isFolder) {
    throw Failure("several sources need a folder that exists behind -o");
  }
  if (!arguments.watches) return;
  for (const std::string& source : arguments.sources) {
    if (source == "-") throw Failure("standard input can't be watched");
  }
}

// A file that is being replaced may be missing for a moment.
fs::file_time_type changeOf(const std::string& source) {
  std::error_code missing;
  return fs::last_write_time(source, missing);
}

[[noreturn]] void watch(const CompileArguments& arguments) {
  std::vector<fs::file_time_type> seen(arguments.sources.size());
  while (true) {
    for (std::size_t i = 0; i < seen.size(); ++i) {
      const std::string& source = arguments.sources[i];
      const fs::file_time_type change = changeOf(source);
      if (change == seen[i]) continue;
      seen[i] = change;
      try {
        if (compileOne(source, arguments.output)) std::cerr << source << ": compiled\n";
      } catch (const Failure& failure) {
        std::cerr << "tavrel: " << failure.what() << '\n';
      }
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
  }
}

}  // namespace

int compileSources(const CompileArguments& arguments) {
  checkUsage(arguments);
  if (arguments.watches) watch(arguments);
  return compileAll(arguments) ? 0 : 1;
}

}  // namespace tavrel
