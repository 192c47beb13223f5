// The hands that are kept beside the charts come to the ends that they are kept for.

#include "hands/Witnesses.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "hands/Prover.h"
#include "tests/hands/TestChart.h"
#include "tests/support/Files.h"

namespace tavrel::hands {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> sources() {
  std::set<fs::path> all;
  for (const auto& entry : fs::directory_iterator(TAVREL_SOURCES)) {
    if (entry.path().extension() == ".yaml") all.insert(entry.path());
  }
  return {all.begin(), all.end()};
}

TEST(Witnesses, BesideTheChartsComeToTheirEnds) {
  ASSERT_FALSE(sources().empty());
  for (const fs::path& source : sources()) {
    const fs::path file = fs::path(source).replace_extension(".hands");
    const TestChart test(readFile(source));
    const auto read = readWitnesses(readFile(file));
    ASSERT_TRUE(std::holds_alternative<std::vector<Witness>>(read)) << std::get<std::string>(read);
    std::set<std::string> ends;
    for (const Witness& witness : std::get<std::vector<Witness>>(read)) {
      EXPECT_TRUE(isTrue(witness, test.chart())) << file << ": " << written(witness.hand);
      ends.insert(witness.end);
    }
    for (BoxIndex box = 0; box < test.chart().boxes().size(); ++box) {
      if (!test.chart()[box].isEnd()) continue;
      EXPECT_EQ(ends.count(test.chart().nameOf(box)), 1U) << file;
    }
  }
}

const std::string smallChart = R"(
chart: Opening
start: strong
applies: {auction: "P"}
boxes:
  strong: {text: "15+ HCP?", when: "hcp >= 15", yes: feel, no: weak}
  feel: {text: "Does it feel good?", asks: judgement, yes: open-1nt, no: weak}
  open-1nt: {text: "Open 1NT", call: 1NT}
  weak: {text: "Pass", call: P}
)";

std::string writtenWitnesses(const TestChart& test) {
  const Subject subject(test.chart(), {});
  Feasibility feasibility(subject.tables());
  Proving proving;
  proving.range = {0, 1'000};
  const Tally tally = tallyOf(subject, feasibility, proving, [](std::uint64_t) {});
  return witnessFile(subject, proofOf(subject, tally, feasibility));
}

TEST(Witnesses, AreReadAsTheyAreWritten) {
  const TestChart test(smallChart);
  const auto read = readWitnesses(writtenWitnesses(test));
  const auto& all = std::get<std::vector<Witness>>(read);
  ASSERT_EQ(all.size(), 2U);
  for (const Witness& witness : all) EXPECT_TRUE(isTrue(witness, test.chart()));
}

TEST(Witnesses, AreFalseAtAnotherEndOrWithAnotherCall) {
  const TestChart test(smallChart);
  const auto isTrueOf = [&test](const std::string& line) {
    return isTrue(std::get<std::vector<Witness>>(readWitnesses(line)).at(0), test.chart());
  };
  EXPECT_TRUE(isTrueOf("AKQJ.AKQ.432.432 | P | none | 1NT | open-1nt"));
  EXPECT_TRUE(isTrueOf("AKQJ.AKQ.432.432 | P | both | P | weak"));
  EXPECT_FALSE(isTrueOf("AKQJ.AKQ.432.432 | P | none | 2NT | open-1nt"));
  EXPECT_FALSE(isTrueOf("5432.432.432.432 | P | none | 1NT | open-1nt"));
}

TEST(Witnesses, SayWhichLineCantBeRead) {
  const auto why = [](const std::string& text) {
    return std::get<std::string>(readWitnesses(text));
  };
  EXPECT_EQ(why("# a remark\n\nAKQJ.AKQ.432.432 | P\n"), "line 3: there are too few fields");
  EXPECT_EQ(why("AKQJ.AKQ.432.432 | P | some | P | weak"),
            "line 1: \"some\" is none of none, we, they and both");
  EXPECT_EQ(why("AKQJ.AKQ.432.432 | P | we | 8NT | weak"), "line 1: \"8NT\" is no call");
}

}  // namespace
}  // namespace tavrel::hands
