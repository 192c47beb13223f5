// What `tavrel compile` writes, byte for byte, whatever it was built by: the files in compiled/,
// each of the source of that name beside it or, where there is none, of the chart of the tree.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Program.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

const fs::path directory = fs::path(TAVREL_GOLDEN) / "compiled";

fs::path sourceOf(const std::string& name) {
  const fs::path small = directory / (name + ".yaml");
  return fs::exists(small) ? small : fs::path(TAVREL_SOURCES) / (name + ".yaml");
}

class CompileTest : public testing::TestWithParam<std::string> {};

TEST_P(CompileTest, WritesWhatIsInTheFile) {
  const TemporaryDirectory here;
  CommandLine command = parseCommandLine(wordsOf("tavrel compile -o out.fv"));
  command.arguments.push_back(sourceOf(GetParam()).string());
  ASSERT_EQ(endOf(command, here.path().string()), "exit 0");
  const std::string written = readFile(here.path() / "out.fv");
  const fs::path file = directory / (GetParam() + ".fv");
  if (isUpdatingGoldenFiles()) return writeFile(file, written);
  EXPECT_EQ(written, readFile(file));
}

INSTANTIATE_TEST_SUITE_P(All, CompileTest, testing::ValuesIn(goldenFilesListed(directory)),
                         goldenTestName);

TEST(CompileTests, AreThoseOfTheListAndAllChartsOfTheTree) {
  EXPECT_EQ(goldenFilesIn(directory, ".fv"), goldenFilesListed(directory));
  for (const std::string& chart : goldenFilesIn(TAVREL_SOURCES, ".yaml")) {
    EXPECT_TRUE(fs::exists(directory / (chart + ".fv"))) << chart;
  }
  for (const std::string& small : goldenFilesIn(directory, ".yaml")) {
    EXPECT_TRUE(fs::exists(directory / (small + ".fv"))) << small;
  }
}

}  // namespace
}  // namespace tavrel
