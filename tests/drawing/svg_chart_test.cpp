// The picture in SVG, as a browser and a screen reader find it.

#include "drawing/SvgChart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/drawing/DrawingTest.h"

namespace tavrel {
namespace {

class SvgChartTest : public DrawingTest {
 protected:
  /// The picture of the chart that was selected, read as XML.
  pugi::xml_node picture(const SvgOptions& options = {}) {
    bytes = SvgChart(navigator, options).svg();
    const pugi::xml_parse_result result =
        document.load_string(bytes.c_str(), pugi::parse_full | pugi::parse_ws_pcdata);
    EXPECT_TRUE(result) << result.description();
    return document.child("svg");
  }

  pugi::xml_node box(const char* id) const {
    return document.child("svg").find_node(
        [id](pugi::xml_node node) { return std::string(node.attribute("id").value()) == id; });
  }

  /// What is seen of a box, and not read aloud.
  pugi::xml_node seen(const char* id) const { return box(id).child("g"); }

  std::vector<std::string> titles() const {
    std::vector<std::string> all;
    for (const auto& found : document.select_nodes("//*[starts-with(@id, 'box-')]/title")) {
      all.emplace_back(found.node().child_value());
    }
    return all;
  }

  std::size_t count(const char* path) const { return document.select_nodes(path).size(); }

  std::string bytes;
  pugi::xml_document document;
};

using Titles = std::vector<std::string>;

std::string textOf(pugi::xml_node node) {
  std::string text = node.value();
  for (const pugi::xml_node child : node.children()) text += textOf(child);
  return text;
}

int number(pugi::xml_node node, const char* attribute) {
  return node.attribute(attribute).as_int();
}

ChartFile question() {
  return ChartFile().box(0, 0, "12+?", xPlus, yPlus).box(1, 0, "Open").box(0, 1, "Pass");
}

SvgOptions withPlace(std::int64_t x, std::int64_t y) {
  SvgOptions options;
  options.place = GridPlace{x, y};
  return options;
}

TEST_F(SvgChartTest, TellsWhatABoxSaysAndWhereItsExitsLead) {
  select(question());
  picture();
  EXPECT_EQ(titles(), (Titles{"12+? Yes: Open. No: Pass. On the path.", "Open.", "Pass."}));
}

TEST_F(SvgChartTest, GivesEachBoxAnIdAndANameFromItsPlace) {
  select(ChartFile().box(0, 0, "12+?", xMinus).box(-1, 0, "Open"));
  picture();
  EXPECT_STREQ(box("box-0-0").name(), "g");
  EXPECT_STREQ(box("box--1-0").child("title").child_value(), "Open.");
}

TEST_F(SvgChartTest, HasATitle) {
  select(question());
  EXPECT_STREQ(picture().child("title").child_value(), "Opening");
  SvgOptions options;
  options.title = "Deciding <now>";
  EXPECT_STREQ(picture(options).child("title").child_value(), "Deciding <now>");
}

TEST_F(SvgChartTest, ReadsAlongTheExitsYesFirstAndEachBoxOnce) {
  select(ChartFile()
             .box(0, 0, "First?", xPlus, yPlus)
             .box(0, 1, "Third?", yMinus, xPlus)
             .line(1, 0, xPlus, xPlus)
             .box(2, 0, "Second")
             .box(1, 1, "Fourth")
             .box(5, 5, "Astray"));
  picture();
  EXPECT_EQ(titles(), (Titles{"First? Yes: Second. No: Third? On the path.", "Second.",
                              "Third? Yes: First? No: Fourth.", "Fourth.", "Astray."}));
}

TEST_F(SvgChartTest, SaysThatAnExitLeadsToNothing) {
  select(ChartFile()
             .box(0, 0, "12+?", xPlus, xMinus)
             .line(-1, 0, xMinus, yPlus)
             .line(-1, 1, yPlus, yMinus));
  picture();
  EXPECT_EQ(titles(), (Titles{"12+? Yes: nothing. No: nothing. On the path."}));
}

TEST_F(SvgChartTest, ShowsThePathByDoubleFramesAndHeavyLinesToo) {
  select(question(), "y");
  picture();
  EXPECT_EQ(count("//g[@id='box-0-0']/g/rect"), 2U);
  EXPECT_EQ(count("//g[@id='box-1-0']/g/rect"), 2U);
  EXPECT_EQ(count("//g[@id='box-0-1']/g/rect"), 1U);
  EXPECT_EQ(count("//path[@stroke-width='3.5']"), 1U);
  EXPECT_EQ(titles().at(1), "Open. On the path.");
}

// How wide the first of the arrowheads is that point right in this data: its tip comes first, then
// the two corners, one above the other.
int widthOfHead(const char* data) {
  int tipX = 0, tipY = 0, cornerX = 0, cornerY = 0;
  EXPECT_EQ(std::sscanf(data, "M%d %dL%d %d", &tipX, &tipY, &cornerX, &cornerY), 4) << data;
  return 2 * std::abs(cornerY - tipY);
}

TEST_F(SvgChartTest, GivesHeavyLinesLargerArrowheads) {
  select(ChartFile().box(0, 0, "12+?", xPlus).box(1, 0, "5+?", xPlus).box(2, 0, "End"), "y");
  picture();
  const auto heads = document.select_nodes("//path[not(@stroke)]");
  ASSERT_EQ(heads.size(), 2U);
  const int plain = widthOfHead(heads[0].node().attribute("d").value());
  const int lit = widthOfHead(heads[1].node().attribute("d").value());
  EXPECT_GE(plain, 6 * 1.5);  // strokes
  EXPECT_GE(lit, 4 * 3.5);
}

TEST_F(SvgChartTest, ShowsThePlaceByADiscToo) {
  select(question());
  picture(withPlace(0, 1));
  EXPECT_EQ(count("//circle"), 1U);
  EXPECT_EQ(count("//g[@id='box-0-1']/g/circle"), 1U);
  EXPECT_STREQ(box("box-0-1").attribute("aria-current").value(), "location");
  EXPECT_EQ(titles().at(2), "Pass. You are here.");
  picture();
  EXPECT_EQ(count("//circle"), 0U);
}

TEST_F(SvgChartTest, LinksToThePictureOfTheNextFlowchart) {
  select(ChartFile().link(0, 0, "1NT", "RespNT"));
  SvgOptions options;
  options.linkExtension = ".pdf";
  const pugi::xml_node link = picture(options).child("a");
  EXPECT_STREQ(link.attribute("href").value(), "RespNT.pdf");
  EXPECT_STREQ(link.attribute("id").value(), "box-0-0");
  EXPECT_FALSE(link.attribute("role"));  // that of a link, once
  EXPECT_EQ(titles(), (Titles{"1NT. Leads into RespNT. On the path."}));
}

TEST_F(SvgChartTest, DoesNotLinkToWhatIsNoFlowchart) {
  select(ChartFile().link(0, 0, "1NT", "javascript:alert(1)"));
  EXPECT_FALSE(picture().child("a"));
  EXPECT_EQ(titles(), (Titles{"1NT. Leads into javascript:alert(1). On the path."}));
}

TEST_F(SvgChartTest, ColoursTheSuitsAndNothingElseOfAText) {
  select(ChartFile().box(0, 0, "2♣ or 2♥"));
  picture();
  const pugi::xml_node text = seen("box-0-0").child("text");
  EXPECT_EQ(textOf(text), "2♣ or 2♥");
  EXPECT_STREQ(text.child("tspan").child_value(), "♣");
  EXPECT_STRNE(text.child("tspan").attribute("fill").value(), text.attribute("fill").value());
  EXPECT_STREQ(text.last_child().child_value(), "♥");
}

TEST_F(SvgChartTest, GivesEachSuitAColourOfItsOwn) {
  select(ChartFile().box(0, 0, "♣, ♦, ♥, ♠"));
  picture();
  std::set<std::string> colours;
  for (const auto& found : document.select_nodes("//tspan")) {
    colours.insert(found.node().attribute("fill").value());
  }
  EXPECT_EQ(count("//tspan"), 4U);
  EXPECT_EQ(colours.size(), 4U);
}

TEST_F(SvgChartTest, StaysTheSameWhenItIsMoved) {
  select(question());
  SvgChart chart(navigator, {});
  const std::string before = chart.svg();
  SvgChart moved = std::move(chart);
  EXPECT_EQ(moved.svg(), before);
  chart = std::move(moved);
  EXPECT_EQ(chart.svg(), before);
}

TEST_F(SvgChartTest, HidesAllButTheTitlesFromScreenReaders) {
  select(question());
  picture(withPlace(0, 1));
  constexpr const char* shapes = "self::path or self::text or self::circle or self::rect[@rx]";
  const auto all = count((std::string("//*[") + shapes + "]").c_str());
  EXPECT_GE(all, 12U);
  EXPECT_EQ(count((std::string("//*[@aria-hidden='true']//*[") + shapes + "]").c_str()), all);
  EXPECT_EQ(count("//*[@aria-hidden='true']//title"), 0U);
}

TEST_F(SvgChartTest, HasNoScriptsAndNoStylesOfItsOwn) {
  select(question());
  picture();
  EXPECT_EQ(count("//script") + count("//style") + count("//@*[starts-with(name(), 'on')]"), 0U);
}

// A line leaves where the axis of its cell crosses the frame.
TEST_F(SvgChartTest, LetsLinesMeetBoxesInTheMiddleOfASide) {
  select(ChartFile().box(0, 0, "A long question?", xPlus, yPlus).box(1, 0, "A").box(0, 1, "Bc"));
  const std::string lines =
      picture().select_node("//path[@fill='none']").node().attribute("d").value();
  const pugi::xml_node frame = seen("box-0-0").child("rect");
  const int centreX = number(frame, "x") + number(frame, "width") / 2;
  const int centreY = number(frame, "y") + number(frame, "height") / 2;
  const std::string down =
      "M" + std::to_string(centreX) + " " + std::to_string(centreY + number(frame, "height") / 2);
  const std::string right =
      "M" + std::to_string(centreX + number(frame, "width") / 2) + " " + std::to_string(centreY);
  EXPECT_NE(lines.find(down + "L"), std::string::npos) << lines;
  EXPECT_NE(lines.find(right + "L"), std::string::npos) << lines;
  const pugi::xml_node below = seen("box-0-1").child("rect");
  EXPECT_EQ(number(below, "x") + number(below, "width") / 2, centreX);
}

TEST_F(SvgChartTest, KeepsBoxesApartAndOnThePaper) {
  select(ChartFile().box(0, 0, "One").box(1, 0, "Two").box(0, 1, "Three").box(1, 1, "Four"));
  const pugi::xml_node root = picture();
  std::vector<pugi::xml_node> frames;
  for (const auto& found : root.select_nodes("//g[@role='img']/g/rect[1]")) {
    frames.push_back(found.node());
  }
  ASSERT_EQ(frames.size(), 4U);
  for (const pugi::xml_node a : frames) {
    EXPECT_GE(number(a, "x"), 0);
    EXPECT_LE(number(a, "x") + number(a, "width"), number(root, "width") - 2 * 24);
    EXPECT_LE(number(a, "y") + number(a, "height"), number(root, "height") - 2 * 24);
    for (const pugi::xml_node b : frames) {
      if (a == b) continue;
      const bool beside = std::abs(number(a, "x") - number(b, "x")) > 40;
      const bool below = number(b, "y") >= number(a, "y") + number(a, "height") + 18 ||
                         number(a, "y") >= number(b, "y") + number(b, "height") + 18;
      EXPECT_TRUE(beside || below);
    }
  }
}

TEST_F(SvgChartTest, MayBeCutBetweenItsBoxes) {
  select(question());
  picture();
  const SvgCuts cuts = SvgChart(navigator, {}).cuts();
  ASSERT_EQ(cuts.columns.size(), 1U);
  ASSERT_EQ(cuts.rows.size(), 1U);
  const auto right = [this](const char* id) {
    return number(seen(id).child("rect"), "x") + number(seen(id).child("rect"), "width");
  };
  EXPECT_GE(cuts.columns[0] - 24, std::max(right("box-0-0"), right("box-0-1")));
  EXPECT_LE(cuts.columns[0] - 24, number(seen("box-1-0").child("rect"), "x"));
  EXPECT_LE(cuts.rows[0] - 24, number(seen("box-0-1").child("rect"), "y"));
}

TEST_F(SvgChartTest, WritesAPartWithTheBoxesThatReachIntoIt) {
  select(question());
  const SvgChart chart(navigator, {});
  const auto [columns, rows] = chart.cuts();
  const auto titlesIn = [this, &chart](const SvgArea& area) {
    document.load_string(chart.svg(area).c_str());
    return titles();
  };
  EXPECT_EQ(titlesIn({columns[0], 0, chart.width() - columns[0], chart.height()}),
            (Titles{"Open."}));
  const std::string corner = std::to_string(columns[0] - 24) + " -24 ";
  EXPECT_EQ(std::string(document.child("svg").attribute("viewBox").value()).find(corner), 0U);
  EXPECT_EQ(titlesIn({0, rows[0], chart.width(), 100}), (Titles{"Pass."}));
  EXPECT_EQ(titlesIn({0, 0, chart.width(), rows[0]}),
            (Titles{"12+? Yes: Open. No: Pass. On the path.", "Open."}));
  EXPECT_EQ(titlesIn({columns[0] - 1, 30, 1, 1}).size(), 1U);
}

TEST_F(SvgChartTest, RoundsTheBendsOfALine) {
  select(ChartFile().box(0, 0, "?", xPlus).line(1, 0, xPlus, yPlus).box(1, 1, "End"));
  picture();
  const std::string lines =
      document.select_node("//path[@fill='none']").node().attribute("d").value();
  EXPECT_NE(lines.find('Q'), std::string::npos) << lines;
}

TEST_F(SvgChartTest, EndsALineInACrossWhereItLeadsToNothing) {
  select(ChartFile().box(0, 0, "?", xPlus));
  picture();
  const std::string lines =
      document.select_node("//path[@fill='none']").node().attribute("d").value();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), 'M'), 3) << lines;
  EXPECT_EQ(count("//path[not(@stroke)]"), 0U);
}

TEST_F(SvgChartTest, MeetsWhereSeveralLinesJoin) {
  select(ChartFile()
             .box(0, 0, "?", xPlus, yPlus)
             .line(1, 0, xPlus, xPlus)
             .box(1, 1, "??", yMinus)
             .box(0, 1, "End")
             .box(2, 0, "Join"));
  picture();
  EXPECT_EQ(titles(),
            (Titles{"? Yes: Join. No: End. On the path.", "Join.", "End.", "?? Yes: Join."}));
}

// Strokes that only touch would leave a corner open.
TEST_F(SvgChartTest, EndsAllStrokesRound) {
  select(question(), "y");
  picture();
  EXPECT_EQ(count("//path[@stroke]"), 2U);
  EXPECT_EQ(count("//path[@stroke-linecap='round']"), 2U);
}

TEST_F(SvgChartTest, MakesAnyTextFitForXml) {
  select(ChartFile().node({"a<b & \"c\"", "bell\a", "\xEF\xBF\xBE\xEF\xBF\xBF"}).cell(0, 0, 0));
  picture();
  EXPECT_EQ(textOf(seen("box-0-0").child("text")), "a<b & \"c\"");
  EXPECT_EQ(titles(), (Titles{"a<b & \"c\" bell\uFFFD \uFFFD\uFFFD. On the path."}));
}

TEST_F(SvgChartTest, SaysThatATextIsNotUtf8OrEmpty) {
  select(ChartFile().box(0, 0, "\xFF", xPlus).node({}).cell(1, 1, 0));
  picture();
  EXPECT_EQ(titles(), (Titles{"(not UTF-8). Yes: (no text). On the path.", "(no text)."}));
}

TEST_F(SvgChartTest, IsBlankForAFlowchartWithoutElements) {
  drawn(ChartFile());
  const pugi::xml_node root = picture();
  EXPECT_EQ(number(root, "width"), 48);
  EXPECT_TRUE(SvgChart(navigator, {}).cuts().columns.empty());
  EXPECT_TRUE(titles().empty());
}

// Lines in circles must not make the drawing endless, nor slow.
TEST_F(SvgChartTest, DrawsManyExitsIntoOneCircleOfLines) {
  ChartFile chart;
  chart.box(0, 0, "?", yPlus);
  constexpr int length = 20000;
  chart.run(0, 1, xPlus, length - 1).line(length - 1, 1, xPlus, yPlus);
  chart.line(length - 1, 2, yPlus, xMinus).run(1, 2, xMinus, 0);
  for (int x = length - 2; x > 0; --x) chart.line(x, 2, xMinus, xMinus);
  chart.line(0, 2, xMinus, yMinus);
  for (int x = 1; x < length; ++x) chart.box(x, 0, "?", yPlus);
  select(chart.box(0, 3, "End"));
  picture();
  EXPECT_EQ(titles().back(), "End.");
}

}  // namespace
}  // namespace tavrel
