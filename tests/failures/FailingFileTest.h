// Something in the place of flowchart 0's file, met by engine and navigator, while the
// reference meets what they shall take it for.

#ifndef TAVREL_TESTS_FAILURES_FAILINGFILETEST_H
#define TAVREL_TESTS_FAILURES_FAILINGFILETEST_H

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "tests/failures/Company.h"
#include "tests/failures/SmallCharts.h"
#include "tests/reference/ChartFiles.h"
#include "tests/support/Descriptors.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {

using reference::startRequest;

class FailingFileTest : public testing::Test {
 protected:
  FailingFileTest() {
    writeNeighbours(directory.path());
    writeNeighbours(plain.directory());
  }
  // A read that waits for ever ends the program.
  void SetUp() override {
    descriptor_ = nextDescriptor();
    alarm(60);
  }
  void TearDown() override {
    alarm(0);
    EXPECT_EQ(nextDescriptor(), descriptor_) << "a file is still open";
  }

  const std::string& chart() const { return smallCharts()[0]; }

  /// Engine and navigator, new to what stands at flowchart 0's file, agree with the reference
  /// that finds no file there; and find the chart once it is there.
  void expectUnread() {
    expectUnreadIn(directory.path().string());
    std::filesystem::remove_all(file);
    writeFile(file, chart());
    expectRead(chart());
  }

  /// They agree with the reference that finds these bytes.
  void expectRead(const std::string& bytes) {
    plain.write("Opening", bytes);
    Company company(directory.path().string(), plain);
    EXPECT_EQ(company.ask(conversationAbout(opening)), "");
    EXPECT_EQ(company.lookEverywhere(), "");
    plain.remove("Opening");
  }

  /// They agree with the reference that finds no file for flowchart 0.
  void expectUnreadIn(const std::string& where) {
    Company company(where, plain);
    EXPECT_EQ(company.ask(conversationAbout(opening)), "");
    EXPECT_EQ(company.lookEverywhere(), "");
  }

  TemporaryDirectory directory;
  const std::filesystem::path file = directory.chart("Opening");
  reference::TemporaryFiles plain;

 private:
  int descriptor_ = -1;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_FAILINGFILETEST_H
