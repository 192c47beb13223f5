// What the command does on a terminal that no picture of the screen can show.

#include <gtest/gtest.h>
#include <regex.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>

#include "PseudoTerminal.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Files.h"

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

// A walk of a source, whose author saves it now and then.
class ScreenWatch : public testing::Test {
 protected:
  ScreenWatch() { save("Overcall", first); }

  void save(const std::string& name, const std::string& source) {
    writeFile(folder_.path() / "draft", source);
    std::filesystem::rename(folder_.path() / "draft", folder_.path() / (name + ".yaml"));
  }

  PseudoTerminal walk(const std::string& arguments = "", const std::string& variables = "") {
    const std::string command = " tavrel walk Overcall.yaml --watch --charts . ";
    return PseudoTerminal(parseCommandLine(wordsOf(variables + command + arguments)),
                          folder_.path(), {80, 24});
  }

  // Whether the text comes to be seen. The command looks for itself whether a file was saved.
  static bool shows(PseudoTerminal& terminal, const std::string& text) {
    for (int tries = 0; tries < 200; ++tries) {
      terminal.type("");
      if (terminal.screen().text().find(text) != std::string::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }

  const std::string head = "chart: Overcall\nstart: suit\nboxes:\n";
  const std::string first = head +
                            "  suit: {text: \"A suit?\", yes: strong, no: {text: \"Pass\"}}\n"
                            "  strong: {text: \"8+ HCP?\", yes: bid, no: {text: \"Too weak\"}}\n"
                            "  bid: {text: \"Bid it\", chart: RespSuit}\n";
  const ChartDirectory folder_;
};

TEST_F(ScreenWatch, StaysAtTheBoxWhateverComesBeforeIt) {
  PseudoTerminal terminal = walk("--answers ny");
  terminal.type("yy");
  ASSERT_TRUE(shows(terminal, "Overcall 2,0: follow to RespSuit"));
  save("Overcall", head +
                       "  suit: {text: \"Not vulnerable?\", yes: {text: \"A suit?\", yes: strong, "
                       "no: {text: \"Pass\"}}, no: {text: \"Wait\"}}\n"
                       "  strong: {text: \"9+ HCP?\", yes: bid, no: {text: \"Too weak\"}}\n"
                       "  bid: {text: \"Bid the suit\", comment: \"Now or never.\"}\n");
  EXPECT_TRUE(shows(terminal, "The source was saved"));
  EXPECT_TRUE(shows(terminal, "Now or never."));
  EXPECT_TRUE(shows(terminal, "9+ HCP?"));
  EXPECT_FALSE(terminal.screen().text().find("━") == std::string::npos) << "the path has gone";
  terminal.type("bbb");
  EXPECT_TRUE(shows(terminal, "Overcall 0,0: yes, no"));
}

TEST_F(ScreenWatch, GoesBackToTheLastBoxThatIsStillThere) {
  PseudoTerminal terminal = walk();
  terminal.type("yy");
  ASSERT_TRUE(shows(terminal, "Overcall 2,0: follow to RespSuit"));
  save("Overcall", head +
                       "  suit: {text: \"A suit?\", yes: strong, no: {text: \"Pass\"}}\n"
                       "  strong: {text: \"8+ HCP?\", comment: \"Here.\"}\n");
  EXPECT_TRUE(shows(terminal, "Here."));
}

TEST_F(ScreenWatch, GoesOnInTheOldChartWhileTheNewOneIsWrong) {
  PseudoTerminal terminal = walk();
  terminal.type("y");
  ASSERT_TRUE(shows(terminal, "Overcall 1,0: yes, no"));
  save("Overcall", head + "  suit: {text: \"A suit?\", yes: strong}\n");
  EXPECT_TRUE(shows(terminal, "Overcall.yaml:4:32: error: no box has the id strong [T0207]"));
  terminal.type("n");
  EXPECT_TRUE(shows(terminal, "Overcall 1,2: the end"));
  save("Overcall", first);
  EXPECT_TRUE(shows(terminal, "The source was saved"));
}

TEST_F(ScreenWatch, StaysInAChartThatALinkLedTo) {
  const std::string linked = "chart: RespSuit\nstart: fit\nboxes:\n  fit: {text: \"A fit?\", ";
  save("RespSuit", linked + "yes: {text: \"Raise\"}, no: {text: \"1NT\"}}\n");
  PseudoTerminal terminal = walk();
  terminal.type("yy\rn");
  ASSERT_TRUE(shows(terminal, "RespSuit 0,2: the end"));
  save("RespSuit", linked +
                       "yes: {text: \"2!s\"}, no: {id: notrump, text: \"1NT\", "
                       "comment: \"Not forcing.\"}}\n");
  EXPECT_TRUE(shows(terminal, "The source was saved"));
  terminal.type("b");
  EXPECT_TRUE(shows(terminal, "RespSuit 0,0: yes, no"));
  terminal.type("b");
  EXPECT_TRUE(shows(terminal, "Overcall 2,0: follow to RespSuit"));
}

TEST_F(ScreenWatch, StaysInALinkedChartWhileItsSourceIsWrong) {
  const std::string linked = "chart: RespSuit\nstart: fit\nboxes:\n  fit: {text: \"A fit?\", ";
  save("RespSuit", linked + "yes: {text: \"Raise\"}, no: {text: \"1NT\"}}\n");
  PseudoTerminal terminal = walk();
  terminal.type("yy\r");
  ASSERT_TRUE(shows(terminal, "RespSuit 0,0: yes, no"));
  save("RespSuit", linked + "yes: raise}\n");
  EXPECT_TRUE(shows(terminal, "RespSuit.yaml:4:30: error: no box has the id raise"));
  terminal.type("n");
  EXPECT_TRUE(shows(terminal, "RespSuit 0,2: the end"));
  EXPECT_TRUE(shows(terminal, "error: no box has the id raise")) << "it stands until it is mended";
  save("RespSuit", linked + "yes: {text: \"Raise\"}, no: {text: \"1NT\"}}\n");
  EXPECT_TRUE(shows(terminal, "The source was saved"));
}

TEST_F(ScreenWatch, LeavesNothingBehind) {
  const ChartDirectory temporary;
  PseudoTerminal terminal = walk("", "TMPDIR=" + temporary.path().string());
  EXPECT_FALSE(std::filesystem::is_empty(temporary.path()));
  terminal.end(SIGTERM);
  ASSERT_TRUE(terminal.status());
  EXPECT_EQ("signal " + std::to_string(SIGTERM), endNotation(*terminal.status()));
  EXPECT_TRUE(std::filesystem::is_empty(temporary.path()));
}

}  // namespace
}  // namespace tavrel
