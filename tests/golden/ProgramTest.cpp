// What the command prints when it has no terminal, byte for byte.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>

#include "GoldenCase.h"
#include "Program.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"

namespace tavrel {
namespace {

const std::filesystem::path directory = std::filesystem::path(TAVREL_GOLDEN) / "program";

// After which a command that hangs is ended.
constexpr unsigned patienceSeconds = 60;

void redirect(int descriptor, const std::string& file, int flags) {
  const int opened = open(file.c_str(), flags, 0600);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(126);
}

// The end of the command, whose streams are files in the directory.
int statusOf(const CommandLine& command, const std::string& here) {
  const pid_t process = fork();
  if (process == 0) {
    if (chdir(here.c_str()) != 0) _exit(126);
    redirect(STDIN_FILENO, command.inputFile, O_RDONLY);
    redirect(STDOUT_FILENO, command.outputFile, O_WRONLY | O_CREAT | O_TRUNC);
    redirect(STDERR_FILENO, "stderr", O_WRONLY | O_CREAT | O_TRUNC);
    alarm(patienceSeconds);
    become(command, here);
  }
  int status = 0;
  if (process < 0 || waitpid(process, &status, 0) != process) {
    throw std::runtime_error("cannot start the command");
  }
  return status;
}

// Bytes as lines behind a mark; what is no printable ASCII or UTF-8 is escaped, and a
// last line without a line feed ends in a backslash.
void appendLines(Answer& answer, const std::string& mark, const std::string& bytes) {
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = bytes.find('\n', begin);
    const bool isOpen = end == std::string::npos;
    const std::string quoted = quote(bytes.substr(begin, isOpen ? end : end - begin));
    std::string line = quoted.substr(1, quoted.size() - 2);
    for (std::size_t at = 0; (at = line.find("\\\"", at)) != std::string::npos; ++at) {
      line.erase(at, 1);
    }
    answer.push_back(mark + (line.empty() ? "" : " " + line) + (isOpen ? "\\" : ""));
    begin = isOpen ? bytes.size() : end + 1;
  }
}

Answer run(const Operation& operation, const Places& places) {
  if (operation.name != "$") throw NotationError("a command starts with $");
  const std::filesystem::path here = places.here().path();
  CommandLine command = parseCommandLine(places.expanded(operation.arguments));
  if (command.inputFile.empty()) writeFile(here / (command.inputFile = "stdin"), operation.chart);
  const bool isKept = command.outputFile.empty();
  if (isKept) command.outputFile = "stdout";
  const int status = statusOf(command, here);
  Answer answer;
  if (isKept) appendLines(answer, "1>", places.abstracted(readFile(here / "stdout")));
  appendLines(answer, "2>", places.abstracted(readFile(here / "stderr")));
  answer.push_back(endNotation(status));
  return answer;
}

class ProgramTest : public testing::TestWithParam<std::string> {};

TEST_P(ProgramTest, PrintsWhatIsWritten) {
  playGoldenCase(directory / (GetParam() + ".transcript"), run);
}

INSTANTIATE_TEST_SUITE_P(All, ProgramTest,
                         testing::ValuesIn(goldenFilesIn(directory, ".transcript")),
                         goldenTestName);

TEST(ProgramTests, AreThoseOfTheList) {
  EXPECT_EQ(goldenFilesIn(directory, ".transcript"), goldenFilesListed(directory));
}

}  // namespace
}  // namespace tavrel
