// Questions that are asked again, as compared with a search that tries each box.

#include "authoring/RepeatedQuestions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace tavrel::authoring {
namespace {

struct Asked {
  ReadChart chart;
  std::vector<QuestionNumber> questions;
  std::size_t count = 0;

  std::size_t size() const { return chart.boxes.size(); }
};

// Mostly forward, so that there are ways, and sometimes back, so that there are loops.
Asked randomChart(std::mt19937& random, int size, int questions) {
  Asked asked;
  asked.count = static_cast<std::size_t>(questions);
  std::uniform_int_distribution<int> percent(0, 99), question(-1, questions - 1);
  for (int box = 0; box < size; ++box) {
    ReadBox read;
    for (const Answer answer : answers) {
      const bool isBack = percent(random) < 15;
      const int first = isBack ? 0 : box + 1, last = isBack ? box : std::min(size - 1, box + 6);
      if (first > last || percent(random) < 20) continue;
      read.exits[answer] = std::uniform_int_distribution<int>(first, last)(random);
    }
    asked.chart.boxes.push_back(read);
    const int number = question(random);
    asked.questions.push_back(number < 0 ? noQuestion : static_cast<QuestionNumber>(number));
  }
  return asked;
}

// The boxes that a walk of one step at least can come to.
std::set<BoxNumber> behind(const ReadChart& chart, BoxNumber first) {
  std::set<BoxNumber> boxes;
  std::vector<BoxNumber> next = {first};
  while (!next.empty()) {
    const BoxNumber box = next.back();
    next.pop_back();
    for (const Answer answer : answers) {
      const BoxNumber exit = chart[box].exits[answer];
      if (exit != noBox && boxes.insert(exit).second) next.push_back(exit);
    }
  }
  return boxes;
}

bool asksTheSame(const Asked& asked, std::size_t a, std::size_t b) {
  return a != b && asked.questions[a] != noQuestion && asked.questions[a] == asked.questions[b];
}

// Each of two in a loop comes behind the other: one of them has to be found, and may be spared the
// other. Elsewhere it is clear which.
void compare(const Asked& asked) {
  std::vector<std::set<BoxNumber>> reach;
  for (std::size_t box = 0; box < asked.size(); ++box) {
    reach.push_back(behind(asked.chart, static_cast<BoxNumber>(box)));
  }
  std::vector<BoxNumber> before(asked.size(), noBox);
  for (const RepeatedQuestion& each :
       repeatedQuestions(asked.chart, asked.questions, asked.count)) {
    const auto box = static_cast<std::size_t>(each.box);
    EXPECT_EQ(before[box], noBox) << "named twice";
    ASSERT_NE(each.asked, noBox);
    EXPECT_TRUE(asksTheSame(asked, static_cast<std::size_t>(each.asked), box));
    EXPECT_EQ(reach[static_cast<std::size_t>(each.asked)].count(each.box), 1U);
    before[box] = each.asked;
  }
  for (std::size_t a = 0; a < asked.size(); ++a) {
    for (std::size_t b = 0; b < asked.size(); ++b) {
      if (!asksTheSame(asked, a, b) || reach[a].count(static_cast<BoxNumber>(b)) == 0) continue;
      const bool isLoop = reach[b].count(static_cast<BoxNumber>(a)) > 0;
      EXPECT_TRUE(before[b] != noBox || (isLoop && before[a] != noBox)) << a << " " << b;
    }
  }
}

TEST(RepeatedQuestions, AreThoseThatAPlainSearchFinds) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    compare(randomChart(random, 2 + round % 40, 1 + round % 7));
  }
}

TEST(RepeatedQuestions, AreFoundHoweverManyQuestionsThereAre) {
  std::mt19937 random(2);
  for (const int questions : {255, 256, 257, 600}) {
    SCOPED_TRACE(questions);
    compare(randomChart(random, 700, questions));
  }
}

TEST(RepeatedQuestions, AreNoneWithoutQuestionsOrBoxes) {
  EXPECT_TRUE(repeatedQuestions({}, {}, 0).empty());
  ReadChart chart;
  chart.boxes.resize(1);
  EXPECT_TRUE(repeatedQuestions(chart, {0}, 1).empty());
}

// A column of boxes of which the first asks a question, and the lower half asks it again, each in a
// box beside it.
TEST(RepeatedQuestions, AreAllFoundThoughNotEveryFirstOneIsNamed) {
  constexpr BoxNumber height = 6000;
  Asked asked;
  asked.count = 1;
  asked.chart.boxes.resize(height + height / 2);
  asked.questions.assign(asked.size(), noQuestion);
  asked.questions[0] = 0;
  for (BoxNumber box = 0; box + 1 < height; ++box) {
    asked.chart.boxes[static_cast<std::size_t>(box)].exits.no = box + 1;
  }
  for (BoxNumber box = height / 2; box < height; ++box) {
    const BoxNumber beside = height / 2 + box;
    asked.chart.boxes[static_cast<std::size_t>(box)].exits.yes = beside;
    asked.questions[static_cast<std::size_t>(beside)] = 0;
  }
  const auto found = repeatedQuestions(asked.chart, asked.questions, asked.count);
  ASSERT_EQ(found.size(), static_cast<std::size_t>(height / 2));
  std::set<BoxNumber> firstOnes;
  for (const RepeatedQuestion& each : found) firstOnes.insert(each.asked);
  EXPECT_EQ(firstOnes, (std::set<BoxNumber>{noBox, 0})) << "it takes too many steps back";
}

}  // namespace
}  // namespace tavrel::authoring
