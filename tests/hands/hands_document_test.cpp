// docs/hands.md: it has all names, and its examples are true.

#include <gtest/gtest.h>
#include <re2/re2.h>

#include <algorithm>
#include <array>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "hands/AuctionPattern.h"
#include "hands/Expression.h"
#include "hands/ExpressionCheck.h"
#include "tests/hands/Sample.h"
#include "tests/support/Files.h"

namespace tavrel::hands {
namespace {

using Strings = std::vector<std::string>;

// `EXPRESSION` of `HAND` after `AUCTION`, we vulnerable, is `VALUE`.
struct Example {
  std::string expression, hand, auction, vulnerable, value;
};

std::string text() { return readFile(TAVREL_HANDS_DOCUMENT); }

std::vector<Example> examples() {
  static const RE2 form(
      "`([^`]+)` of `([^`]+)`(?: after `([^`]+)`)?(?:, (we|they) vulnerable,)? is `([^`]+)`");
  const std::string document = text();
  re2::StringPiece rest(document);
  std::vector<Example> all;
  for (std::array<std::string, 5> part;
       RE2::FindAndConsume(&rest, form, &part[0], &part[1], &part[2], &part[3], &part[4]);) {
    all.push_back({part[0], part[1], part[2], part[3], part[4]});
  }
  return all;
}

// Words between single backquotes in the first column of the tables.
std::set<std::string> namesInTables() {
  std::set<std::string> names;
  std::istringstream lines(text());
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("| ", 0) != 0) continue;
    const std::string column = line.substr(0, line.find('|', 1));
    static const RE2 quoted("`([A-Za-z0-9]+)(?:\\([^`]*\\))?`");
    re2::StringPiece rest(column);
    for (std::string name; RE2::FindAndConsume(&rest, quoted, &name);) names.insert(name);
  }
  return names;
}

bool isExpression(const std::string& expression) {
  for (const Type type : {Type::number, Type::suit, Type::call}) {
    if (checkExpression(expression, type).faults.empty()) return true;
  }
  return false;
}

double valueOf(const std::string& expression, const Example& example) {
  if (expression == "true" || expression == "false") return expression == "true" ? 1 : 0;
  if (!isExpression(expression)) throw std::invalid_argument(expression);
  const Table table = {auctionOf(example.auction), example.vulnerable == "we",
                       example.vulnerable == "they"};
  Evaluation evaluation;
  evaluation.setHand(handOf(example.hand));
  evaluation.setTable(table);
  return Expression(expression, evaluation).value();
}

TEST(HandsDocument, HasExamplesThatAreTrue) {
  const std::vector<Example> all = examples();
  EXPECT_GT(all.size(), 70U);
  for (const Example& example : all) {
    EXPECT_EQ(handOf(example.hand).size(), cardsInHand) << example.hand;
    EXPECT_EQ(valueOf(example.expression, example), valueOf(example.value, example))
        << example.expression << " of " << example.hand << " after " << example.auction;
  }
}

// Nothing that looks like an example is passed over.
TEST(HandsDocument, HasNoExampleInAnotherForm) {
  const std::string document = text();
  std::size_t hands = 0;
  for (std::size_t at = 0; (at = document.find("` of `", at)) != std::string::npos; ++at) ++hands;
  EXPECT_EQ(examples().size(), hands);
}

TEST(HandsDocument, DefinesAllNamesWithAnExample) {
  std::string shown;
  for (const Example& example : examples()) shown += example.expression + " ";
  const std::set<std::string> names = namesInTables();
  const auto expectDefined = [&](std::string_view name) {
    EXPECT_EQ(names.count(std::string(name)), 1U) << name;
    EXPECT_NE(shown.find(name), std::string::npos) << name;
  };
  for (const VariableName& each : variableNames()) expectDefined(each.name);
  for (const FunctionName& each : functionNames()) expectDefined(each.name);
  for (const char* constant :
       {"C", "D", "H", "S", "NT", "noSuit", "noCall", "cP", "cX", "cXX", "c1C", "c7NT"}) {
    EXPECT_EQ(names.count(constant), 1U) << constant;
  }
}

TEST(HandsDocument, HasConditionsThatAreTaken) {
  const std::string document = text();
  const std::size_t block = document.find("```text\n") + 8;
  std::istringstream lines(document.substr(block, document.find("```", block) - block));
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_TRUE(checkExpression(line, Type::truth).faults.empty()) << line;
  }
  EXPECT_GE(count, 4U);
}

TEST(HandsDocument, HasPatternsThatStandForTheirAuctions) {
  static const RE2 form("\\n\\| (?:`([^`]+)`|<code>([^<]+)</code>) \\| ((?:`[^`]+`,? ?)+)\\|");
  const std::string document = text();
  const std::size_t start = document.find("\n## Patterns");
  const std::string part = document.substr(start, document.find("\n## ", start + 1) - start);
  std::size_t count = 0;
  re2::StringPiece rest(part);
  for (std::string plain, code, said; RE2::FindAndConsume(&rest, form, &plain, &code, &said);) {
    std::string pattern = plain + code, auctions;
    RE2::GlobalReplace(&pattern, "&#124;", "|");
    const auto read = auctionsOf(pattern);
    ASSERT_TRUE(std::holds_alternative<std::vector<Auction>>(read)) << pattern;
    for (const Auction& auction : std::get<std::vector<Auction>>(read)) {
      auctions += (auctions.empty() ? "`" : ", `") + written(auction) + "`";
    }
    EXPECT_EQ(auctions + " ", said) << pattern;
    ++count;
  }
  EXPECT_EQ(count, 3U);
}

}  // namespace
}  // namespace tavrel::hands
