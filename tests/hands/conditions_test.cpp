// The file of a chart's conditions: written, read again, and read where it is something else.

#include "hands/Conditions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/hands/Sample.h"

namespace tavrel::hands {
namespace {

using Strings = std::vector<std::string>;

Conditions everything() {
  Conditions conditions;
  conditions.chart = "Opening";
  conditions.digest = digestOf("bytes");
  conditions.patterns = {"P? P?", "1NT P"};
  for (const char* text : {"", "P", "P P", "1NT P"}) {
    conditions.auctions.push_back(auctionOf(text));
  }
  conditions.hand = "hcp >= 6 || length(S) >= 5";
  BoxConditions question;
  question.cells = {{0, 0}, {-3, 7}};
  question.id = "open";
  question.when = "hcp >= 12 && !balanced";
  question.never = {"nobody", std::nullopt};
  BoxConditions judged;
  judged.cells = {{1, 0}};
  judged.asksJudgement = true;
  judged.never = {std::nullopt, "\"everybody\" ♥"};
  BoxConditions end;
  end.cells = {{2, 0}};
  end.calls = {{"spades >= 5", bid(1, Strain::spades)}, {std::nullopt, Call::pass}};
  end.shows = "hcp >= 12";
  end.forcing = Forcing::round;
  end.next = Next::self;
  conditions.boxes = {question, judged, end, BoxConditions()};
  return conditions;
}

// The conditions of a file, or a text of none.
std::string whyNot(const std::string& file) {
  const auto read = readConditions(file);
  const auto* why = std::get_if<std::string>(&read);
  return why == nullptr ? "" : *why;
}

TEST(Conditions, AreReadAsTheyWereWritten) {
  const std::string file = conditionsFile(everything());
  const auto read = readConditions(file);
  ASSERT_TRUE(std::holds_alternative<Conditions>(read)) << std::get<std::string>(read);
  const Conditions conditions = std::get<Conditions>(read);
  EXPECT_EQ(conditionsFile(conditions), file);
  const Conditions expected = everything();
  EXPECT_EQ(conditions.chart, expected.chart);
  EXPECT_EQ(conditions.digest, expected.digest);
  EXPECT_EQ(conditions.patterns, expected.patterns);
  EXPECT_EQ(conditions.auctions, expected.auctions);
  EXPECT_EQ(conditions.hand, expected.hand);
  ASSERT_EQ(conditions.boxes.size(), expected.boxes.size());
  for (std::size_t i = 0; i < expected.boxes.size(); ++i) {
    const BoxConditions &box = conditions.boxes[i], &other = expected.boxes[i];
    EXPECT_EQ(box.cells, other.cells);
    EXPECT_EQ(box.id, other.id);
    EXPECT_EQ(box.when, other.when);
    EXPECT_EQ(box.asksJudgement, other.asksJudgement);
    EXPECT_EQ(box.shows, other.shows);
    EXPECT_EQ(box.forcing, other.forcing);
    EXPECT_EQ(box.next, other.next);
    EXPECT_EQ(box.never.yes, other.never.yes);
    EXPECT_EQ(box.never.no, other.never.no);
    ASSERT_EQ(box.calls.size(), other.calls.size());
    for (std::size_t call = 0; call < other.calls.size(); ++call) {
      EXPECT_EQ(box.calls[call].when, other.calls[call].when);
      EXPECT_EQ(box.calls[call].call, other.calls[call].call);
    }
  }
}

TEST(Conditions, BeginAsTheyAreKnownBy) {
  EXPECT_EQ(conditionsFile(Conditions()).substr(0, conditionsStart.size()), conditionsStart);
}

TEST(Conditions, MayBeAlmostNothing) {
  const std::string file = R"({"version": 1, "chart": "", "digest": "", "boxes": []})";
  const auto read = readConditions(file);
  ASSERT_TRUE(std::holds_alternative<Conditions>(read));
  EXPECT_TRUE(std::get<Conditions>(read).boxes.empty());
  EXPECT_FALSE(std::get<Conditions>(read).hand);
}

TEST(Conditions, HaveADigestThatTellsFilesApart) {
  EXPECT_EQ(digestOf("").size(), 32U);
  EXPECT_EQ(digestOf(""), "99aa06d3014798d86001c324468d497f");  // as the algorithm's authors say
  EXPECT_NE(digestOf("a"), digestOf("b"));
  EXPECT_EQ(digestOf("a").find_first_not_of("0123456789abcdef"), std::string::npos);
}

// A file with one box that has these entries.
std::string withBox(const std::string& entries) {
  return R"({"version": 1, "chart": "C", "digest": "d", "boxes": [{)" + entries + "}]}";
}

std::string withApplies(const std::string& applies) {
  return R"({"version": 1, "chart": "C", "digest": "d", "applies": )" + applies +
         R"(, "boxes": []})";
}

TEST(Conditions, AreNotReadFromAnythingElse) {
  for (const char* file :
       {"", "{", "nonsense", "\xFF", "{\"version\": 1,}", "{\"version\": 1e999}"}) {
    EXPECT_EQ(whyNot(file), "it is no JSON") << file;
  }
  const std::string version = "it is of another version of this program: compile the chart again";
  EXPECT_EQ(whyNot(R"({"version": 2})"), version);
  EXPECT_EQ(whyNot(R"({"version": "1"})"), version);
  for (const char* file : {"[]", "{}", "null", "3", "\"version\""}) {
    EXPECT_EQ(whyNot(file), "there is no \"version\" where one belongs") << file;
  }
  EXPECT_EQ(whyNot(R"({"version": 1})"), "there is no \"chart\" where one belongs");
  EXPECT_EQ(whyNot(R"({"version": 1, "chart": 5})"), "there is 5 instead of a text");
  EXPECT_EQ(whyNot(R"({"version": 1, "chart": "", "digest": ""})"),
            "there is no \"boxes\" where one belongs");
  EXPECT_EQ(whyNot(R"({"version": 1, "chart": "", "digest": "", "boxes": {}})"),
            "there is {} instead of a list");
}

TEST(Conditions, AreNotReadWithWrongApplications) {
  EXPECT_EQ(whyNot(withApplies("{}")), "");
  EXPECT_EQ(whyNot(withApplies("[]")), "there is [] instead of a map");
  EXPECT_EQ(whyNot(withApplies("5")), "there is 5 instead of a map");
  EXPECT_EQ(whyNot(withApplies(R"({"hand": "hcp"})")),
            "\"hcp\": hcp is a number where a condition belongs");
  EXPECT_EQ(whyNot(withApplies(R"({"hand": null})")), "there is null instead of a text");
  EXPECT_EQ(whyNot(withApplies(R"({"auction": "P"})")), "there is \"P\" instead of a list");
  EXPECT_EQ(whyNot(withApplies(R"({"auction": [["P"]]})")), "there is [\"P\"] instead of a text");
  EXPECT_EQ(whyNot(withApplies(R"({"auction": ["P P P P"]})")),
            "nobody calls any more after P P P P");
}

TEST(Conditions, AreNotReadWithWrongBoxes) {
  EXPECT_EQ(whyNot(withBox("")), "there is no \"cells\" where one belongs");
  EXPECT_EQ(whyNot(R"({"version": 1, "chart": "", "digest": "", "boxes": [7]})"),
            "there is no \"cells\" where one belongs");
  EXPECT_EQ(whyNot(withBox(R"("cells": [[0]])")), "[0] is no cell");
  EXPECT_EQ(whyNot(withBox(R"("cells": [5])")), "there is 5 instead of a list");
  EXPECT_EQ(whyNot(withBox(R"("cells": [[0, 0.5]])")), "0.5 is no column or row");
  EXPECT_EQ(whyNot(withBox(R"("cells": [[0, 18446744073709551615]])")),
            "18446744073709551615 is no column or row");
  const std::string box = R"("cells": [[0, -9223372036854775808]], )";
  EXPECT_EQ(whyNot(withBox(box + R"("asks": "judgement")")), "");
  EXPECT_EQ(whyNot(withBox(box + R"("asks": "nobody")")), "\"nobody\" is no value of \"asks\"");
  EXPECT_EQ(whyNot(withBox(box + R"("when": "hcp = 3")")),
            "\"hcp = 3\": a single = doesn't compare");
  EXPECT_EQ(whyNot(withBox(box + R"("shows": true)")), "there is true instead of a text");
  EXPECT_EQ(whyNot(withBox(box + R"("forcing": "never")")), "\"never\" is no value of \"forcing\"");
  EXPECT_EQ(whyNot(withBox(box + R"("next": "left")")), "\"left\" is no value of \"next\"");
  EXPECT_EQ(whyNot(withBox(box + R"("never": "no")")), "there is \"no\" instead of a map");
  EXPECT_EQ(whyNot(withBox(box + R"("never": {"no": 3})")), "there is 3 instead of a text");
  EXPECT_EQ(whyNot(withBox(box + R"("calls": [{}])")), "there is no \"call\" where one belongs");
  EXPECT_EQ(whyNot(withBox(box + R"("calls": [{"call": "8C"}])")), "\"8C\" is no call");
  EXPECT_EQ(whyNot(withBox(box + R"("calls": [{"call": "1C", "when": "HCP"}])")),
            "\"HCP\": there is no name HCP");
}

TEST(Conditions, SayShortlyWhatIsLong) {
  const std::string longText(100'000, 'x');
  EXPECT_LT(whyNot(withBox("\"cells\": [], \"when\": \"" + longText + "\"")).size(), 300U);
  EXPECT_LT(whyNot(withBox("\"cells\": \"" + longText + "\"")).size(), 300U);
  EXPECT_LT(whyNot(withBox("\"cells\": [], \"next\": \"" + longText + "\"")).size(), 300U);
}

// A parser that calls itself for each would run out of stack.
TEST(Conditions, AreNotReadFromWhatIsNestedDeep) {
  EXPECT_FALSE(whyNot(std::string(1'000'000, '[')).empty());
  EXPECT_FALSE(whyNot(std::string(500'000, '[') + std::string(500'000, ']')).empty());
  std::string objects;
  for (int i = 0; i < 200'000; ++i) objects += "{\"version\":";
  EXPECT_FALSE(whyNot(objects + "1" + std::string(200'000, '}')).empty());
}

TEST(Conditions, AreNotReadFromAFileThatWasCutOrChanged) {
  const std::string file = conditionsFile(everything());
  for (std::size_t size = 0; size + 2 < file.size(); ++size) {
    EXPECT_EQ(whyNot(file.substr(0, size)), "it is no JSON") << size;
  }
  for (std::size_t at = 0; at < file.size(); ++at) {
    for (const char byte : {'\0', '"', '7', ']', '\xE2'}) {
      std::string changed = file;
      changed[at] = byte;
      (void)readConditions(changed);  // whatever comes of it
    }
  }
}

}  // namespace
}  // namespace tavrel::hands
