#include "hosts/tavrel/ProvedCharts.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

// The entry of a file name; nullptr for a name that the catalogue hasn't got.
const CatalogueEntry* entryNamed(const Library& library, const std::string& name) {
  const auto& entries = library.entries();
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&name](const auto& entry) { return entry.name == name; });
  return found == entries.end() ? nullptr : &*found;
}

}  // namespace

ProvedCharts::ProvedCharts(const std::vector<std::string>& names, const fs::path& folder)
    : folder_(folder) {
  for (const std::string& name : names) {
    isSource(name) ? addSource(name) : add(inFolder(), inFolder().library().find(name), folder);
  }
  if (!names.empty()) return;
  for (const auto* chart : inFolder().all()) add(inFolder(), inFolder().entryOf(*chart), folder);
  if (charts_.empty()) {
    throw Failure("no chart in '" + folder.string() +
                  "' says anything of hands; name a source, or another folder with --charts");
  }
}

HandCharts& ProvedCharts::inFolder() {
  if (inFolder_ == nullptr) inFolder_ = &opened(std::make_unique<Library>(folder_));
  return *inFolder_;
}

HandCharts& ProvedCharts::opened(std::unique_ptr<Library> library) {
  libraries_.push_back(std::move(library));
  return *handCharts_.emplace_back(std::make_unique<HandCharts>(*libraries_.back()));
}

void ProvedCharts::addSource(const std::string& path) {
  SourceCharts& source = *sources_.emplace_back(std::make_unique<SourceCharts>(path, folder_));
  const bool isFine = source.compile();
  std::cerr << source.said();
  if (!isFine) {
    hasErrors_ = true;
    return;
  }
  HandCharts& charts = opened(std::make_unique<Library>(source.folder(), source.origin()));
  add(charts, charts.library().find(source.chart()), source.origin());
}

void ProvedCharts::add(HandCharts& charts, const CatalogueEntry& entry, const fs::path& folder) {
  const hands::HandChart& chart = charts.chart(entry);
  const bool isThere = std::any_of(charts_.begin(), charts_.end(), [&chart](const auto& other) {
    return other.chart->name() == chart.name();
  });
  if (isThere) throw Failure("the chart " + chart.name() + " is named twice");
  ProvedChart proved = {&chart, {}, folder / (entry.name + ".hands")};
  for (const hands::HandBox& box : chart.boxes()) {
    const CatalogueEntry* const next = entryNamed(charts.library(), box.link);
    if (next == nullptr || !charts.has(*next)) continue;
    proved.others[box.link] = &charts.chart(*next).conditions();
  }
  charts_.push_back(std::move(proved));
}

}  // namespace tavrel
