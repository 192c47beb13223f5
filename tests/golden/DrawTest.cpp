// Drawings by the command. Text and SVG are compared byte for byte with the files in
// drawings/, which commands.txt lists with the words behind `tavrel draw`.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "PictureFixture.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

struct Drawing {
  std::string file;   // in drawings/
  std::string words;  // behind `tavrel draw`
};

std::ostream& operator<<(std::ostream& out, const Drawing& drawing) { return out << drawing.file; }

std::vector<Drawing> drawingsListed() {
  std::vector<Drawing> drawings;
  std::ifstream list(drawingsDirectory / "commands.txt");
  for (std::string line; std::getline(list, line);) {
    const std::size_t blank = line.find(' ');
    std::string words = line.substr(blank);
    const std::size_t place = words.find("{golden}");
    if (place != std::string::npos) words.replace(place, 8, golden.string());
    drawings.push_back({line.substr(0, blank), words});
  }
  return drawings;
}

class DrawTest : public testing::TestWithParam<Drawing> {};

TEST_P(DrawTest, DrawsWhatIsInTheFile) {
  const TemporaryDirectory here;
  ASSERT_EQ(draw(GetParam().words + " -o " + GetParam().file, here.path()), "exit 0");
  const std::string drawn = readFile(here.path() / GetParam().file);
  if (isUpdatingGoldenFiles()) return writeFile(drawingsDirectory / GetParam().file, drawn);
  EXPECT_EQ(drawn, readFile(drawingsDirectory / GetParam().file));
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
  for (const auto& entry : fs::directory_iterator(drawingsDirectory)) {
    const std::string extension = entry.path().extension().string();
    const std::string name = entry.path().filename().string();
    if (extension == ".svg" || (extension == ".txt" && name != "commands.txt")) {
      present.push_back(name);
    }
  }
  std::sort(present.begin(), present.end());
  EXPECT_EQ(present, listed);
}

}  // namespace
}  // namespace tavrel
