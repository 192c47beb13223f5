// The charts that the build has compiled, as hands walk them.

#ifndef TAVREL_TESTS_HANDS_BUILTCHARTS_H
#define TAVREL_TESTS_HANDS_BUILTCHARTS_H

#include <stdexcept>
#include <string>
#include <utility>
#include <variant>

#include "facade/Tavrel.h"
#include "hands/HandChart.h"
#include "tests/support/Files.h"

namespace tavrel::hands {

/// The chart of that name from the folder TAVREL_BUILT_CHARTS.
inline HandChart builtChart(const std::string& name) {
  const std::string file = TAVREL_BUILT_CHARTS "/" + name;
  auto conditions = readConditions(readFile(file + ".when"));
  if (const auto* why = std::get_if<std::string>(&conditions)) throw std::runtime_error(*why);
  Tavrel navigator(TAVREL_BUILT_CHARTS);
  navigator.resetToStartLocationForFlowchartAtIndex(navigator.indexOfFlowchartWithTitle(name));
  auto chart = HandChart::of(navigator.allElements(), std::get<Conditions>(std::move(conditions)));
  if (const auto* why = std::get_if<std::string>(&chart)) throw std::runtime_error(*why);
  return std::get<HandChart>(std::move(chart));
}

}  // namespace tavrel::hands

#endif  // TAVREL_TESTS_HANDS_BUILTCHARTS_H
