// From a source to the bytes of a file.

#include "authoring/Compiler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
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

// What is said first of questions q0, q1 ... that lead to one another, with these answers beside.
Diagnostic firstOfQuestions(const std::vector<std::string>& yes) {
  std::string text = "chart: Opening\nstart: q0\nboxes:\n";
  for (std::size_t i = 0; i < yes.size(); ++i) {
    text += "  q" + std::to_string(i) + ": {text: \"?\", yes: " + yes[i] + ", no: q" +
            std::to_string(i + 1) + "}\n";
  }
  text += "  q" + std::to_string(yes.size()) + ": {text: \"end\"}\n";
  Diagnostics found;
  EXPECT_FALSE(compile(SourceFile("a.yaml", text), catalogue, found).has_value());
  EXPECT_EQ(found.sorted().size(), 1U);
  return found.sorted().front();
}

TEST(Compiler, NamesBothBoxesOfALineBackThatHasNoWay) {
  // The root has two exits; two lines back take its other sides.
  const Diagnostic said = firstOfQuestions({"q4", "q0", "q0", "q0"});
  EXPECT_EQ(nameOf(said.code), std::string("T0301"));
  EXPECT_EQ(said.text, "there is no way to draw the line from q3 back to q0");
  EXPECT_EQ(said.place.line, 7U);
}

TEST(Compiler, NamesTheBoxRepeatedMost) {
  std::vector<std::string> yes;
  for (int i = 0; i < 40; ++i) yes.push_back("q" + std::to_string(std::min(i + 5, 40)));
  const Diagnostic said = firstOfQuestions(yes);
  EXPECT_EQ(nameOf(said.code), std::string("T0302"));
  EXPECT_EQ(said.text.rfind("the chart takes too many cells: q40 would stand there ", 0), 0U)
      << said.text;
  EXPECT_EQ(said.place.line, 44U);
}

TEST(Compiler, WritesNothingOfASourceWithErrors) {
  EXPECT_EQ(found("chart: Opening\nstart: a\n"), Found{"1:1 T0203"});
}

}  // namespace
}  // namespace tavrel::authoring
