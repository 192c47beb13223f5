// What the quiz remembers, and what it asks next.

#include "hands/Score.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace tavrel::hands {
namespace {

const EndName oneClub = {"Opening", "open-1c"}, weakTwo = {"Opening", "\"Open 2♥ or 2♠\""};

std::vector<EndName> someEnds(std::size_t count) {
  std::vector<EndName> ends;
  for (std::size_t i = 0; i < count; ++i) ends.push_back({"Opening", "end-" + std::to_string(i)});
  return ends;
}

// Asks so often, and answers right but for the ends named. Returns what was asked.
std::vector<std::size_t> asked(std::size_t times, const std::vector<EndName>& ends,
                               const std::set<std::size_t>& missed, Score& score, Random& random) {
  std::vector<std::size_t> all;
  for (std::size_t i = 0; i < times; ++i) {
    all.push_back(score.next(ends, random));
    score.note(ends[all.back()], missed.count(all.back()) == 0);
  }
  return all;
}

Score readAgain(const Score& score) {
  const auto read = Score::read(score.bytes());
  EXPECT_TRUE(std::holds_alternative<Score>(read));
  return std::get<Score>(read);
}

std::string faultOf(const std::string& bytes) {
  const auto read = Score::read(bytes);
  const auto* fault = std::get_if<std::string>(&read);
  return fault == nullptr ? "none" : *fault;
}

TEST(Score, CountsAnswersByEnd) {
  Score score;
  score.note(oneClub, true);
  score.note(weakTwo, false);
  score.note(oneClub, true);
  EXPECT_EQ(2U, score.of(oneClub).asked);
  EXPECT_EQ(2U, score.of(oneClub).right);
  EXPECT_EQ(3U, score.of(oneClub).last);
  EXPECT_EQ(2U, score.of(oneClub).inRow);
  EXPECT_EQ(1U, score.of(weakTwo).asked);
  EXPECT_EQ(0U, score.of(weakTwo).right);
  EXPECT_EQ(0U, score.of({"Opening", "pass"}).asked);
}

TEST(Score, HasTheEndsThatWereAsked) {
  Score score;
  EXPECT_TRUE(score.ends().empty());
  score.note(weakTwo, false);
  ASSERT_EQ(1U, score.ends().size());
  EXPECT_EQ(weakTwo.end, score.ends().begin()->first.end);
}

TEST(Score, AMissBreaksTheRow) {
  Score score;
  for (int i = 0; i < 9; ++i) score.note(oneClub, true);
  EXPECT_EQ(Score::mostInRow, score.of(oneClub).inRow);
  score.note(oneClub, false);
  EXPECT_EQ(0U, score.of(oneClub).inRow);
  score.note(oneClub, true);
  EXPECT_EQ(1U, score.of(oneClub).inRow);
}

TEST(Score, IsTheSameWhenItIsReadAgain) {
  Score score;
  score.note(oneClub, true);
  score.note(weakTwo, false);
  const Score again = readAgain(score);
  EXPECT_EQ(score.bytes(), again.bytes());
  EXPECT_EQ(1U, again.of(weakTwo).asked);
  EXPECT_EQ(2U, again.of(weakTwo).last);
  EXPECT_EQ(Score().bytes(), readAgain(Score()).bytes());
}

TEST(Score, KeepsANameWithALineFeedInOneLine) {
  Score score;
  score.note({"Opening", "two\nlines"}, true);
  EXPECT_EQ(1U, readAgain(score).of({"Opening", "two\nlines"}).asked);
}

TEST(Score, IsReadFromNothingElse) {
  EXPECT_EQ("it begins otherwise in line 1", faultOf(""));
  EXPECT_EQ("it begins otherwise in line 1", faultOf("tavrel quiz score 2\nanswers 0\n"));
  EXPECT_EQ("the number of answers is missing in line 2", faultOf("tavrel quiz score 1\n"));
  const std::string begin = "tavrel quiz score 1\nanswers 9\n";
  EXPECT_EQ("none", faultOf(begin));
  EXPECT_EQ("none", faultOf(begin + "Opening 2 1 9 1 open-1c\n"));
  EXPECT_EQ("it breaks off in line 3", faultOf(begin + "Opening 2 1 9 1 open"));
  EXPECT_EQ("a number is missing in line 3", faultOf(begin + "Opening 2 1 open-1c\n"));
  EXPECT_EQ("a number is missing in line 3", faultOf(begin + "Opening 2 -1 9 1 open-1c\n"));
  EXPECT_EQ("a number is missing in line 3", faultOf(begin + "Opening 99999999999 1 9 1 o\n"));
  EXPECT_EQ("a name is missing in line 3", faultOf(begin + "Opening 2 1 9 1\n"));
  EXPECT_EQ("a name is missing in line 3", faultOf(begin + " 2 1 9 1 open-1c\n"));
  EXPECT_EQ("an end stands there twice in line 4",
            faultOf(begin + "Opening 2 1 9 1 open-1c\nOpening 2 1 9 1 open-1c\n"));
}

TEST(Score, IsReadFromNoNumbersThatContradictOneAnother) {
  const std::string begin = "tavrel quiz score 1\nanswers 9\nOpening ";
  for (const char* numbers : {"0 0 9 0", "1 2 9 1", "3 3 9 5", "3 1 9 2", "3 1 10 1", "3 1 0 1"}) {
    EXPECT_EQ("its numbers contradict one another in line 3",
              faultOf(begin + numbers + " open-1c\n"))
        << numbers;
  }
}

TEST(Score, ForgetsAChartAndKeepsTheOthers) {
  Score score;
  score.note(oneClub, true);
  score.note(oneClub, false);
  score.note({"RespNT", "pass"}, true);
  EXPECT_EQ(2U, score.forget("Opening"));
  EXPECT_EQ(0U, score.of(oneClub).asked);
  EXPECT_EQ(1U, score.of({"RespNT", "pass"}).asked);
  EXPECT_EQ(0U, score.forget("Opening"));
  EXPECT_EQ(1U, score.forget("RespNT"));
  EXPECT_EQ(Score().bytes(), score.bytes());
}

TEST(TheNextQuestion, IsEachEndOnceBeforeAnyComesTwice) {
  const std::vector<EndName> ends = someEnds(30);
  Score score;
  Random random(1);
  const std::vector<std::size_t> all = asked(30, ends, {}, score, random);
  EXPECT_EQ(30U, std::set<std::size_t>(all.begin(), all.end()).size());
}

TEST(TheNextQuestion, IsAMissedEndAgainAfterThreeOthersOrFour) {
  const std::vector<EndName> ends = someEnds(30);
  for (const std::size_t before : {0U, 1U}) {
    Score score;
    Random random(2);
    asked(before, ends, {}, score, random);
    const EndName missed = {"Opening", "missed"};
    score.note(missed, false);
    std::vector<EndName> all = ends;
    all.push_back(missed);
    const std::vector<std::size_t> next = asked(5, all, {}, score, random);
    EXPECT_EQ(before == 0 ? 4 : 3, std::find(next.begin(), next.end(), 30U) - next.begin());
  }
}

TEST(TheNextQuestion, IsNoMissedEndMoreThanEverySecondTime) {
  const std::vector<EndName> ends = someEnds(30);
  const std::set<std::size_t> all = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                                     15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29};
  Score score;
  Random random(9);
  const std::vector<std::size_t> next = asked(60, ends, all, score, random);
  EXPECT_EQ(30U, std::set<std::size_t>(next.begin(), next.end()).size());
}

bool isAlwaysFirst(const std::vector<EndName>& ends, const Score& score, Random& random) {
  for (int i = 0; i < 50; ++i) {
    if (score.next(ends, random) != 0) return false;
  }
  return true;
}

// How many others are asked before an end comes again for certain that was right so often.
std::uint32_t othersBetween(std::uint32_t right, Random& random) {
  const std::vector<EndName> ends = {oneClub, {"Opening", "one"}, {"Opening", "another"}};
  Score score;
  score.note(ends[1], true);
  score.note(ends[2], true);
  for (std::uint32_t i = 0; i < right; ++i) score.note(oneClub, true);
  std::uint32_t others = 2;
  for (score.note(ends[1], true), score.note(ends[2], true); !isAlwaysFirst(ends, score, random);
       ++others) {
    score.note(ends[1 + others % 2], true);
  }
  return others;
}

TEST(TheNextQuestion, ComesTheLaterTheMoreOftenItWasRight) {
  Random random(3);
  EXPECT_EQ(9U, othersBetween(1, random));
  EXPECT_EQ(29U, othersBetween(2, random));
  EXPECT_EQ(99U, othersBetween(3, random));
  EXPECT_EQ(299U, othersBetween(4, random));
  EXPECT_EQ(299U, othersBetween(9, random));
}

TEST(TheNextQuestion, IsNoneOfTheLastThree) {
  const std::vector<EndName> ends = someEnds(6);
  Score score;
  Random random(4);
  const std::vector<std::size_t> all = asked(500, ends, {}, score, random);
  for (std::size_t i = 3; i < all.size(); ++i) {
    EXPECT_EQ(0, std::count(all.begin() + static_cast<std::ptrdiff_t>(i) - 3,
                            all.begin() + static_cast<std::ptrdiff_t>(i), all[i]));
  }
}

TEST(TheNextQuestion, IsOneOfWhatIsThere) {
  Random random(5);
  for (std::size_t count = 1; count < 5; ++count) {
    Score score;
    asked(50, someEnds(count), {0}, score, random);
    for (const EndName& end : someEnds(count)) EXPECT_GT(score.of(end).asked, 0U);
  }
}

// A file may say that all ends were the last.
TEST(TheNextQuestion, IsAnyWhereAllHaveJustBeenRight) {
  Random random(7);
  const auto read =
      Score::read("tavrel quiz score 1\nanswers 9\nOpening 2 1 9 1 a\nOpening 2 1 9 1 b\n");
  const auto& score = std::get<Score>(read);
  std::set<std::size_t> asked;
  for (int i = 0; i < 20; ++i)
    asked.insert(score.next({{"Opening", "a"}, {"Opening", "b"}}, random));
  EXPECT_EQ(asked, (std::set<std::size_t>{0, 1}));
}

TEST(TheNextQuestion, IsAMissedEndFarMoreOften) {
  const std::vector<EndName> ends = someEnds(20);
  Score score;
  Random random(6);
  asked(400, ends, {3}, score, random);
  for (std::size_t i = 0; i < ends.size(); ++i) {
    if (i == 3) continue;
    EXPECT_GT(score.of(ends[3]).asked, 3 * score.of(ends[i]).asked);
  }
}

TEST(TheNextQuestion, IsEveryEndAboutAsOftenWhenAllAreKnown) {
  const std::vector<EndName> ends = someEnds(20);
  Score score;
  Random random(7);
  asked(4000, ends, {}, score, random);
  for (const EndName& end : ends) {
    EXPECT_GT(score.of(end).asked, 150U);
    EXPECT_LT(score.of(end).asked, 250U);
  }
}

TEST(TheNextQuestion, IsTheSameForTheSameSeed) {
  const std::vector<EndName> ends = someEnds(20);
  Score one, other;
  Random random(8), sameRandom(8);
  EXPECT_EQ(asked(100, ends, {1}, one, random), asked(100, ends, {1}, other, sameRandom));
}

}  // namespace
}  // namespace tavrel::hands
