// Replays every conversation of the directory. TAVREL_UPDATE=1 in the environment
// writes the answers got into the files instead of comparing them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "Player.h"
#include "files.h"
#include "replay.h"

namespace tavrel {
namespace {

const std::filesystem::path kDirectory = TAVREL_CONVERSATIONS;

/// The names, without extension and sorted, of the conversations that are there.
std::vector<std::string> present() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kDirectory)) {
    if (entry.path().extension() == ".conversation") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The names that must be there, sorted, one on each line of a file.
std::vector<std::string> listed() {
  std::ifstream list(kDirectory / "all.txt");
  std::vector<std::string> names;
  for (std::string name; std::getline(list, name);) names.push_back(name);
  return names;
}

bool isUpdating() {
  const char* const value = std::getenv("TAVREL_UPDATE");
  return value != nullptr && std::string(value) == "1";
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

class ConversationTest : public testing::TestWithParam<std::string> {};

TEST_P(ConversationTest, GetsTheAnswersWritten) {
  const std::filesystem::path path = kDirectory / (GetParam() + ".conversation");
  const Conversation conversation(path.string(), readFile(path));
  const std::vector<Answer> answers = replay(conversation, *newPlayer(), TAVREL_CHARTS);
  if (isUpdating()) return writeFile(path, conversation.withAnswers(answers));
  const std::string report = conversation.differences(answers);
  EXPECT_TRUE(report.empty()) << report;
}

INSTANTIATE_TEST_SUITE_P(All, ConversationTest, testing::ValuesIn(present()), testName);

TEST(Conversations, AreThoseOfTheList) { EXPECT_EQ(present(), listed()); }

}  // namespace
}  // namespace tavrel
