// PNG and PDF depend on the fonts of the machine: they are compared with one another, as
// pictures.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "PictureFixture.h"
#include "Squares.h"

namespace tavrel {
namespace {

constexpr int tolerance = 32;  // of 255

TEST_F(PictureTest, IsTheSameAsPngAndAsAPage) {
  ASSERT_EQ(draw(loops + " --answers yn -o chart.png", here.path()), "exit 0");
  ASSERT_EQ(draw(loops + " --answers yn -o chart.pdf", here.path()), "exit 0");
  run("pdftocairo -png -singlefile -r 192 chart.pdf page");  // two pixels for each unit
  const Squares picture = squaresOf(here.path() / "chart.png");
  const Squares page = squaresOf(here.path() / "page.png");
  EXPECT_EQ(page.width, picture.width);
  EXPECT_EQ(page.height, picture.height);
  EXPECT_LE(difference(picture, page), tolerance);
  ASSERT_EQ(draw(loops + " --answers yy -o chart.png", here.path()), "exit 0");
  EXPECT_GT(difference(squaresOf(here.path() / "chart.png"), page), tolerance);
}

TEST_F(PictureTest, HasTextAndLinksOnAPage) {
  ASSERT_EQ(draw(loops + " -o chart.pdf", here.path()), "exit 0");
  run("pdftotext chart.pdf chart.txt");
  EXPECT_NE(read("chart.txt").find("or ♠ longer than ♥?"), std::string::npos) << read("chart.txt");
  EXPECT_NE(read("chart.pdf").find("/URI (RespNT.pdf)"), std::string::npos);
}

TEST_F(PictureTest, FitsThePaper) {
  ASSERT_EQ(draw(loops + " --page A4 -o one.pdf", here.path()), "exit 0");
  run("pdfinfo one.pdf >one.txt; pdftotext one.pdf words.txt");
  EXPECT_NE(read("one.txt").find("Pages:           1\n"), std::string::npos) << read("one.txt");
  EXPECT_NE(read("one.txt").find("(A4)"), std::string::npos);
  EXPECT_NE(read("words.txt").find("loops\n"), std::string::npos);
  EXPECT_EQ(read("words.txt").find("across"), std::string::npos);
}

// Whatever the time of day.
TEST_F(PictureTest, IsTheSamePdfEachTime) {
  ASSERT_EQ(draw(loops + " --page A4 -o first.pdf", here.path()), "exit 0");
  ASSERT_EQ(draw(loops + " --page A4 -o second.pdf", here.path()), "exit 0");
  EXPECT_EQ(read("first.pdf"), read("second.pdf"));
  run("pdfinfo first.pdf >info.txt");
  EXPECT_EQ(read("info.txt").find("CreationDate"), std::string::npos) << read("info.txt");
}

TEST_F(PictureTest, ShortensATitleToTheWidthOfThePage) {
  const std::string name(200, 'W');
  writeFile(here.path() / (name + ".fv"), readFile(drawingsDirectory / "loops.fv"));
  ASSERT_EQ(draw(" " + name + ".fv --page A4 -o long.pdf", here.path()), "exit 0");
  run("pdftotext long.pdf words.txt");
  EXPECT_NE(read("words.txt").find("WWW…\n"), std::string::npos) << read("words.txt");
  EXPECT_EQ(read("words.txt").find(std::string(100, 'W')), std::string::npos);
}

TEST_F(PictureTest, MayComeFromAFileWhoseNameIsNotUtf8) {
  writeFile(here.path() /
                "a\xFF"
                "b.fv",
            readFile(drawingsDirectory / "loops.fv"));
  ASSERT_EQ(draw(" a\xFF"
                 "b.fv --page A4 -o named.pdf",
                 here.path()),
            "exit 0");
  run("pdftotext named.pdf words.txt; pdfinfo named.pdf >info.txt");
  EXPECT_NE(read("words.txt").find("a\uFFFDb\n"), std::string::npos) << read("words.txt");
  EXPECT_NE(read("info.txt").find("a\uFFFDb\n"), std::string::npos) << read("info.txt");
}

constexpr int questions = 40;

// Questions in a column, each with an answer at its right that leads into another chart.
std::string longSource() {
  std::string source = "chart: Jacoby\nintro: x\nstart: b0\nboxes:\n";
  for (int i = 0; i < questions; ++i) {
    const std::string next = i + 1 < questions ? "b" + std::to_string(i + 1) : "end";
    source += "  b" + std::to_string(i) + ":\n    text: Question " + std::to_string(i) +
              "?\n    yes: {text: \"1NT\", chart: \"RespNT\"}\n    no: " + next + "\n";
  }
  return source + "  end:\n    text: End\n";
}

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t found = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    ++found;
  }
  return found;
}

TEST_F(PictureTest, IsSpreadOverPagesThatSayWhereTheyBelong) {
  writeFile(here.path() / "long.yaml", longSource());
  ASSERT_EQ(draw(" long.yaml --page Letter -o many.pdf", here.path()), "exit 0");
  run("pdfinfo many.pdf >many.txt; pdftotext many.pdf words.txt");
  EXPECT_NE(read("many.txt").find("(letter)"), std::string::npos) << read("many.txt");
  const std::string words = read("words.txt");
  for (int i = 0; i < questions; ++i) {
    EXPECT_EQ(count(words, "Question " + std::to_string(i) + "?"), 1U) << i;
  }
  EXPECT_EQ(count(read("many.pdf"), "/URI (RespNT.pdf)"), std::size_t{questions});
  const std::string second = words.substr(words.find('\f'));  // a form feed ends a page
  EXPECT_NE(second.find("across 1 of 1, down 2 of "), std::string::npos);
  EXPECT_EQ(count(words, "across"), count(words, "\f"));
}

}  // namespace
}  // namespace tavrel
