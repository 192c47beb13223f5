// Drawings by the command. Text and SVG are compared byte for byte with the files in
// drawings/, which commands.txt lists with the words behind `tavrel draw`. PNG and PDF
// depend on the fonts of the machine: they are compared with one another, as pictures.

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Program.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

const fs::path golden = TAVREL_GOLDEN;
const fs::path directory = golden / "drawings";

struct Drawing {
  std::string file;   // in drawings/
  std::string words;  // behind `tavrel draw`
};

std::ostream& operator<<(std::ostream& out, const Drawing& drawing) { return out << drawing.file; }

std::vector<Drawing> drawingsListed() {
  std::vector<Drawing> drawings;
  std::ifstream list(directory / "commands.txt");
  for (std::string line; std::getline(list, line);) {
    const std::size_t blank = line.find(' ');
    std::string words = line.substr(blank);
    const std::size_t place = words.find("{golden}");
    if (place != std::string::npos) words.replace(place, 8, golden.string());
    drawings.push_back({line.substr(0, blank), words});
  }
  return drawings;
}

std::string draw(const std::string& words, const fs::path& here) {
  const CommandLine command =
      parseCommandLine(wordsOf("tavrel draw --charts " + (golden / "charts").string() + words));
  return endOf(command, here.string());
}

class DrawTest : public testing::TestWithParam<Drawing> {};

TEST_P(DrawTest, DrawsWhatIsInTheFile) {
  const TemporaryDirectory here;
  ASSERT_EQ(draw(GetParam().words + " -o " + GetParam().file, here.path()), "exit 0");
  const std::string drawn = readFile(here.path() / GetParam().file);
  if (isUpdatingGoldenFiles()) return writeFile(directory / GetParam().file, drawn);
  EXPECT_EQ(drawn, readFile(directory / GetParam().file));
}

std::string testName(const testing::TestParamInfo<Drawing>& info) {
  std::string name = info.param.file;
  for (char& letter : name) {
    if (letter == '-' || letter == '.') letter = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, DrawTest, testing::ValuesIn(drawingsListed()), testName);

TEST(DrawTests, AreThoseOfTheList) {
  std::vector<std::string> listed, present;
  for (const Drawing& drawing : drawingsListed()) listed.push_back(drawing.file);
  for (const auto& entry : fs::directory_iterator(directory)) {
    const std::string extension = entry.path().extension().string();
    const std::string name = entry.path().filename().string();
    if (extension == ".svg" || (extension == ".txt" && name != "commands.txt")) {
      present.push_back(name);
    }
  }
  std::sort(present.begin(), present.end());
  EXPECT_EQ(present, listed);
}

// A picture as the mean brightness of its squares of eight by eight pixels, in which the
// fringes of letters and lines even out.
struct Squares {
  int width = 0;
  int height = 0;
  std::vector<int> brightness;
};

Squares squaresOf(const fs::path& png) {
  cairo_surface_t* const picture = cairo_image_surface_create_from_png(png.c_str());
  EXPECT_EQ(cairo_surface_status(picture), CAIRO_STATUS_SUCCESS) << png;
  constexpr int side = 8;
  Squares squares;
  squares.width = cairo_image_surface_get_width(picture) / side;
  squares.height = cairo_image_surface_get_height(picture) / side;
  const unsigned char* const bytes = cairo_image_surface_get_data(picture);
  const int stride = cairo_image_surface_get_stride(picture);
  for (int y = 0; y < squares.height; ++y) {
    for (int x = 0; x < squares.width; ++x) {
      int sum = 0;
      for (int row = y * side; row < (y + 1) * side; ++row) {
        const unsigned char* const pixels = bytes + row * stride + x * side * 4;
        for (int pixel = 0; pixel < side; ++pixel) {
          sum += pixels[pixel * 4] + pixels[pixel * 4 + 1] + pixels[pixel * 4 + 2];
        }
      }
      squares.brightness.push_back(sum / (3 * side * side));
    }
  }
  cairo_surface_destroy(picture);
  return squares;
}

// The squares at the upper left.
Squares cropped(const Squares& all, int width, int height) {
  Squares part{width, height, {}};
  for (int y = 0; y < height; ++y) {
    const auto row = all.brightness.begin() + static_cast<std::ptrdiff_t>(y) * all.width;
    part.brightness.insert(part.brightness.end(), row, row + width);
  }
  return part;
}

// The largest difference of two squares, of 255.
int difference(const Squares& a, const Squares& b) {
  int largest = 0;
  for (std::size_t i = 0; i < std::min(a.brightness.size(), b.brightness.size()); ++i) {
    largest = std::max(largest, std::abs(a.brightness[i] - b.brightness[i]));
  }
  return largest;
}

class PictureTest : public testing::Test {
 protected:
  /// Runs a program in the test's directory.
  void run(const std::string& command) {
    const std::string line = "cd '" + here.path().string() + "' && " + command;
    ASSERT_EQ(std::system(line.c_str()), 0) << command;
  }

  std::string read(const char* file) { return readFile(here.path() / file); }

  TemporaryDirectory here;
  const std::string loops = " " + (directory / "loops.fv").string();
};

constexpr int tolerance = 32;  // of 255
// Browsers hint letters and lines below words in other ways.
constexpr int browserTolerance = 64;

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

// A browser to compare with is a large thing to install: TAVREL_CHROMIUM names the program.
TEST_F(PictureTest, IsTheSameInChromium) {
  const char* const chromium = std::getenv("TAVREL_CHROMIUM");
  if (chromium == nullptr) GTEST_SKIP() << "TAVREL_CHROMIUM names no program";
  for (const std::string theme : {"light", "dark", "print"}) {
    const std::string words = loops + " --answers yn --theme " + theme;
    ASSERT_EQ(draw(words + " -o chart.png", here.path()), "exit 0");
    ASSERT_EQ(draw(words + " -o chart.svg", here.path()), "exit 0");
    const Squares picture = squaresOf(here.path() / "chart.png");
    run(std::string(chromium) +
        " --headless --no-sandbox --disable-gpu --hide-scrollbars"
        " --force-device-scale-factor=2 --window-size=" +
        std::to_string(picture.width * 4 + 8) + "," + std::to_string(picture.height * 4 + 8) +
        " --screenshot=browser.png chart.svg 2>log");
    const Squares browser = squaresOf(here.path() / "browser.png");
    EXPECT_LE(difference(picture, cropped(browser, picture.width, picture.height)),
              browserTolerance);
  }
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
  writeFile(here.path() / (name + ".fv"), readFile(directory / "loops.fv"));
  ASSERT_EQ(draw(" " + name + ".fv --page A4 -o long.pdf", here.path()), "exit 0");
  run("pdftotext long.pdf words.txt");
  EXPECT_NE(read("words.txt").find("WWW…\n"), std::string::npos) << read("words.txt");
  EXPECT_EQ(read("words.txt").find(std::string(100, 'W')), std::string::npos);
}

TEST_F(PictureTest, MayComeFromAFileWhoseNameIsNotUtf8) {
  writeFile(here.path() /
                "a\xFF"
                "b.fv",
            readFile(directory / "loops.fv"));
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
