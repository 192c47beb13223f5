// What the command shows on a terminal, cell for cell.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "GoldenCase.h"
#include "Program.h"
#include "PseudoTerminal.h"
#include "tests/support/GoldenFiles.h"

namespace tavrel {
namespace {

const std::filesystem::path directory = std::filesystem::path(TAVREL_GOLDEN) / "screens";

std::string bytesOfKey(const std::string& key) {
  static const std::map<std::string, std::string> named = {
      {"Up", "\033OA"},   {"Down", "\033OB"},    {"Right", "\033OC"},   {"Left", "\033OD"},
      {"Home", "\033OH"}, {"End", "\033OF"},     {"PageUp", "\033[5~"}, {"PageDown", "\033[6~"},
      {"Enter", "\r"},    {"Backspace", "\x7f"}, {"Space", " "},        {"Escape", "\033"},
      {"Tab", "\t"}};
  const auto found = named.find(key);
  if (found != named.end()) return found->second;
  if (key.size() != 1) throw NotationError("no key is named " + key);
  return key;
}

int signalOf(const std::string& name) {
  static const std::map<std::string, int> named = {
      {"INT", SIGINT},   {"TERM", SIGTERM}, {"HUP", SIGHUP},  {"QUIT", SIGQUIT},
      {"USR1", SIGUSR1}, {"SEGV", SIGSEGV}, {"ABRT", SIGABRT}};
  const auto found = named.find(name);
  if (found == named.end()) throw NotationError("no signal is named " + name);
  return found->second;
}

// Whether nothing shows in a row `|   |`.
bool isBlank(const std::string& row) { return row.find_first_not_of("| ") == std::string::npos; }

// The terminal of one case, from its command on.
class Sitting {
 public:
  Answer play(const Operation& operation, const Places& places) {
    Arguments arguments(operation);
    if (operation.name == "terminal") {
      size_ = takeSize(arguments);
      return {};
    }
    if (operation.name == "$") {
      const CommandLine command = parseCommandLine(places.expanded(operation.arguments));
      terminal_ = std::make_unique<PseudoTerminal>(command, places.here().path(), size_);
    } else {
      act(operation, arguments);
    }
    return seen();
  }

 private:
  void act(const Operation& operation, Arguments& arguments) {
    if (!terminal_) throw NotationError("a command with $ must stand before");
    if (operation.name == "keys") return typeKeys(operation);
    if (operation.name == "line") return terminal_->type(arguments.text() + "\n");
    if (operation.name == "resize") return terminal_->resize(takeSize(arguments));
    if (operation.name == "signal") return terminal_->end(signalOf(arguments.name()));
    throw NotationError("unknown operation " + operation.name);
  }

  void typeKeys(const Operation& operation) {
    std::string bytes;
    for (const Word& word : operation.arguments) bytes += bytesOfKey(word.text);
    terminal_->type(bytes);
  }

  static ScreenSize takeSize(Arguments& arguments) {
    const auto columns = static_cast<int>(arguments.integer());
    const auto rows = static_cast<int>(arguments.integer());
    arguments.finish();
    return {columns, rows};
  }

  // The screen; once the command has ended, without the blank rows at its bottom, but
  // with how it ended and what it has not given back.
  Answer seen() const {
    Answer answer = terminal_->screen().picture();
    if (!terminal_->status()) return answer;
    while (!answer.empty() && isBlank(answer.back())) answer.pop_back();
    answer.push_back(endNotation(*terminal_->status()));
    for (const std::string& left : terminal_->leftBehind()) answer.push_back("left: " + left);
    return answer;
  }

  ScreenSize size_ = {80, 24};
  std::unique_ptr<PseudoTerminal> terminal_;
};

class ScreenTest : public testing::TestWithParam<std::string> {};

TEST_P(ScreenTest, ShowsWhatIsDrawn) {
  Sitting sitting;
  playGoldenCase(directory / (GetParam() + ".screen"),
                 [&](const Operation& operation, const Places& places) {
                   return sitting.play(operation, places);
                 });
}

INSTANTIATE_TEST_SUITE_P(All, ScreenTest, testing::ValuesIn(goldenFilesIn(directory, ".screen")),
                         goldenTestName);

TEST(ScreenTests, AreThoseOfTheList) {
  EXPECT_EQ(goldenFilesIn(directory, ".screen"), goldenFilesListed(directory));
}

}  // namespace
}  // namespace tavrel
