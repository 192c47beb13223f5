// What the tests of drawings share.

#ifndef TAVREL_TESTS_GOLDEN_PICTUREFIXTURE_H
#define TAVREL_TESTS_GOLDEN_PICTUREFIXTURE_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "Program.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {

inline const std::filesystem::path golden = TAVREL_GOLDEN;
inline const std::filesystem::path drawingsDirectory = golden / "drawings";

/// How `tavrel draw` ends with these words behind it, run in `here`: as `endOf` says it.
inline std::string draw(const std::string& words, const std::filesystem::path& here) {
  const CommandLine command =
      parseCommandLine(wordsOf("tavrel draw --charts " + (golden / "charts").string() + words));
  return endOf(command, here.string());
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
  const std::string loops = " " + (drawingsDirectory / "loops.fv").string();
};

}  // namespace tavrel

#endif
