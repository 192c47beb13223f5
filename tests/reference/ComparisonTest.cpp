// The comparison itself: it agrees where it should, notices what it should, and makes small
// conversations of long ones.

#include "tests/reference/Comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "tests/reference/Navigators.h"
#include "tests/reference/PlainNavigator.h"
#include "tests/reference/State.h"
#include "tests/support/ChartFile.h"
#include "tests/support/Conversation.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Thrown.h"

namespace tavrel::reference {
namespace {

Request chart(const std::string& name, const ChartFile& file) {
  return writeRequest(name, file.text());
}

Request navigator(Front front = Front::facade) {
  Request request{What::makeNavigator};
  request.text = front == Front::facade ? "{here}" : "{here}/";
  return request;
}

ChartFile twoBoxes() { return ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B"); }

bool moves(const Request& request) { return request.what == What::moveYes; }

/// As if the reference differed for one thing: a move along yes behind a new path.
bool isFaulty(const Dialogue& dialogue) {
  bool hasPath = false;
  for (const Request& request : dialogue.requests) {
    hasPath |= request.what == What::startNewPath;
    if (hasPath && moves(request)) return true;
  }
  return false;
}

TEST(Comparison, AgreesOnRandomDialogues) {
  TemporaryFiles files;
  for (std::uint64_t seed = 1000000; seed < 1000200; ++seed) {
    Choices choices(seed);
    const Dialogue dialogue = dialogueFrom(choices);
    ASSERT_FALSE(compare(dialogue, files)) << inNotation(minimised(dialogue, files), files);
  }
}

TEST(Comparison, MakesTheSameDialogueOfTheSameChoices) {
  TemporaryFiles files;
  Choices one(7);
  Choices other(7);
  EXPECT_EQ(inNotation(dialogueFrom(one), files), inNotation(dialogueFrom(other), files));
}

TEST(Comparison, TakesADialogueThroughItsNotation) {
  TemporaryFiles files;
  for (std::uint64_t seed = 0; seed < 40; ++seed) {
    Choices choices(seed);
    const Dialogue dialogue = dialogueFrom(choices);
    const std::string text = inNotation(dialogue, files);
    const Dialogue again = dialogueOf("again", text);
    EXPECT_EQ(again.front, dialogue.front);
    ASSERT_EQ(inNotation(again, files), text) << seed;
  }
}

TEST(Comparison, TakesNoMoreNavigatorsThanADialogueMayHave) {
  std::string text = "Tavrel \"{here}\"\n";
  for (std::size_t i = 1; i < mostNavigators; ++i) {
    text += "another" + std::to_string(i) + " = Tavrel \"{here}\"\n";
  }
  TemporaryFiles files;
  EXPECT_FALSE(compare(dialogueOf("eight", text), files));
  EXPECT_FALSE(compare(dialogueOf("eight", text + "another1 = Tavrel \"{here}\"\n"), files));
  EXPECT_EQ(textThrown<ConversationError>(
                [&] { dialogueOf("nine", text + "another = Tavrel \"{here}\"\n"); }),
            "nine:9: more than 8 navigators");
}

TEST(Comparison, MakesALongDialogueMinimal) {
  TemporaryFiles files;
  Dialogue dialogue;
  for (std::uint64_t seed = 0; dialogue.requests.size() < 400; ++seed) {
    Choices choices(seed);
    Dialogue candidate = dialogueFrom(choices);
    if (candidate.front == Front::facade) dialogue = std::move(candidate);
  }
  dialogue.requests.push_back(startRequest(0, "yn"));
  dialogue.requests.push_back({What::moveYes});
  const Dialogue smallest = minimised(dialogue, isFaulty);
  ASSERT_EQ(smallest.requests.size(), 2u);
  EXPECT_EQ(smallest.requests[0].what, What::startNewPath);
  EXPECT_EQ(smallest.requests[0].text, "");
  EXPECT_TRUE(moves(smallest.requests[1]));
  EXPECT_TRUE(isFaulty(dialogueOf("again", inNotation(smallest, files))));
}

TEST(Comparison, DropsTheCellsAndTextsThatAreNotNeeded) {
  ChartFile file;
  file.intro({"One", "two"}).box(0, 0, "A", xPlus).box(1, 0, "B").box(7, 7, "C").run(3, 3, 0, 9);
  Dialogue dialogue;
  dialogue.requests = {chart("Opening", file), navigator(), {What::reset}, {What::moveYes}};
  TemporaryFiles files;
  const auto reachesB = [&](const Dialogue& candidate) {
    Behaviours met;
    files.clear();
    std::optional<PlainNavigator> plain;
    for (const Request& request : candidate.requests) {
      if (request.what == What::writeChart) files.write(request.text, request.file);
      if (request.what == What::makeNavigator) plain.emplace(files.directory(), files, met);
      if (plain && (request.what == What::reset || moves(request))) plain->ask(request);
    }
    return plain && plain->engine.x == 1 && plain->engine.element == 1;
  };
  ASSERT_TRUE(reachesB(dialogue));
  const Dialogue smallest = minimised(dialogue, reachesB);
  ASSERT_EQ(smallest.requests.size(), 4u);
  EXPECT_EQ(smallest.requests[0].file, "\n\n0\n1\n0\n0\n\n2\n0 0 0 0 0 1 0\n0 1 0 0 0 0 0\n");
}

TEST(Comparison, LeavesADialogueWithoutDifferenceAsItIs) {
  TemporaryFiles files;
  Dialogue dialogue;
  dialogue.requests = {navigator(), {What::moveYes}, {What::moveNo}};
  EXPECT_EQ(minimised(dialogue, files).requests.size(), 3u);
}

// --- What differs is noticed ----------------------------------------------------------

/// The reference and an engine that have read the same two boxes.
class States : public testing::Test {
 protected:
  States() {
    files.write("Opening", twoBoxes().text());
    plain.startNewPath(0, "y");
    engine.mStartNewPath(0, "y");
  }

  std::string found() const {
    const auto difference = differenceAnywhere(plain, engine);
    return difference ? difference->what : "";
  }

  TemporaryFiles files;
  Behaviours met;
  PlainEngine plain{files.directory() + "/", files, met};
  CTavrel engine{files.directory() + "/"};
};

TEST_F(States, AreEqualAtFirst) { EXPECT_EQ(found(), ""); }

TEST_F(States, DifferInEveryFieldOfTheCursor) {
  const auto expectNoticed = [this](auto& field, const auto& other) {
    const auto before = std::exchange(field, other);
    EXPECT_EQ(found(), "cursor");
    field = before;
  };
  expectNoticed(plain.x, 1);
  expectNoticed(plain.y, 1);
  expectNoticed(plain.current, 1);
  expectNoticed(plain.element, 1);
  expectNoticed(plain.name, "AOpening");
  expectNoticed(plain.path, "n");
  EXPECT_EQ(found(), "");
}

TEST_F(States, DifferInEveryBound) {
  for (const auto bound :
       {&PlainChart::minX, &PlainChart::maxX, &PlainChart::minY, &PlainChart::maxY}) {
    ++(plain.charts[0].*bound);
    EXPECT_EQ(found(), "bounds and marks");
    --(plain.charts[0].*bound);
    ++(plain.charts[7].*bound);
    EXPECT_EQ(found(), "flowchart 7: bounds and marks");
    --(plain.charts[7].*bound);
  }
  EXPECT_EQ(found(), "");
}

TEST_F(States, DifferInAMark) {
  plain.charts[0].elements[1].isOnPath = false;
  EXPECT_EQ(found(), "bounds and marks");
}

TEST_F(States, DifferInAnotherFlowchart) {
  plain.charts[44].intro = {"Hello"};
  EXPECT_EQ(found(), "flowchart 44: introduction");
}

TEST_F(States, DifferInEveryFieldOfAnElement) {
  const auto expectNoticed = [this](auto change) {
    const PlainElement before = plain.charts[0].elements[1];
    change(plain.charts[0].elements[1]);
    EXPECT_EQ(found(), "flowchart 0: element 1");
    plain.charts[0].elements[1] = before;
  };
  expectNoticed([](PlainElement& e) { ++e.x; });
  expectNoticed([](PlainElement& e) { ++e.y; });
  expectNoticed([](PlainElement& e) { ++e.xOffset; });
  expectNoticed([](PlainElement& e) { ++e.yOffset; });
  expectNoticed([](PlainElement& e) { e.isNode = false; });
  expectNoticed([](PlainElement& e) { e.link = "PGF"; });
  expectNoticed([](PlainElement& e) { e.boxText[0] += '.'; });
  expectNoticed([](PlainElement& e) { e.commentText.clear(); });
  expectNoticed([](PlainElement& e) { ++e.yes; });
  expectNoticed([](PlainElement& e) { ++e.no; });
  expectNoticed([](PlainElement& e) { ++e.into; });
  expectNoticed([](PlainElement& e) { ++e.outOf; });
  EXPECT_EQ(found(), "");
}

TEST_F(States, DifferInTheRowIndex) {
  ++EngineAccess::rowStarts(engine)[0][0];
  EXPECT_EQ(found(), "flowchart 0: row index");
  --EngineAccess::rowStarts(engine)[0][0];
  std::swap(EngineAccess::rowElementIndices(engine)[0][0],
            EngineAccess::rowElementIndices(engine)[0][1]);
  EXPECT_EQ(found(), "flowchart 0: row index");
}

/// Files of which the reference sees another than the navigator: a planted difference.
class OtherFiles : public TemporaryFiles {
 public:
  std::istream* open(const std::string& path) override {
    if (path.find("Slam") == std::string::npos) return TemporaryFiles::open(path);
    other_.write("Slam", ChartFile().box(0, 0, "A").box(1, 0, "C").text());
    return other_.open(other_.directory() + "/Slam.fv");
  }

 private:
  TemporaryFiles other_;
};

TEST(PlantedDifference, IsFoundAndMadeMinimalAndReplays) {
  OtherFiles files;
  Dialogue dialogue;
  dialogue.requests = {chart("Opening", twoBoxes()), chart("Slam", twoBoxes()), navigator()};
  for (int i = 0; i < 30; ++i) dialogue.requests.push_back({What::moveYes});
  dialogue.requests.push_back(resetRequest(24));
  for (int i = 0; i < 30; ++i) dialogue.requests.push_back({What::moveNo});
  dialogue.requests.push_back({What::allElements});
  const auto difference = compare(dialogue, files);
  ASSERT_TRUE(difference);
  EXPECT_NE(difference->reference, difference->navigator);
  const Dialogue smallest = minimised(dialogue, files);
  EXPECT_LE(smallest.requests.size(), 3u);
  const Dialogue again = dialogueOf("again", inNotation(smallest, files));
  EXPECT_TRUE(compare(again, files));
  TemporaryFiles sameFiles;
  EXPECT_FALSE(compare(again, sameFiles));
}

}  // namespace
}  // namespace tavrel::reference
