// Where the bytes of expressions stand in their sources.

#include "authoring/ExpressionPlace.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "authoring/SourceReader.h"

namespace tavrel::authoring {
namespace {

// A source whose question has this condition, and what was read of it.
class Condition {
 public:
  explicit Condition(const std::string& written, const std::string& lineEnd = "\n")
      : file_("Opening.yaml", sourceOf(written, lineEnd)) {
    Diagnostics found;
    auto chart = readSource(file_, {"Opening"}, found);
    EXPECT_FALSE(found.hasErrors()) << written;
    if (chart && chart->boxes[0].when) expression_ = *chart->boxes[0].when;
  }

  const std::string& text() const { return expression_.text; }
  Place place() const { return expression_.place; }
  Place placeOf(std::size_t byte) const { return placeIn(file_, expression_, byte); }

  /// What stands in the source at the place of a word of the text.
  std::string at(const std::string& word) const {
    const std::size_t byte = text().find(word);
    EXPECT_NE(byte, std::string::npos) << word;
    return std::string(file_.bytes().substr(file_.offsetOf(placeOf(byte)), word.size()));
  }

 private:
  static std::string sourceOf(const std::string& written, const std::string& lineEnd) {
    const std::string lines =
        "chart: Opening\nstart: a\nboxes:\n  a:\n    text: x\n    yes: a\n"
        "    when: " +
        written + "\n    no: a\n";
    std::string source;
    for (const char c : lines) source += c == '\n' ? lineEnd : std::string(1, c);
    return source;
  }

  SourceFile file_;
  SourceExpression expression_;
};

TEST(ExpressionPlace, IsThatOfEachByteOfAPlainText) {
  const Condition condition("hcp >=  5 && c2H");
  for (std::size_t i = 0; i <= condition.text().size(); ++i) {
    EXPECT_EQ(condition.placeOf(i), (Place{7, 11 + i}));
  }
}

TEST(ExpressionPlace, IsBehindTheOpeningQuote) {
  for (const char* quote : {"\"", "'"}) {
    const Condition condition(quote + std::string("  hcp > 5") + quote);
    EXPECT_EQ(condition.placeOf(0), (Place{7, 12}));
    EXPECT_EQ(condition.placeOf(2), (Place{7, 14}));
    EXPECT_EQ(condition.placeOf(9), (Place{7, 21}));
  }
}

// Every way to write lines, and one word to look for in each.
TEST(ExpressionPlace, IsFoundOnFurtherLines) {
  const std::vector<std::string> ways = {
      "hcp > 5\n      && balanced\n\n      && aces == 2",
      "\"hcp > 5\n      && balanced\n\n      && aces == 2\"",
      "\"hcp > 5 \\\n      && balanced \\\n      && aces == 2\"",
      "'hcp > 5\n      && balanced\n      && aces == 2'",
      "|\n      hcp > 5\n      && balanced\n      && aces == 2",
      "|-  # a remark: hcp\n\n      hcp > 5\n        && balanced\n      && aces == 2\n\n",
      ">\n      hcp > 5\n      && balanced\n\n      && aces == 2",
      "\n      hcp > 5 && balanced\n      && aces == 2",
  };
  for (const std::string& way : ways) {
    SCOPED_TRACE(way);
    for (const char* lineEnd : {"\n", "\r\n"}) {
      const Condition condition(way, lineEnd);
      for (const char* word : {"hcp", "5", "balanced", "==", "2"}) {
        EXPECT_EQ(condition.at(word), word);
      }
    }
  }
}

TEST(ExpressionPlace, OfABlankAtTheEndOfALineIsThere) {
  const Condition condition("hcp >\n      5");
  EXPECT_EQ(condition.placeOf(4), (Place{7, 15}));
  EXPECT_EQ(condition.placeOf(5), (Place{7, 16}));
  EXPECT_EQ(condition.placeOf(6), (Place{8, 7}));
}

TEST(ExpressionPlace, OfTheEndIsBehindTheLastByte) {
  const Condition condition("|\n      hcp >\n      5 +  \n");
  EXPECT_EQ(condition.text(), "hcp > 5 +");
  EXPECT_EQ(condition.placeOf(9), (Place{9, 10}));
  EXPECT_EQ(condition.placeOf(1000), (Place{9, 10}));
}

TEST(ExpressionPlace, CountsCharactersAndNotBytes) {
  const Condition condition("♠ >= 5 ♥");
  EXPECT_EQ(condition.placeOf(0), (Place{7, 11}));
  EXPECT_EQ(condition.placeOf(1), (Place{7, 11}));  // within the first character
  EXPECT_EQ(condition.placeOf(4), (Place{7, 13}));
  EXPECT_EQ(condition.placeOf(10), (Place{7, 18}));
}

TEST(ExpressionPlace, KnowsQuotesWithinQuotes) {
  EXPECT_EQ(Condition("'it''s > 5 + five'").placeOf(9), (Place{7, 22}));
  EXPECT_EQ(Condition("\"a \\\" b \\\\ c\"").placeOf(2), (Place{7, 15}));
  EXPECT_EQ(Condition("\"a \\\" b \\\\ c\"").placeOf(8), (Place{7, 22}));
}

TEST(ExpressionPlace, IsThatOfTheExpressionBehindAnotherEscape) {
  const Condition condition("\"hcp \\x3e 5\"");
  EXPECT_EQ(condition.text(), "hcp > 5");
  EXPECT_EQ(condition.placeOf(2), (Place{7, 14}));
  EXPECT_EQ(condition.placeOf(4), condition.place());
  EXPECT_EQ(condition.placeOf(6), condition.place());
  EXPECT_EQ(Condition("\"5 >\\nnull\"").placeOf(4), (Place{7, 11}));
}

TEST(ExpressionPlace, IsKnownBetweenBraces) {
  const SourceFile file("Opening.yaml",
                        "chart: Opening\nstart: a\nboxes:\n"
                        "  a: {text: \"x\", call: [{when: \"hcp > 5\", call: 2S}]}\n");
  Diagnostics found;
  const auto chart = readSource(file, {"Opening"}, found);
  ASSERT_TRUE(chart);
  const SourceCall& call = chart->boxes[0].calls.at(0);
  EXPECT_EQ(placeIn(file, *call.when, 6), (Place{4, 39}));
  EXPECT_EQ(placeIn(file, call.call, 1), (Place{4, 50}));
}

}  // namespace
}  // namespace tavrel::authoring
