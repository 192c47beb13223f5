// What a walk meets is what the source says.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "authoring/Compiler.h"
#include "tests/authoring/RandomGraph.h"
#include "tests/authoring/RoundTrip.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::authoring {
namespace {

const Catalogue catalogue = {"Opening", "RespNT", "Stayman"};

// Words that YAML and the grid have to keep.
std::string randomText(std::mt19937& random) {
  static const char* const words[] = {"12+", "HCP?", "!s",  "♥", "\\\"no\\\"",
                                      "a:",  "#1",   "{x}", "é", "15–17"};
  std::string text;
  for (std::size_t i = random() % 12 + 1; i > 0; --i) {
    text += (text.empty() ? "" : " ") + std::string(words[random() % 10]);
  }
  return text;
}

std::string randomSource(std::uint32_t seed) {
  std::mt19937 random(seed);
  const ChartGraph graph = randomGraph(1 + random() % 20, random() % 6, random() % 4 == 0, seed);
  std::string text = "chart: Opening\nintro: \"" + randomText(random) + "\"\nstart: b0\nboxes:\n";
  for (std::size_t box = 0; box < graph.boxes.size(); ++box) {
    text += "  b" + std::to_string(box) + ":\n    text: \"" + randomText(random) + "\"\n";
    if (random() % 2 == 0) text += "    comment: \"" + randomText(random) + "\"\n";
    if (random() % 4 == 0) text += "    chart: RespNT\n";
    const auto& exits = graph.boxes[box].exits;
    if (exits.yes != noBox) text += "    yes: b" + std::to_string(exits.yes) + "\n";
    if (exits.no != noBox) text += "    no: b" + std::to_string(exits.no) + "\n";
  }
  return text;
}

TEST(RoundTrip, OfRandomSourcesMeetsWhatTheySay) {
  const TemporaryDirectory directory;
  std::size_t walked = 0;
  for (std::uint32_t seed = 0; seed < 2000; ++seed) {
    const SourceFile file("Opening.yaml", randomSource(seed));
    Diagnostics found;
    const auto chart = compile(file, catalogue, found);
    if (!chart) {
      ASSERT_EQ(found.sorted().front().code, Code::noWayBack) << file.bytes();
      continue;
    }
    writeFile(directory.chart("Opening"), chart->bytes);
    Tavrel navigator(directory.prefix());
    navigator.resetToStartLocationForFlowchartAtIndex(0);
    ASSERT_EQ(RoundTrip(navigator, chart->source).difference(), "") << file.bytes();
    ++walked;
  }
  EXPECT_GT(walked, 1800U);
}

}  // namespace
}  // namespace tavrel::authoring
