#include "hosts/tavrel/ChartToDraw.h"

#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

#include "authoring/Compiler.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/OutputFile.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace authoring;

std::string titleOf(const CatalogueEntry& entry) { return entry.name + ": " + entry.title; }

// The chart of that name, whose file holds the bytes.
ChartToDraw aloneInAFolder(const std::string& name, std::string_view bytes) {
  auto folder = std::make_unique<TemporaryFolder>();
  writeOutput(folder->path() / (name + ".fv"), bytes);
  Library library(folder->path());
  ChartToDraw chart{std::move(folder), std::move(library), nullptr, {}};
  chart.entry = &chart.library.find(name);
  return chart;
}

std::optional<ChartToDraw> fromSource(const fs::path& path) {
  const SourceFile file = readInput(path);
  Diagnostics found;
  const std::optional<CompiledChart> compiled = compile(file, catalogueNames(), found);
  for (const Diagnostic& diagnostic : found.sorted()) std::cerr << shown(diagnostic, file);
  if (!compiled || found.hasErrors()) return std::nullopt;
  ChartToDraw chart = aloneInAFolder(compiled->source.chart, compiled->bytes);
  chart.title = titleOf(*chart.entry);
  return chart;
}

ChartToDraw fromFile(const fs::path& path) {
  const SourceFile file = readInput(path);
  const std::vector<std::string> names = catalogueNames();
  const std::string stem = path.stem().string();
  const bool isKnown = std::find(names.begin(), names.end(), stem) != names.end();
  ChartToDraw chart = aloneInAFolder(isKnown ? stem : names.front(), file.bytes());
  chart.title = isKnown ? titleOf(*chart.entry) : stem;
  return chart;
}

ChartToDraw fromLibrary(const std::string& name, const fs::path& directory) {
  ChartToDraw chart{nullptr, Library(directory), nullptr, {}};
  chart.entry = &chart.library.find(name);
  chart.title = titleOf(*chart.entry);
  return chart;
}

}  // namespace

std::optional<ChartToDraw> chartToDraw(const std::string& name, const fs::path& chartsDirectory) {
  const fs::path extension = fs::path(name).extension();
  if (name == "-" || extension == ".yaml" || extension == ".yml") return fromSource(name);
  if (extension == ".fv") return fromFile(name);
  return fromLibrary(name, chartsDirectory);
}

}  // namespace tavrel
