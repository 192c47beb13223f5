#include "hosts/tavrel/HandCharts.h"

#include <system_error>
#include <utility>
#include <variant>

#include "hands/Conditions.h"
#include "hosts/tavrel/ChartFiles.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/Walk.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

// 'PATH/NAME.when', in quotes, as messages call the other file of a chart.
std::string quotedConditionsOf(const Library& library, const CatalogueEntry& entry) {
  std::string quoted = library.quotedFileOf(entry);
  return quoted.replace(quoted.size() - 4, 3, ".when");
}

std::string cureFor(const CatalogueEntry& entry) {
  return "; compile the chart again: tavrel compile " + entry.name + ".yaml";
}

}  // namespace

bool HandCharts::has(const CatalogueEntry& entry) const {
  std::error_code unseen;
  return fs::exists(conditionsOf(entry), unseen);
}

const hands::HandChart& HandCharts::chart(const CatalogueEntry& entry) {
  const auto found = charts_.find(entry.name);
  if (found != charts_.end()) return found->second;
  return charts_.emplace(entry.name, read(entry)).first->second;
}

std::vector<const hands::HandChart*> HandCharts::all() {
  std::vector<const hands::HandChart*> charts;
  for (const CatalogueEntry& entry : library_.entries()) {
    if (has(entry)) charts.push_back(&chart(entry));
  }
  return charts;
}

fs::path HandCharts::conditionsOf(const CatalogueEntry& entry) const {
  return conditionsBeside(library_.fileOf(entry));
}

hands::Conditions HandCharts::readConditions(const CatalogueEntry& entry) const {
  const std::string quoted = quotedConditionsOf(library_, entry);
  if (!has(entry)) {
    throw Failure("the chart " + entry.name + " says nothing of hands: " + quoted +
                  " is missing; compile its source, with 'when' on its questions: tavrel compile " +
                  entry.name + ".yaml");
  }
  auto read = hands::readConditions(readInput(conditionsOf(entry)).bytes());
  if (const auto* why = std::get_if<std::string>(&read)) {
    throw Failure("cannot use " + quoted + ": " + *why + cureFor(entry));
  }
  hands::Conditions conditions = std::get<hands::Conditions>(std::move(read));
  if (conditions.chart != entry.name ||
      conditions.digest != hands::digestOf(readInput(library_.fileOf(entry)).bytes())) {
    throw Failure(quoted + " was made for another " + library_.quotedFileOf(entry) +
                  cureFor(entry));
  }
  return conditions;
}

hands::HandChart HandCharts::read(const CatalogueEntry& entry) const {
  requireFile(library_, entry);
  Walk walk(library_);
  const Outcome outcome = walk.enter(entry);
  if (outcome != Outcome::moved) throw Failure(entryRefusalOf(library_, entry, outcome));
  auto chart = hands::HandChart::of(walk.navigator().allElements(), readConditions(entry));
  if (const auto* why = std::get_if<std::string>(&chart)) {
    throw Failure("cannot use " + library_.quotedFileOf(entry) + " with " +
                  quotedConditionsOf(library_, entry) + ": " + *why + cureFor(entry));
  }
  return std::get<hands::HandChart>(std::move(chart));
}

}  // namespace tavrel
