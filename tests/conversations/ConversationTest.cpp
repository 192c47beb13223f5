// Replays every conversation of the directory. TAVREL_UPDATE=1 in the environment
// writes the answers got into the files instead of comparing them.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Player.h"
#include "replay.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"

namespace tavrel {
namespace {

const std::filesystem::path kDirectory = TAVREL_CONVERSATIONS;

class ConversationTest : public testing::TestWithParam<std::string> {};

TEST_P(ConversationTest, GetsTheAnswersWritten) {
  const std::filesystem::path path = kDirectory / (GetParam() + ".conversation");
  const Conversation conversation(path.string(), readFile(path));
  const std::vector<Answer> answers = replay(conversation, *newPlayer(), TAVREL_CHARTS);
  if (isUpdatingGoldenFiles()) return writeFile(path, conversation.withAnswers(answers));
  const std::string report = conversation.differences(answers);
  EXPECT_TRUE(report.empty()) << report;
}

INSTANTIATE_TEST_SUITE_P(All, ConversationTest,
                         testing::ValuesIn(goldenFilesIn(kDirectory, ".conversation")),
                         goldenTestName);

TEST(Conversations, AreThoseOfTheList) {
  EXPECT_EQ(goldenFilesIn(kDirectory, ".conversation"), goldenFilesListed(kDirectory));
}

}  // namespace
}  // namespace tavrel
