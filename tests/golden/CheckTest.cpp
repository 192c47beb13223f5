// What `tavrel check` says of files and folders that transcripts can't bring along.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

struct Said {
  std::string output;
  std::string errors;
  int status;
};

// Through a shell, whose words stand in single quotes where they need it.
Said check(const fs::path& here, const std::string& words) {
  const std::string line = "cd '" + here.string() +
                           "' && LC_ALL=C.UTF-8 '" TAVREL_PROGRAM "' check " + words +
                           " >output 2>errors";
  const int status = std::system(line.c_str());
  return {readFile(here / "output"), readFile(here / "errors"), WEXITSTATUS(status)};
}

TEST(Check, SaysPlainlyThatAFileCantBeRead) {
  const TemporaryDirectory here;
  fs::create_symlink("Loop.yaml", here.path() / "Loop.yaml");
  const Said said = check(here.path(), "Loop.yaml");
  EXPECT_EQ(said.errors, "tavrel: cannot read 'Loop.yaml': Too many levels of symbolic links\n");
  EXPECT_EQ(said.status, 2);
}

TEST(Check, GoesOnInAFolderWhereSomeFileCantBeRead) {
  const TemporaryDirectory here;
  fs::create_symlink("Loop.yaml", here.path() / "Loop.yaml");
  writeFile(here.path() / "Opening.fv", "");
  const Said said = check(here.path(), ".");
  EXPECT_EQ(said.output.find("./Opening.fv:1:1: error"), 0U) << said.output;
  EXPECT_EQ(said.status, 2);
}

TEST(Check, GoesOnBehindAFolderWithoutCharts) {
  const TemporaryDirectory here;
  fs::create_directory(here.path() / "empty");
  writeFile(here.path() / "Opening.fv", "");
  const Said said = check(here.path(), "empty Opening.fv");
  EXPECT_EQ(said.output.find("Opening.fv:1:1: error"), 0U) << said.output;
  EXPECT_EQ(said.errors, "tavrel: there is no *.yaml and no *.fv in 'empty'\n");
  EXPECT_EQ(said.status, 2);
}

// Nobody may ever write into the pipe.
TEST(Check, PassesOverWhatIsNoFileInAFolder) {
  const TemporaryDirectory here;
  ASSERT_EQ(mkfifo((here.path() / "Pipe.yaml").c_str(), 0600), 0);
  fs::create_directory(here.path() / "Folder.yaml");
  writeFile(here.path() / "Opening.fv", "");
  const Said said = check(here.path(), ".");
  EXPECT_EQ(said.output.find("./Opening.fv:1:1: error"), 0U) << said.output;
  EXPECT_EQ(said.errors, "");
  EXPECT_EQ(said.status, 1);
}

// A line feed, a control character, and a byte that is not UTF-8.
const std::string strangeName = "Open\n\x1B[31m\xFF.fv";

TEST(Check, WritesJsonWhateverFilesAreCalledAndHold) {
  const TemporaryDirectory here;
  writeFile(here.path() / strangeName, "\xFF\x01\"\\\n\r\n\xC2\x85");
  const Said said = check(here.path(), "--json '" + strangeName + "'");
  const nlohmann::json found = nlohmann::json::parse(said.output);
  ASSERT_EQ(found.size(), 5U) << said.output;
  EXPECT_EQ(found[0]["file"], "Open\n\x1B[31m\uFFFD.fv");
  EXPECT_EQ(said.status, 1);
}

TEST(Check, PrintsNamesOfFilesSoThatTheyCantMoveTheCursor) {
  const TemporaryDirectory here;
  writeFile(here.path() / strangeName, "");
  const Said said = check(here.path(), "'" + strangeName + "'");
  EXPECT_EQ(said.output.find("Open\uFFFD\uFFFD[31m\uFFFD.fv:1:1: error"), 0U) << said.output;
}

}  // namespace
}  // namespace tavrel
