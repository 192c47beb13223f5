#include "tests/hands/TestChart.h"

#include <stdexcept>
#include <utility>
#include <variant>

#include "authoring/Compiler.h"
#include "hands/ConditionCompiler.h"
#include "tests/support/Files.h"

namespace tavrel::hands {
namespace {

authoring::CompiledChart compiled(const std::string& source) {
  const authoring::SourceFile file("test.yaml", source);
  authoring::Diagnostics found;
  auto chart = authoring::compile(file, {"Opening", "RespNT", "Stayman", "Transfer"}, found);
  if (chart) checkConditions(chart->source, file, found);
  std::string said;
  for (const auto& each : found.sorted()) said += shown(each, file);
  if (!chart || found.hasErrors()) throw std::invalid_argument(said);
  return std::move(*chart);
}

}  // namespace

TestChart::TestChart(const std::string& source) : chart_(made(source)) {}

HandChart TestChart::made(const std::string& source) {
  const authoring::CompiledChart chart = compiled(source);
  writeFile(folder_.chart(chart.source.chart), chart.bytes);
  Tavrel navigator(folder_.path());
  navigator.resetToStartLocationForFlowchartAtIndex(
      navigator.indexOfFlowchartWithTitle(chart.source.chart));
  auto made = HandChart::of(navigator.allElements(), conditionsOf(chart));
  if (const auto* why = std::get_if<std::string>(&made)) throw std::invalid_argument(*why);
  return std::move(std::get<HandChart>(made));
}

BoxIndex TestChart::box(const std::string& id) const {
  for (BoxIndex box = 0; box < chart_.boxes().size(); ++box) {
    const BoxConditions* const conditions = chart_[box].conditions;
    if (conditions != nullptr && conditions->id == id) return box;
  }
  throw std::out_of_range("no box " + id);
}

}  // namespace tavrel::hands
