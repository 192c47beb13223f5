#include "hosts/tavrel/SourceCharts.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "facade/Tavrel.h"
#include "hands/ConditionCompiler.h"
#include "hosts/tavrel/ChartFiles.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/Library.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace authoring;

bool isFile(const fs::path& path) {
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

std::string oneLine(const Diagnostic& diagnostic, const SourceFile& file) {
  const std::string all = shown(diagnostic, file);
  return all.substr(0, all.find('\n'));
}

// Where the boxes of a compiled chart lead; nothing of one that can't be read, which is for the
// walk to say.
std::set<std::string> linksIn(const fs::path& folder, const std::string& chart) try {
  Tavrel navigator(folder);
  navigator.resetToStartLocationForFlowchartAtIndex(navigator.indexOfFlowchartWithTitle(chart));
  std::set<std::string> links;
  for (const ScreenElement& element : navigator.allElements()) {
    const auto link = element.nameOfNextFlowchart();
    if (element.isNode() && link) links.insert(*link);
  }
  return links;
} catch (const std::logic_error&) {
  return {};
}

}  // namespace

bool isSource(const std::string& name) {
  const fs::path extension = fs::path(name).extension();
  return extension == ".yaml" || extension == ".yml";
}

SourceCharts::SourceCharts(fs::path source, fs::path others)
    : source_(std::move(source)), others_(std::move(others)), catalogue_(catalogueNames()) {}

bool SourceCharts::compile() {
  said_.clear();
  firstError_.clear();
  for (auto& [source, change] : seen_) change = lastChange(source);
  std::optional<CompiledChart> chart = compiled(source_);
  if (!chart) return false;
  for (const auto& old : fs::directory_iterator(folder())) fs::remove(old);
  before_ = std::exchange(charts_, {});
  chart_ = chart->source.chart;
  write(std::move(*chart));
  fetchLinksOf(chart_);
  before_.clear();
  return true;
}

bool SourceCharts::haveChanged() const {
  return std::any_of(seen_.begin(), seen_.end(),
                     [](const auto& source) { return lastChange(source.first) != source.second; });
}

const CompiledChart* SourceCharts::find(const std::string& name) const {
  const auto found = charts_.find(name);
  return found == charts_.end() ? nullptr : &found->second;
}

fs::path SourceCharts::origin() const {
  return source_.has_parent_path() ? source_.parent_path() : fs::path(".");
}

std::optional<CompiledChart> SourceCharts::compiled(const fs::path& source) {
  note(source);
  const SourceFile file = readInput(source);
  Diagnostics found;
  std::optional<CompiledChart> chart = hands::compileWithConditions(file, catalogue_, found);
  tell(source, file, found);
  return chart;
}

void SourceCharts::tell(const fs::path& source, const SourceFile& file, const Diagnostics& found) {
  const std::vector<Diagnostic> sorted = found.sorted();
  const auto error = std::find_if(sorted.begin(), sorted.end(), [](const Diagnostic& each) {
    return severityOf(each.code) == Severity::error;
  });
  if (error != sorted.end() && firstError_.empty()) firstError_ = oneLine(*error, file);
  if (source == source_) {
    for (const Diagnostic& each : sorted) said_ += shown(each, file);
  } else if (error != sorted.end()) {
    said_ += "tavrel: '" + source.string() + "' has errors, which 'tavrel compile' shows\n";
  }
}

void SourceCharts::write(CompiledChart chart) {
  const std::string name = chart.source.chart;
  writeChart(folder() / (name + ".fv"), chart);
  charts_.insert_or_assign(name, std::move(chart));
}

void SourceCharts::fetchLinksOf(const std::string& name) {
  std::set<std::string> fetched = {name};
  std::vector<std::string> open = {name};
  while (!open.empty()) {
    const std::string from = std::move(open.back());
    open.pop_back();
    for (const std::string& link : linksIn(folder(), from)) {
      if (fetched.insert(link).second && fetch(link)) open.push_back(link);
    }
  }
}

// A name that the catalogue hasn't got may be a path to anywhere.
bool SourceCharts::fetch(const std::string& name) {
  if (std::find(catalogue_.begin(), catalogue_.end(), name) == catalogue_.end()) return false;
  std::error_code failed;
  if (fetchFrom(origin(), name)) return true;
  return !fs::equivalent(origin(), others_, failed) && fetchFrom(others_, name);
}

bool SourceCharts::fetchFrom(const fs::path& folder, const std::string& name) {
  const fs::path source = folder / (name + ".yaml");
  if (isFile(source)) {
    std::optional<CompiledChart> chart = compiled(source);
    const auto before = before_.find(name);
    if (!chart && before != before_.end()) chart = std::move(before->second);
    if (chart && chart->source.chart == name) {
      write(std::move(*chart));
      return true;
    }
  }
  std::error_code failed;
  fs::copy_file(folder / (name + ".when"), this->folder() / (name + ".when"), failed);
  return fs::copy_file(folder / (name + ".fv"), this->folder() / (name + ".fv"), failed);
}

void SourceCharts::note(const fs::path& source) {
  seen_.insert_or_assign(source, lastChange(source));
}

}  // namespace tavrel
