// What the command does that no file can show.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <iterator>
#include <string>
#include <utility>

#include "Program.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

using Pipe = std::pair<int, int>;

Pipe newPipe() {
  int ends[2] = {-1, -1};
  if (pipe(ends) != 0) ADD_FAILURE() << "no pipe";
  return {ends[0], ends[1]};
}

// Starts the command with these standard streams.
pid_t start(const std::string& line, int in, int out, int error) {
  const CommandLine command = parseCommandLine(wordsOf(line));
  const pid_t process = fork();
  if (process == 0) {
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    for (int other = STDERR_FILENO + 1; other < 64; ++other) close(other);
    alarm(60);
    become(command, "/");
  }
  return process;
}

std::string endOf(pid_t process) {
  int status = 0;
  EXPECT_EQ(process, waitpid(process, &status, 0));
  return endNotation(status);
}

std::string readToEnd(int descriptor) {
  std::string all;
  char piece[4096];
  for (ssize_t count; (count = read(descriptor, piece, sizeof piece)) > 0;) {
    all.append(piece, static_cast<std::size_t>(count));
  }
  return all;
}

void expectAQuietEndWhenNobodyReadsOn(void (*signalMeanwhile)(int)) {
  const auto [deafEnd, out] = newPipe();
  close(deafEnd);
  const auto [errors, error] = newPipe();
  const auto before = std::signal(SIGPIPE, signalMeanwhile);
  const pid_t process = start("tavrel list", STDIN_FILENO, out, error);
  std::signal(SIGPIPE, before);
  close(out);
  close(error);
  EXPECT_EQ("signal " + std::to_string(SIGPIPE), endOf(process));
  EXPECT_EQ("", readToEnd(errors));
  close(errors);
}

// A walk of "Opening" with a program on the other side of two pipes.
struct PipedWalk {
  int commands;
  int answers;
  pid_t process;
};

PipedWalk walkBetweenPipes() {
  const auto [in, commands] = newPipe();
  const auto [answers, out] = newPipe();
  const std::string line = "tavrel walk Opening --charts " TAVREL_CHARTS;
  const pid_t process = start(line, in, out, STDERR_FILENO);
  close(in);
  close(out);
  return {commands, answers, process};
}

TEST(Program, EndsQuietlyWhenNobodyReadsOn) { expectAQuietEndWhenNobodyReadsOn(SIG_DFL); }

// Some starters of programs leave SIGPIPE ignored.
TEST(Program, EndsQuietlyWhenNobodyReadsOnAndTheSignalIsIgnored) {
  expectAQuietEndWhenNobodyReadsOn(SIG_IGN);
}

TEST(Program, AnswersACommandWhileTheInputIsStillOpen) {
  const auto [commands, answers, process] = walkBetweenPipes();
  std::string got;
  char byte = 0;
  while (got.find("> yes, no\n\n") == std::string::npos && read(answers, &byte, 1) == 1) {
    got += byte;
  }
  EXPECT_EQ(0U, got.find("== Opening: "));
  EXPECT_EQ(2, write(commands, "q\n", 2));
  EXPECT_EQ("", readToEnd(answers));
  EXPECT_EQ("exit 0", endOf(process));
  close(commands);
  close(answers);
}

TEST(Program, EndsAtTheEndOfItsInputInTheMiddleOfALine) {
  const auto [commands, answers, process] = walkBetweenPipes();
  EXPECT_EQ(3, write(commands, "n\ny", 3));
  close(commands);
  const std::string all = readToEnd(answers);
  EXPECT_NE(std::string::npos, all.find("| Open 1NT\n"));
  EXPECT_EQ("exit 0", endOf(process));
  close(answers);
}

// Where a compiled chart is written to.
class ProgramOutput : public testing::Test {
 protected:
  ProgramOutput() {
    writeFile(source_, "chart: Overcall\nstart: a\nboxes:\n  a: {text: \"Pass\"}\n");
  }

  std::string compileTo(const std::filesystem::path& output) const {
    const std::string line = "tavrel compile " + source_.string() + " -o " + output.string();
    return endOf(start(line, STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO));
  }

  static bool isChart(const std::string& bytes) { return bytes.rfind("Overcall\n", 0) == 0; }

  const ChartDirectory folder_;
  const std::filesystem::path source_ = folder_.path() / "Overcall.yaml";
  const std::filesystem::path output_ = folder_.path() / "output";
};

TEST_F(ProgramOutput, GoesThroughALinkToItsFile) {
  const std::filesystem::path file = folder_.path() / "file";
  writeFile(file, "old");
  std::filesystem::create_symlink("file", output_);
  EXPECT_EQ("exit 0", compileTo(output_));
  EXPECT_TRUE(std::filesystem::is_symlink(output_));
  EXPECT_TRUE(isChart(readFile(file)));
}

TEST_F(ProgramOutput, GoesIntoAPipeThatStaysOne) {
  ASSERT_EQ(0, mkfifo(output_.c_str(), 0600));
  const int reader = open(output_.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ("exit 0", compileTo(output_));
  EXPECT_TRUE(isChart(readToEnd(reader)));
  EXPECT_TRUE(std::filesystem::is_fifo(output_));
  close(reader);
}

TEST_F(ProgramOutput, LeavesNoDraftBehind) {
  EXPECT_EQ("exit 0", compileTo(output_));
  std::filesystem::create_directory(folder_.path() / "Overcall.fv");
  EXPECT_EQ("exit 2", compileTo(folder_.path()));
  const auto entries = std::filesystem::directory_iterator(folder_.path());
  EXPECT_EQ(3, std::distance(begin(entries), end(entries)));
}

// What a chart asks of a hand, in a file beside it.
class ProgramConditions : public ProgramOutput {
 protected:
  // Makes the source say something of hands, or nothing.
  void ask(bool asks) const {
    const std::string call = asks ? ", call: P" : "";
    writeFile(source_, "chart: Overcall\nstart: a\nboxes:\n  a: {text: \"Pass\"" + call + "}\n");
  }

  bool areConditions(const std::string& name) const {
    return readFile(folder_.path() / name).find("\"chart\": \"Overcall\"") != std::string::npos;
  }

  bool exists(const std::string& name) const {
    return std::filesystem::exists(folder_.path() / name);
  }
};

TEST_F(ProgramConditions, StandBesideTheFlowchart) {
  ask(true);
  EXPECT_EQ("exit 0", compileTo(folder_.path()));
  EXPECT_TRUE(areConditions("Overcall.when"));
  EXPECT_EQ("exit 0", compileTo(folder_.path() / "other.fv"));
  EXPECT_TRUE(areConditions("other.when"));
  EXPECT_EQ("exit 0", compileTo(output_));
  EXPECT_TRUE(areConditions("output.when"));
}

TEST_F(ProgramConditions, AreNotWrittenOfAChartThatSaysNothingOfHands) {
  EXPECT_EQ("exit 0", compileTo(folder_.path()));
  EXPECT_TRUE(exists("Overcall.fv"));
  EXPECT_FALSE(exists("Overcall.when"));
}

TEST_F(ProgramConditions, GoOnceTheChartSaysNothingOfHandsAnyMore) {
  ask(true);
  EXPECT_EQ("exit 0", compileTo(folder_.path()));
  ask(false);
  EXPECT_EQ("exit 0", compileTo(folder_.path()));
  EXPECT_FALSE(exists("Overcall.when"));
}

TEST_F(ProgramConditions, LeaveFilesOfTheirNameThatAreNone) {
  for (const char* bytes : {"when I come home", "{", ""}) {
    writeFile(folder_.path() / "output.when", bytes);
    EXPECT_EQ("exit 0", compileTo(output_));
    EXPECT_EQ(bytes, readFile(folder_.path() / "output.when"));
  }
}

TEST_F(ProgramConditions, DontGoWhereTheFlowchartIsNoFile) {
  ask(true);
  ASSERT_EQ(0, mkfifo(output_.c_str(), 0600));
  const int reader = open(output_.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ("exit 0", compileTo(output_));
  EXPECT_TRUE(isChart(readToEnd(reader)));
  EXPECT_FALSE(exists("output.when"));
  close(reader);
}

TEST_F(ProgramConditions, ArentWrittenOverByAFlowchart) {
  EXPECT_EQ("exit 2", compileTo(folder_.path() / "output.when"));
  EXPECT_FALSE(exists("output.when"));
}

// A source may be called anything.
TEST_F(ProgramConditions, AreNotWrittenOverTheirSource) {
  ask(true);
  const std::filesystem::path odd = folder_.path() / "Overcall.when";
  std::filesystem::copy_file(source_, odd);
  const std::string line = "tavrel compile " + odd.string();
  EXPECT_EQ("exit 2", endOf(start(line, STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO)));
  EXPECT_EQ(readFile(source_), readFile(odd));
  EXPECT_FALSE(exists("Overcall.fv"));
}

// A chart without the conditions that belong to it would ask persons alone.
TEST_F(ProgramConditions, ThatCantBeWrittenAreAFailure) {
  ask(true);
  std::filesystem::create_directory(folder_.path() / "Overcall.when");
  EXPECT_EQ("exit 2", compileTo(folder_.path()));
}

}  // namespace
}  // namespace tavrel
