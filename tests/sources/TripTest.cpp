// That a trip notices what it is there for: a file that says something else than its source.

#include "tests/sources/Trip.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "authoring/Compiler.h"
#include "tests/sources/RandomSource.h"
#include "tests/support/Files.h"

namespace tavrel::sources {
namespace {

const std::string source =
    "chart: Opening\n"
    "intro: As dealer.\n"
    "start: q\n"
    "boxes:\n"
    "  q:\n"
    "    text: Fifteen to seventeen HCP and balanced?\n"
    "    comment: |\n"
    "      No singleton.\n"
    "\n"
    "      No void.\n"
    "    yes: {text: \"Open 1NT\", chart: RespNT}\n"
    "    no: {text: \"Pass\", comment: \"!s\"}\n";

std::string fileOf(const std::string& text) {
  authoring::Diagnostics found;
  const auto chart = authoring::compile(authoring::SourceFile("Opening.yaml", text),
                                        {"Opening", "RespNT", "Stayman"}, found);
  return chart ? chart->bytes : "";
}

std::string changed(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string differenceBetween(const std::string& file, const std::string& meant) {
  const TemporaryDirectory directory;
  writeFile(directory.chart("Opening"), file);
  Tavrel navigator(directory.path());
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  return differenceOf(navigator, meaningOf(meant));
}

TEST(Trip, MeetsWhatTheSourceSays) { EXPECT_EQ(differenceBetween(fileOf(source), source), ""); }

struct Slip {
  const char* from;
  const char* to;
  const char* difference;
};

std::ostream& operator<<(std::ostream& out, const Slip& slip) { return out << slip.difference; }

class TripOfAFile : public testing::TestWithParam<Slip> {};

TEST_P(TripOfAFile, NoticesWhatIsOther) {
  const std::string file = changed(fileOf(source), GetParam().from, GetParam().to);
  EXPECT_EQ(differenceBetween(file, source), GetParam().difference);
}

const Slip slips[] = {
    {"As dealer", "As opener", "another introduction"},
    {"seventeen\nHCP", "seventeen\npoints", "another text, at the start"},
    {"seventeen\nHCP and", "seventeen HCP\nand", "another text, at the start"},
    {"2 box lines\nFifteen to", "3 box lines\nFifteen\nto", "another text, at the start"},
    {"2 box lines\nFifteen to seventeen\n", "1 box line\nFifteen to seventeen ",
     "another text, at the start"},
    {"Open 1NT", "Open 2NT", "another text, by y"},
    {"\n\nNo void", "\nand\nNo void", "another comment, at the start"},
    {"♠", "♥", "another comment, by n"},
    {"RespNT", "Stayman", "another link, by y"},
    {"RespNT", "", "another link, by y"},
    {"0 0 0 0 0 1 0", "0 0 0 0 0 -1 0", "another yes, at the start"},
    {"0 0 0 0 0 1 0", "0 0 0 0 0 1 -1", "another no, at the start"},
    {"0 0 0 0 0 1 0", "0 0 0 0 0 0 1", "another text, by y"},
    {"0 0 0 0 0 1 0", "0 0 0 0 0 1 3", "an exit into nothing"},
};
INSTANTIATE_TEST_SUITE_P(All, TripOfAFile, testing::ValuesIn(slips));

TEST(Trip, NoticesABoxThatNoWalkMeets) {
  const std::string file = changed(fileOf(source), "3 box cells", "4 box cells");
  EXPECT_EQ(
      differenceBetween(changed(file, "\n1 connector", "\n2 5 5 0 0 -1 -1\n1 connector"), source),
      "boxes that no walk meets");
}

TEST(Trip, NoticesALineThatCannotBeWalkedBack) {
  EXPECT_EQ(
      differenceBetween(changed(fileOf(source), "0 0 0 0 0 0 1\n", "0 0 0 1 0 0 1\n"), source),
      "no way back, by n");
}

TEST(Trip, TellsALineBackWithoutAWayFromAMistake) {
  std::string loops = "chart: Opening\nstart: q0\nboxes:\n";
  for (int i = 0; i < 6; ++i) {
    loops += "  q" + std::to_string(i) + ": {text: \"?\", yes: q0, no: q" + std::to_string(i + 1) +
             "}\n";
  }
  Features met;
  Traveller traveller;
  EXPECT_EQ(traveller.travel("Opening.yaml", loops + "  q6: {text: \"end\"}\n", met).outcome,
            Outcome::noWayBack);
  EXPECT_EQ(traveller.travel("Opening.yaml", "chart: Opening\n", met).outcome, Outcome::refused);
  EXPECT_EQ(traveller.travel("Opening.yaml", source, met).outcome, Outcome::alike);
}

TEST(RandomSource, IsAlwaysTheSame) {
  Features met;
  EXPECT_EQ(randomSource(7, met), randomSource(7, met));
  EXPECT_NE(randomSource(7, met), randomSource(8, met));
}

}  // namespace
}  // namespace tavrel::sources
