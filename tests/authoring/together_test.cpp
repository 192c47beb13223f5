// What is said of charts that lie in one folder.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/authoring/Charts.h"

namespace tavrel::authoring {
namespace {

using Said = std::vector<std::string>;

// A source of one box with settings, each a line, and the link of the box.
CheckedChart source(const std::string& name, const std::string& settings, const std::string& link) {
  const std::string chart = link.empty() ? "" : ", chart: " + link;
  return checkChart(SourceFile("charts/" + name + ".yaml",
                               "chart: " + name + "\nintro: When.\n" + settings +
                                   "start: box\nboxes:\n  box: {text: \"Pass\", comment: \"So.\"" +
                                   chart + "}\n"),
                    fewCharts);
}

CheckedChart file(const std::string& name, const std::string& link) {
  return checkChart(
      SourceFile("charts/" + name + ".fv",
                 name + "\nx\n1\nWhen.\n1\n1\nPass\n1\nSo.\n" + link + "\n1\n0 0 0 0 0 -1 -1\n0\n"),
      fewCharts);
}

std::vector<Said> noted(std::vector<CheckedChart> charts) {
  noteUnlinked(charts);
  std::vector<Said> all;
  for (const CheckedChart& chart : charts) all.push_back(brief(chart.found));
  return all;
}

TEST(ChartsTogether, KnowTheLinksOfSourcesAndFiles) {
  CheckedChart written = source("Opening", "", "RespNT"), compiled = file("Opening", "RespNT");
  checkLinks(written, {"Opening", "RespNT"});
  checkLinks(compiled, {"Opening", "RespNT"});
  EXPECT_EQ(brief(written.found), Said{});
  EXPECT_EQ(brief(compiled.found), Said{});
  checkLinks(written, {"Opening"});
  checkLinks(compiled, {"Opening"});
  EXPECT_EQ(brief(written.found), (Said{"5:46 T0701"}));
  EXPECT_EQ(brief(compiled.found), (Said{"10:1 T0701"}));
}

TEST(ChartsTogether, MayComeFromWhereNoFileHasAName) {
  const CheckedChart chart =
      checkChart(SourceFile("-",
                            "chart: RespNT\nintro: When.\nstart: box\n"
                            "boxes:\n  box: {text: \"Pass\", comment: \"So.\"}\n"),
                 fewCharts);
  EXPECT_EQ(chart.name, "");
  EXPECT_EQ(brief(chart.found), Said{});
}

TEST(ChartsTogether, AreNotedWhereNobodyLinksToThem) {
  EXPECT_EQ(noted({source("Opening", "", "RespNT"), source("RespNT", "", "")}),
            (std::vector<Said>{{"1:8 T0702"}, {}}));
  EXPECT_EQ(noted({source("Opening", "entry: true\n", ""), file("RespNT", "Stayman"),
                   source("Stayman", "", "")}),
            (std::vector<Said>{{}, {}, {}}));
}

TEST(ChartsTogether, DontCountALinkToThemselves) {
  EXPECT_EQ(noted({source("Opening", "", "Opening")}), (std::vector<Said>{{"1:8 T0702"}}));
}

TEST(ChartsTogether, AreNotNotedWhereAnErrorMayHideALink) {
  EXPECT_EQ(noted({source("Opening", "", ""), source("RespNT", "", "{}")}),
            (std::vector<Said>{{}, {"5:46 T0204"}}));
}

}  // namespace
}  // namespace tavrel::authoring
