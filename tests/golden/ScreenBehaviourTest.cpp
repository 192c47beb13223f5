// What the command does on a terminal that no picture of the screen can show.

#include <gtest/gtest.h>
#include <regex.h>
#include <sys/wait.h>

#include <csignal>
#include <cstring>
#include <string>

#include "PseudoTerminal.h"

namespace tavrel {
namespace {

CommandLine walkOpening(const std::string& variables = "") {
  return parseCommandLine(
      wordsOf(variables + " tavrel walk Opening --answers ny --charts " TAVREL_CHARTS));
}

// A sequence that sets a colour of text or of its ground.
bool hasColour(const std::string& raw) {
  regex_t colour;
  const char* pattern = "\033\\[([0-9]+;)*(3[0-8]|4[0-8]|9[0-7]|10[0-7])(;[0-9]+)*m";
  EXPECT_EQ(regcomp(&colour, pattern, REG_EXTENDED | REG_NOSUB), 0);
  const bool found = regexec(&colour, raw.c_str(), 0, nullptr, 0) == 0;
  regfree(&colour);
  return found;
}

bool endsWithFarewell(const std::string& raw) {
  const std::size_t left = raw.rfind("\033[?1049l");
  return left != std::string::npos && raw.find("\033[?1049h", left) == std::string::npos;
}

TEST(Screen, ColoursTheSuits) {
  const PseudoTerminal terminal(walkOpening(), "/", {80, 24});
  const std::string& raw = terminal.raw();
  EXPECT_TRUE(hasColour(raw));
  EXPECT_NE(std::string::npos, raw.find("\033[38;5;34m♣"));
}

TEST(Screen, HasNoColourWhereNoneIsWanted) {
  const PseudoTerminal terminal(walkOpening("NO_COLOR=1"), "/", {80, 24});
  EXPECT_NE(std::string::npos, terminal.screen().text().find("Open 2♣"));
  EXPECT_FALSE(hasColour(terminal.raw()));
}

TEST(Screen, TakesAnEmptyNoColorForUnset) {
  const PseudoTerminal terminal(walkOpening("NO_COLOR="), "/", {80, 24});
  EXPECT_TRUE(hasColour(terminal.raw()));
}

TEST(Screen, HasNoColourOnATerminalWithoutAny) {
  const PseudoTerminal terminal(walkOpening("TERM=vt220"), "/", {80, 24});
  EXPECT_NE(std::string::npos, terminal.screen().text().find("Open 2♣"));
  EXPECT_FALSE(hasColour(terminal.raw()));
}

class ScreenSignal : public testing::TestWithParam<int> {};

TEST_P(ScreenSignal, GivesTheTerminalBackAndEndsTheProgram) {
  PseudoTerminal terminal(walkOpening(), "/", {80, 24});
  ASSERT_TRUE(terminal.screen().isAlternate());
  ASSERT_FALSE(terminal.leftBehind().empty());
  terminal.end(GetParam());
  ASSERT_TRUE(terminal.status());
  // Under a sanitizer a crash is reported, and ends in an exit.
  if (WIFSIGNALED(*terminal.status())) {
    EXPECT_EQ(GetParam(), WTERMSIG(*terminal.status()));
  } else {
    EXPECT_NE(std::string::npos, terminal.raw().find("Sanitizer"));
  }
  EXPECT_TRUE(endsWithFarewell(terminal.raw()));
  EXPECT_EQ(std::vector<std::string>(), terminal.leftBehind());
}

std::string signalName(const testing::TestParamInfo<int>& number) {
  return std::string("SIG") + sigabbrev_np(number.param);
}

INSTANTIATE_TEST_SUITE_P(All, ScreenSignal,
                         testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGALRM, SIGPIPE,
                                         SIGUSR1, SIGUSR2, SIGPROF, SIGVTALRM, SIGXCPU, SIGXFSZ,
                                         SIGPOLL, SIGSYS, SIGTRAP, SIGSEGV, SIGBUS, SIGFPE, SIGILL,
                                         SIGABRT),
                         signalName);

TEST(Screen, EndsWhenTheTerminalIsClosed) {
  PseudoTerminal terminal(walkOpening(), "/", {80, 24});
  terminal.hangUp();
  ASSERT_TRUE(terminal.status());
  EXPECT_EQ("signal " + std::to_string(SIGHUP), endNotation(*terminal.status()));
}

// As under nohup: no signal says that the terminal is gone.
TEST(Screen, EndsWhenTheTerminalIsClosedAndTheSignalIsIgnored) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  PseudoTerminal terminal(walkOpening(), "/", {80, 24});
  std::signal(SIGHUP, before);
  terminal.hangUp();
  ASSERT_TRUE(terminal.status());
  EXPECT_EQ("exit 0", endNotation(*terminal.status()));
}

}  // namespace
}  // namespace tavrel
