// Random files, checked and walked: what the check finds no error in, the engine walks from the
// root in every way without an exception; and no bytes are too much for the check.

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/authoring/Charts.h"
#include "tests/support/ChartDirectory.h"

namespace tavrel::authoring {
namespace {

class Random {
 public:
  // From 0 to below `end`.
  std::size_t below(std::size_t end) { return engine_() % end; }
  std::string oneOf(const std::vector<std::string>& all) { return all[below(all.size())]; }

 private:
  std::mt19937 engine_{5};
};

// A root and up to four cells on nine places round it.
std::string smallWorld(Random& random) {
  const std::vector<std::string> exits = {"-1", "0", "1", "2", "3"}, ways = {"0", "1", "2", "3"};
  std::vector<std::string> boxes = {"0 0 0 0 0 " + random.oneOf(exits) + " " + random.oneOf(exits)};
  std::vector<std::string> connectors;
  for (std::size_t cells = random.below(5); cells > 0; --cells) {
    const std::string place = random.oneOf({"-1", "0", "1"}) + " " + random.oneOf({"-1", "0", "1"});
    if (random.below(2) == 0) {
      const bool isEnd = random.below(2) == 0;
      const std::string yes = isEnd ? "-1" : random.oneOf(exits);
      boxes.push_back("1 " + place + " 0 0 " + yes + " " + (isEnd ? "-1" : random.oneOf(exits)));
    } else {
      connectors.push_back("0 0 0 " + random.oneOf(ways) + " " + random.oneOf(ways) + " " + place);
    }
  }
  return fvWith(boxes, connectors);
}

void move(Tavrel& navigator, std::size_t way) {
  if (way < 4) return navigator.moveWithDirection(static_cast<std::int64_t>(way));
  return way == 4 ? navigator.moveYes() : navigator.moveNo();
}

// Whether walks of a few random steps meet no exception.
bool canBeWalked(const ChartDirectory& directory, Random& random) try {
  Tavrel navigator(directory.path());
  for (int walks = 0; walks < 8; ++walks) {
    navigator.resetToStartLocationForFlowchartAtIndex(0);
    for (int steps = 0; steps < 8; ++steps) move(navigator, random.below(6));
  }
  return true;
} catch (const std::exception&) {
  return false;
}

bool hasErrors(const std::string& bytes) {
  return checkChart(SourceFile("Opening.fv", bytes), fewCharts).found.hasErrors();
}

TEST(CheckAndEngine, AgreeOnSmallWorlds) {
  Random random;
  const ChartDirectory directory;
  int good = 0, broken = 0;
  for (int i = 0; i < 60'000; ++i) {
    const std::string world = smallWorld(random);
    const bool isGood = !hasErrors(world);
    if (!isGood && i % 50 != 0) continue;  // most are broken
    directory.write("Opening", world);
    const bool isWalked = canBeWalked(directory, random);
    EXPECT_TRUE(isWalked || !isGood) << world;
    good += isGood ? 1 : 0;
    broken += isWalked ? 0 : 1;
  }
  EXPECT_LT(500, good);
  EXPECT_LT(500, broken);
}

// A good file with a few bytes or lines changed.
std::string damaged(std::string bytes, Random& random) {
  const std::string pieces[] = {"\n",
                                " ",
                                "-",
                                "0",
                                "1",
                                "9",
                                "99999999999",
                                "\r",
                                "\xFF",
                                "♣",
                                std::string(1, '\0'),
                                "1 1 0 0 0 -1 -1\n",
                                "?"};
  for (std::size_t changes = 1 + random.below(3); changes > 0; --changes) {
    const std::size_t at = random.below(bytes.size() + 1);
    const std::size_t length = random.below(3);
    bytes.replace(at, length, pieces[random.below(std::size(pieces))]);
  }
  return bytes;
}

TEST(CheckAndEngine, AgreeOnDamagedFiles) {
  Random random;
  const ChartDirectory directory;
  const std::string file =
      fvWith({"0 0 0 0 0 1 0", "1 2 0 0 0 -1 -1", "2 0 1 0 0 -1 -1"}, {"0 0 0 1 1 1 0"});
  int good = 0;
  for (int i = 0; i < 10'000; ++i) {
    const std::string bytes = damaged(file, random);
    if (hasErrors(bytes)) continue;
    ++good;
    directory.write("Opening", bytes);
    EXPECT_TRUE(canBeWalked(directory, random)) << bytes;
  }
  EXPECT_LT(500, good);
}

TEST(CheckAndEngine, TakeSourcesOfAnyBytes) {
  Random random;
  const std::string source =
      "chart: Opening\nintro: When.\nstart: a\nboxes:\n"
      "  a: {text: \"Five?\", comment: \"So.\", yes: \"b\", no: \"a\"}\n"
      "  b:\n    text: |\n      Pass\n    comment: So.\n";
  for (int i = 0; i < 5'000; ++i) {
    checkChart(SourceFile("Opening.yaml", damaged(source, random)), fewCharts);
  }
}

}  // namespace
}  // namespace tavrel::authoring
