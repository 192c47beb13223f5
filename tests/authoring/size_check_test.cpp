// What is said of charts that are too large, as compared with what the engine takes.

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/authoring/Charts.h"
#include "tests/support/ChartDirectory.h"

namespace tavrel::authoring {
namespace {

using Said = std::vector<std::string>;

bool engineTakes(const std::string& file) {
  const ChartDirectory directory;
  directory.write("Opening", file);
  Tavrel navigator(directory.path());
  try {
    navigator.resetToStartLocationForFlowchartAtIndex(0);
    return true;
  } catch (const std::length_error&) {
    return false;
  }
}

bool checkTakes(const std::string& file) {
  for (const std::string& each : saidOfFv(file)) {
    if (each.find("T0508") != std::string::npos || each.find("T0509") != std::string::npos) {
      return false;
    }
  }
  return true;
}

std::string fvWithBoxAt(const std::string& place) {
  return fvWith({"0 0 0 0 0 1 -1", "1 1 0 0 0 -1 -1", "1 " + place + " 0 0 -1 -1"});
}

TEST(SizeCheck, CountsRowsAsTheEngineDoes) {
  for (const char* place : {"0 16777215", "0 16777216", "0 -16777215", "0 -16777216",
                            "0 2147483647", "0 -2147483648"}) {
    const std::string file = fvWithBoxAt(place);
    EXPECT_EQ(checkTakes(file), engineTakes(file)) << place;
  }
}

// The root is 12 bytes wide, and each column takes 15 more.
TEST(SizeCheck, MeasuresColumnsAsTheEngineDoes) {
  std::size_t taken = 0;
  for (int x = 143'165'560; x < 143'165'580; ++x) {
    for (const char* sign : {"", "-"}) {
      const std::string file = fvWithBoxAt(sign + std::to_string(x) + " 0");
      EXPECT_EQ(checkTakes(file), engineTakes(file)) << sign << x;
      if (engineTakes(file)) ++taken;
    }
  }
  EXPECT_LT(0U, taken);
  EXPECT_LT(taken, 40U);
}

TEST(SizeCheck, SaysWhichCellIsTooFarAway) {
  EXPECT_EQ(saidOfFv(fvWithBoxAt("0 16777216")), (Said{"24:5 T0508"}));
  EXPECT_EQ(saidOfFv(fvWithBoxAt("2147483647 0")), (Said{"24:3 T0509"}));
  EXPECT_EQ(saidOfFv(fvWithBoxAt("-2147483648 0")), (Said{"24:3 T0509"}));
  EXPECT_EQ(saidOfFv(fvWithBoxAt("2147483647 16777216")), (Said{"24:3 T0509", "24:14 T0508"}));
}

}  // namespace
}  // namespace tavrel::authoring
