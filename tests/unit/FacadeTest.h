// A navigator over a directory of the test's own.

#ifndef TAVREL_TESTS_UNIT_FACADETEST_H
#define TAVREL_TESTS_UNIT_FACADETEST_H

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/support/ChartFile.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/Thrown.h"

namespace tavrel {

/// The cursor as "Opening 2,0".
inline std::string place(const Tavrel& navigator) {
  const auto [name, x, y] = navigator.currentLocation();
  return name + " " + std::to_string(x) + "," + std::to_string(y);
}

/// The elements as their one-line descriptions, one to a line.
inline std::string described(const std::vector<ScreenElement>& elements) {
  std::string all;
  for (const ScreenElement& element : elements) all += element.debugDescription() + "\n";
  return all;
}

/// Every property of an element, each followed by a blank.
inline std::string properties(const ScreenElement& element) {
  std::string all = element.debugDescription() + " ";
  for (const std::int64_t number :
       {element.xOffset(), element.yOffset(), element.yesDirection(), element.noDirection(),
        element.intoDirection(), element.outOfDirection()}) {
    all += std::to_string(number) + " ";
  }
  for (const std::string& line : element.commentaryText()) all += "(" + line + ") ";
  return all + element.nameOfNextFlowchart().value_or("-");
}

class FacadeTest : public testing::Test {
 protected:
  void write(const ChartFile& chart, const std::string& name = "Opening") const {
    chart.writeTo(directory.path(), name);
  }
  void write(const std::string& bytes, const std::string& name = "Opening") const {
    writeFile(directory.chart(name), bytes);
  }
  /// Writes the chart and selects it.
  void select(const ChartFile& chart) {
    write(chart);
    navigator.resetToStartLocationForFlowchartAtIndex(0);
  }
  std::string here() const { return place(navigator); }

  TemporaryDirectory directory;
  Tavrel navigator{directory.path()};
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_FACADETEST_H
