// A chart in which everything stands next to everything.

#ifndef TAVREL_TESTS_DRAWING_CROWDEDCHART_H
#define TAVREL_TESTS_DRAWING_CROWDEDCHART_H

#include <random>
#include <string>

#include "tests/support/ChartFile.h"

namespace tavrel {

/// Boxes and connectors in every cell of a square of 12 by 12, leading anywhere, out
/// of the square too. Boxes hold nothing but x's. The same one every time.
inline ChartFile crowdedChart() {
  constexpr int side = 12;
  std::mt19937 random(7);
  const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
  ChartFile chart;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      if (below(3) == 0 && x + y > 0) {
        const int into = below(4);
        chart.line(x, y, into, below(4));
        continue;
      }
      const std::string text(static_cast<std::size_t>(1 + below(9)), 'x');
      const char* const next = below(5) == 0 ? "Leben" : "";
      const int yes = below(5) - 1;
      chart.link(x, y, text, next, yes, below(5) - 1);
    }
  }
  return chart;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_DRAWING_CROWDEDCHART_H
