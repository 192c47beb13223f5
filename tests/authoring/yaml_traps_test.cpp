// Where YAML doesn't read what an author means.

#include "authoring/YamlTraps.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tavrel::authoring {
namespace {

// The column of a trap, from 0; -1 for none.
int trapAt(const std::string& line) {
  const std::optional<Trap> trap = trapIn(line);
  return trap ? static_cast<int>(trap->offset) : -1;
}

std::string said(const std::string& line) {
  const std::optional<Trap> trap = trapIn(line);
  return trap ? trap->text : "";
}

TEST(YamlTraps, AreNoneInAnHonestText) {
  EXPECT_EQ(trapAt("text: 12+ HCP?"), -1);
  EXPECT_EQ(trapAt("text: 2:1 or x:y"), -1);
  EXPECT_EQ(trapAt("text: {a: b}"), -1);
  EXPECT_EQ(trapAt("text: [a: b]"), -1);
  EXPECT_EQ(trapAt("text: [a, b"), -1);  // it may end on a later line
}

TEST(YamlTraps, AreLookedForBehindAKeyAlone) {
  EXPECT_EQ(trapAt(""), -1);
  EXPECT_EQ(trapAt("   "), -1);
  EXPECT_EQ(trapAt("a text: b: c"), -1);
  EXPECT_EQ(trapAt("text:a: b"), -1);
  EXPECT_EQ(trapAt(": a: b"), -1);
  EXPECT_EQ(trapAt("~: a: b"), -1);
  EXPECT_EQ(trapAt("text: "), -1);
  EXPECT_EQ(trapAt("aZ-z_A09: a: b"), 11);
  EXPECT_EQ(trapAt("{: a: b"), -1);
  EXPECT_EQ(trapAt("[: a: b"), -1);
}

TEST(YamlTraps, AreFoundInItemsOfListsToo) {
  EXPECT_EQ(trapAt("- key: a: b"), 8);
  EXPECT_EQ(trapAt("  - - key: #1"), 11);
}

TEST(YamlTraps, AreTheSignsThatYamlKeepsForItself) {
  for (const char* sign : {"*", "&", "%", "@", "`"}) {
    EXPECT_EQ(said(std::string("text: ") + sign + "x"),
              std::string("YAML keeps ") + sign + " at the beginning of a text for itself");
  }
  EXPECT_NE(said("text: !c is it").find("for a tag"), std::string::npos);
  EXPECT_NE(said("text: #1").find("for a comment"), std::string::npos);
}

TEST(YamlTraps, TellBlocksFromTextsThatBeginLikeThem) {
  for (const char* header : {"|", ">", "|-", ">+", ">-  ", "| # a comment", "|- # one"}) {
    EXPECT_EQ(trapAt(std::string("text: ") + header), -1) << header;
  }
  for (const char* text : {">5 cards", "> 5 cards", ">12", ">1", "|2", ">=12", ">- 12", "|#"}) {
    EXPECT_EQ(trapAt(std::string("text: ") + text), 6) << text;
  }
  EXPECT_EQ(trapAt("text: |x"), 6);
}

TEST(YamlTraps, AreWordsBehindAClosingQuote) {
  EXPECT_EQ(trapAt("text: \"a\" b"), 10);
  EXPECT_EQ(trapAt("text: 'a' b"), 10);
  EXPECT_EQ(trapAt("text: \"a\"#b"), 9);
  EXPECT_EQ(trapAt("text: \"a\""), -1);
  EXPECT_EQ(trapAt("text: \"a\" # a comment"), -1);
  EXPECT_EQ(trapAt("text: \"it goes on"), -1);
}

TEST(YamlTraps, AreColonsThatEndAKey) {
  EXPECT_EQ(trapAt("text: Open: 1NT"), 10);
  EXPECT_EQ(trapAt("text: Open 1NT:"), 14);
}

TEST(ClosingQuote, PassesOverQuotesThatBelongToTheText) {
  EXPECT_EQ(closingQuote("\"a\\\"b\" c", 0), 5U);
  EXPECT_EQ(closingQuote("x 'it''s' y", 2), 8U);
  EXPECT_EQ(closingQuote("'it''s", 0), std::string::npos);
  EXPECT_EQ(closingQuote("\"a\\", 0), std::string::npos);
}

}  // namespace
}  // namespace tavrel::authoring
