// What texts promise, and what they don't.

#include "hands/Promise.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel::hands {
namespace {

// "hcp 15-17, spades 5+".
std::string promised(const std::vector<std::string>& lines) {
  std::string text;
  for (const Promise& promise : promisesIn(lines)) {
    for (const VariableName& name : variableNames()) {
      if (name.variable != promise.what) continue;
      text += (text.empty() ? "" : ", ") + std::string(name.name) + " ";
    }
    text +=
        std::to_string(promise.low) + (promise.high ? "-" + std::to_string(*promise.high) : "+");
  }
  return text;
}

TEST(Promise, IsARangeOfPoints) {
  EXPECT_EQ(promised({"15–17 HCP?"}), "hcp 15-17");
  EXPECT_EQ(promised({"15-17 HCP"}), "hcp 15-17");
  EXPECT_EQ(promised({"15 to 17 HCP"}), "hcp 15-17");
  EXPECT_EQ(promised({"22+ HCP"}), "hcp 22+");
  EXPECT_EQ(promised({"0–7 HCP?"}), "hcp 0-7");
  EXPECT_EQ(promised({"Balanced with", "20–21 HCP?"}), "hcp 20-21");
  EXPECT_EQ(promised({"Open 1NT: 15–17"}), "hcp 15-17");
  EXPECT_EQ(promised({"Open 1NT (15–17)"}), "hcp 15-17");
  EXPECT_EQ(promised({"15–17 balanced"}), "hcp 15-17");
}

TEST(Promise, IsTheLengthOfASuit) {
  EXPECT_EQ(promised({"5+ hearts"}), "hearts 5+");
  EXPECT_EQ(promised({"5+♠"}), "spades 5+");
  EXPECT_EQ(promised({"Open 1♦: 4+ ♦"}), "diamonds 4+");
  EXPECT_EQ(promised({"3–4 clubs"}), "clubs 3-4");
  EXPECT_EQ(promised({"6+ diamonds"}), "diamonds 6+");
  EXPECT_EQ(promised({"5+ spades, 12–21 HCP"}), "spades 5+, hcp 12-21");
}

TEST(Promise, KeepsTheWordsOfTheText) {
  EXPECT_EQ(promisesIn({"Open 1NT: 15–17 HCP"}).at(0).words, "15–17 HCP");
  EXPECT_EQ(promisesIn({"5+ Hearts"}).at(0).words, "5+ Hearts");
  EXPECT_EQ(promisesIn({"Bid 1NT (15–17)"}).at(0).words, "15–17");
}

TEST(Promise, IsNothingThatATextLeavesOpen) {
  EXPECT_EQ(promised({"22+ HCP, or nearly game in your hand?"}), "");
  EXPECT_EQ(promised({"Bid 5NT;", "with 22+ bid 7NT"}), "");
  EXPECT_EQ(promised({"Partner has 15–17 HCP"}), "");
  EXPECT_EQ(promised({"8–9 points?"}), "");
  EXPECT_EQ(promised({"5+ cards in a major"}), "");
  EXPECT_EQ(promised({"Majors 5-4?"}), "");
  EXPECT_EQ(promised({"5-3-3-2"}), "");
  EXPECT_EQ(promised({"Open 4♣, 4♦, 4♥ or 4♠"}), "");
  EXPECT_EQ(promised({"Bid 3♥"}), "");
  EXPECT_EQ(promised({"6+ card minor with two of A, K, Q?"}), "");
  EXPECT_EQ(promised({"Rule of 20?"}), "");
  EXPECT_EQ(promised({"not 15–17 HCP"}), "");
  EXPECT_EQ(promised({"5+ ♠/♥"}), "");
  EXPECT_EQ(promised({std::string(100'000, '1')}), "");
}

}  // namespace
}  // namespace tavrel::hands
