// Bridge as players write it.

#include <gtest/gtest.h>

#include <string>

#include "authoring/Spelling.h"

namespace tavrel::authoring {
namespace {

std::string shown(const std::optional<Misspelling>& found) {
  return found ? found->written + " -> " + found->wanted : "";
}

TEST(Spelling, SaysNothingOfWhatPlayersWrite) {
  for (const char* text : {"Open 1NT",
                           "Bid 2♣ or 3♠",
                           "Pass",
                           "X",
                           "XX",
                           "(1♥) X",
                           "notrump",
                           "4-4 or 5-4 in both",
                           "♠ A Q 8 5 3 ♥ K 6 ♦ A J 4 ♣ Q 10 2",
                           "partner may pass, or double",
                           "22+ HCP",
                           "5-3-3-2",
                           "with 4 spades",
                           "10NT",
                           "8NT",
                           "Rule of 20",
                           "two 4s",
                           "4Sure",
                           "1st",
                           "B1C",
                           "3-1C",
                           "2[C]",
                           "~ or {so}",
                           "1 n",
                           ""}) {
    EXPECT_EQ(shown(misspelledCall(text)), "") << text;
  }
}

TEST(Spelling, KnowsCallsThatAreWrittenOtherwise) {
  EXPECT_EQ(shown(misspelledCall("Open 1N")), "1N -> 1NT");
  EXPECT_EQ(shown(misspelledCall("Open 1 NT now")), "1 NT -> 1NT");
  EXPECT_EQ(shown(misspelledCall("3nt")), "3nt -> 3NT");
  EXPECT_EQ(shown(misspelledCall("1n, or")), "1n -> 1NT");
  EXPECT_EQ(shown(misspelledCall("2Nt")), "2Nt -> 2NT");
  EXPECT_EQ(shown(misspelledCall("2 nT")), "2 nT -> 2NT");
  EXPECT_EQ(shown(misspelledCall("(2C)")), "2C -> 2♣");
  EXPECT_EQ(shown(misspelledCall("2d, or")), "2d -> 2♦");
  EXPECT_EQ(shown(misspelledCall("1S-2H")), "1S -> 1♠");
  EXPECT_EQ(shown(misspelledCall("over 2!h")), "2!h -> 2♥");
  EXPECT_EQ(shown(misspelledCall("7♤")), "7♤ -> 7♠");
  EXPECT_EQ(shown(misspelledCall("Say PASS")), "PASS -> Pass");
  EXPECT_EQ(shown(misspelledCall("Dbl")), "Dbl -> X");
  EXPECT_EQ(shown(misspelledCall("then redbl")), "redbl -> XX");
}

TEST(Spelling, WantsCallsForWordsWhereACallStandsAlone) {
  EXPECT_EQ(shown(misspelledLoneCall("pass")), "pass -> Pass");
  EXPECT_EQ(shown(misspelledLoneCall("Bid Double")), "Double -> X");
  EXPECT_EQ(shown(misspelledLoneCall("Call xx")), "xx -> XX");
  EXPECT_EQ(shown(misspelledLoneCall("Pass")), "");
  EXPECT_EQ(shown(misspelledLoneCall("pass or double")), "");
}

TEST(Spelling, WantsAnEnDashInRanges) {
  EXPECT_EQ(shown(misspelledRange("15-17 HCP")), "15-17 -> 15–17");
  EXPECT_EQ(shown(misspelledRange("HCP: 8 - 9.")), "8 - 9 -> 8–9");
  EXPECT_EQ(shown(misspelledRange("15—17")), "15—17 -> 15–17");
  EXPECT_EQ(shown(misspelledRange("(6−10)")), "6−10 -> 6–10");
  EXPECT_EQ(shown(misspelledRange("8-9-ish")), "8-9 -> 8–9");
}

TEST(Spelling, TellsRangesFromShapesAndOtherNumbers) {
  for (const char* text :
       {"15–17", "5-4", "4-4", "4-3-3-3", "1-4-4-4", "2-over-1", "4=4=3=2", "4-5=2", "9-", "9-x",
        "1C-1D", "x4-5", "12-1999", "1000-2000", "4-5=3=1", "8-9th", "3 -1 1"}) {
    EXPECT_EQ(shown(misspelledRange(text)), "") << text;
  }
}

}  // namespace
}  // namespace tavrel::authoring
