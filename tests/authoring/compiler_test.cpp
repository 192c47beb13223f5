// From a source to the bytes of a file.

#include "authoring/Compiler.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/authoring/Found.h"

namespace tavrel::authoring {
namespace {

using Found = std::vector<std::string>;

const Catalogue catalogue = {"Opening", "RespNT"};

TEST(Compiler, WritesTheFileOfAChart) {
  const SourceFile file("Opening.yaml",
                        "chart: Opening\n"
                        "intro: As dealer.\n"
                        "start: a\n"
                        "boxes:\n"
                        "  a:\n"
                        "    text: 12+ HCP?\n"
                        "    comment: Count aces as four.\n"
                        "    yes: {text: \"Open\", chart: RespNT}\n"
                        "    no: {text: \"Pass\"}\n");
  Diagnostics found;
  const auto chart = compile(file, catalogue, found);
  ASSERT_TRUE(chart.has_value());
  EXPECT_EQ(placesOf(found), Found{});
  EXPECT_EQ(chart->bytes,
            "Opening\n"
            "Tavrel flowchart\n"
            "1 introduction line\n"
            "As dealer.\n"
            "3 nodes\n"
            "1 box line\n"
            "12+ HCP?\n"
            "1 comment line\n"
            "Count aces as four.\n"
            "\n"
            "1 box line\n"
            "Open\n"
            "0 comment lines\n"
            "RespNT\n"
            "1 box line\n"
            "Pass\n"
            "0 comment lines\n"
            "\n"
            "3 box cells: node x y 0 0 yes no\n"
            "0 0 0 0 0 1 0\n"
            "1 1 0 0 0 -1 -1\n"
            "2 0 2 0 0 -1 -1\n"
            "1 connector cell: 0 0 0 into out x y\n"
            "0 0 0 0 0 0 1\n");
}

Found found(const std::string& text) {
  Diagnostics found;
  const bool isCompiled = compile(SourceFile("a.yaml", text), catalogue, found).has_value();
  EXPECT_EQ(isCompiled, !found.hasErrors());
  return placesOf(found);
}

TEST(Compiler, SaysWhatItRepeats) {
  std::string text = "chart: Opening\nstart: q1\nboxes:\n";
  for (int i = 1; i < 6; ++i) {
    text += "  q" + std::to_string(i) + ": {text: \"?\", yes: shared, no: q" +
            std::to_string(i + 1) + "}\n";
  }
  text += "  q6: {text: \"end\"}\n  shared: {text: \"?\", yes: {text: \"a\"}, no: {text: \"b\"}}\n";
  EXPECT_EQ(found(text), Found{"10:3 T0303"});
}

TEST(Compiler, NamesTheLineBackThatHasNoWay) {
  std::string text = "chart: Opening\nstart: q0\nboxes:\n";
  for (int i = 0; i < 6; ++i) {
    text += "  q" + std::to_string(i) + ": {text: \"?\", yes: q0, no: q" + std::to_string(i + 1) +
            "}\n";
  }
  const Found places = found(text + "  q6: {text: \"end\"}\n");
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0].substr(places[0].size() - 5), "T0301");
}

TEST(Compiler, WritesNothingOfASourceWithErrors) {
  EXPECT_EQ(found("chart: Opening\n"), Found{"1:1 T0203"});
}

}  // namespace
}  // namespace tavrel::authoring
