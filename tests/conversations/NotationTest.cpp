// The notation itself: what it accepts, what it refuses and with which message,
// and what a mismatch looks like.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Player.h"
#include "replay.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Conversation.h"
#include "tests/support/Files.h"
#include "tests/support/Notation.h"

namespace tavrel {
namespace {

std::vector<Answer> play(const Conversation& conversation) {
  return replay(conversation, *newPlayer(), "charts");
}

/// The message with which reading or playing `text` ends.
std::string errorOf(const std::string& text) {
  try {
    play(Conversation("file", text));
  } catch (const ConversationError& error) {
    return error.what();
  }
  return "no error";
}

const std::string kCreate = "Tavrel \"{here}\"\n";

TEST(Notation, QuotesEveryByte) {
  EXPECT_EQ(quote("a \"b\" \\ \n\r\t\x01\x7f ♠"), R"("a \"b\" \\ \n\r\t\x01\x7f ♠")");
  EXPECT_EQ(quote(std::string(1, '\0')), R"("\x00")");
}

TEST(Notation, UnescapesWhatItQuotes) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::string text = quote(bytes);
  EXPECT_EQ(unescape(text.substr(1, text.size() - 2)), bytes);
  EXPECT_EQ(unescape(R"(\xff)"), "\xff");
}

TEST(Notation, SplitsWordsAndStrings) {
  const std::vector<Word> words = wordsOf(R"(  one "two \" three" 4)");
  ASSERT_EQ(words.size(), 3u);
  EXPECT_EQ(words[0].text, "one");
  EXPECT_EQ(words[1].text, "two \" three");
  EXPECT_TRUE(words[1].isQuoted);
  EXPECT_EQ(words[2].text, "4");
  EXPECT_FALSE(words[2].isQuoted);
}

struct Malformed {
  const char* text;
  const char* message;
};

class MalformedConversation : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedConversation, IsRefusedWithItsPlace) {
  EXPECT_EQ(errorOf(GetParam().text), GetParam().message);
}

const Malformed kMalformed[] = {
    {"\n  1\n", "file:2: an answer must follow its operation"},
    {"moveYes\n\n  1\n", "file:3: an answer must follow its operation"},
    {" 1\n", "file:1: an answer is indented by two blanks"},
    {"| 1\n", "file:1: a line of a chart must follow its operation"},
    {"chart Opening\n\n| 1\n", "file:3: a line of a chart must follow its operation"},
    {"chart Opening\n| \\q\n", "file:2: unknown escape \\q"},
    {"# a comment\n\"moveYes\"\n", "file:2: an operation must stand here"},
    {"Tavrel \"a\n", "file:1: the string is not closed"},
    {"Tavrel \"a\"b\n", "file:1: a blank must follow the string"},
    {"Tavrel \"\\x4\"\n", "file:1: \\x takes two digits of 0-9a-f"},
    {"Tavrel \"\\xAB\"\n", "file:1: \\x takes two digits of 0-9a-f"},
    {"Tavrel here\n", "file:1: a quoted string must stand as argument 1"},
    {"moveYes\n", "file:1: no navigator "},
    {"chart\n", "file:1: a name must stand as argument 1"},
    {"chart Opening RespNT\n", "file:1: too many arguments"},
    {"Tavrel \"{here}\"\nmoveSideways\n", "file:2: unknown operation moveSideways"},
    {"Tavrel \"{here}\"\nmoveYes 1\n", "file:2: too many arguments"},
    {"Tavrel \"{here}\"\nmoveYes\n| 1\n", "file:2: only a chart has lines with |"},
    {"Tavrel \"{here}\"\nelementAtXY 0\n", "file:2: a number must stand as argument 2"},
    {"Tavrel \"{here}\"\nelementAtXY 0 zero\n", "file:2: zero is not a number"},
    {"Tavrel \"{here}\"\nelementAtXY 0 9223372036854775808\n",
     "file:2: 9223372036854775808 is not a number"},
    {"Tavrel \"{here}\"\ngetCurrentLocationWithXY y x\n", "file:2: here stands x or -"},
    {"Tavrel \"{here}\"\nsecond.moveYes\n", "file:2: no navigator second"},
    {"Tavrel \"{here}\"\nall = allElements\n", "file:2: only an element can be kept"},
};
INSTANTIATE_TEST_SUITE_P(All, MalformedConversation, testing::ValuesIn(kMalformed));

TEST(Conversation, ReportsAMismatchWithItsPlace) {
  const Conversation conversation(
      "file", "# a comment\n" + kCreate + "flowchartTitles\n  \"A\"\nreversed 1\n  1\n");
  const std::vector<Answer> answers = {{}, {"\"A\"", "\"B\""}, {"3"}};
  EXPECT_EQ(conversation.differences(answers),
            "file:5: flowchartTitles\n  expected\n    \"A\"\n  got\n    \"A\"\n    \"B\"\n"
            "file:6: reversed 1\n  expected\n    1\n  got\n    3\n");
}

TEST(Conversation, ReportsNothingWhenAllAnswersAreThoseExpected) {
  const Conversation conversation("file", "reversed 1\n  3\n");
  EXPECT_EQ(conversation.differences(play(conversation)), "");
}

TEST(Conversation, RewritesItsAnswersAndNothingElse) {
  const Conversation conversation("file",
                                  "# one\nchart Opening\n| text\n\nreversed 1\n  7\n  8\n"
                                  "reversed 2\n\n# end\n");
  EXPECT_EQ(conversation.withAnswers({{}, {"3"}, {"0"}}),
            "# one\nchart Opening\n| text\n\nreversed 1\n  3\nreversed 2\n  0\n\n# end\n");
}

TEST(Conversation, SpellsTheBytesOfAChart) {
  const Conversation conversation(
      "file", "chart Opening\n| one\n|\n|two\n|  three\n| \\xff\\\\\n| four\\\n");
  EXPECT_EQ(conversation.steps()[0].operation.chart, "one\n\ntwo\n three\n\xff\\\nfour");
}

TEST(ChartDirectory, ReplacesAndRemovesFilesAndGoesAway) {
  std::filesystem::path path;
  {
    const ChartDirectory directory;
    path = directory.path();
    directory.write("Opening", "one");
    directory.write("Opening", "two");
    EXPECT_EQ(readFile(path / "Opening.fv"), "two");
    directory.remove("Opening");
    EXPECT_TRUE(std::filesystem::is_empty(path));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace tavrel
