// Bridge as players write it.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "authoring/Spelling.h"

namespace tavrel::authoring {
namespace {

std::string shown(const Misspelling& found) { return found.written + " -> " + found.wanted; }

std::string shown(const std::optional<Misspelling>& found) { return found ? shown(*found) : ""; }

std::string shown(const std::vector<Misspelling>& found) {
  std::string all;
  for (const Misspelling& each : found) all += (all.empty() ? "" : ", ") + shown(each);
  return all;
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
                           "4 ♠ and 5 ♥",
                           "with 4 ♠",
                           "B1C",
                           "3-1C",
                           "2[C]",
                           "~ or {so}",
                           "1 n",
                           "two 2s and three 3s",
                           "with 2s, or up to 4 ♠",
                           "length (4 ♠) in it",
                           "the 4 ♠ and a 2 ♣",
                           "Xx in a suit",
                           ""}) {
    EXPECT_EQ(shown(misspelledCalls(text)), "") << text;
  }
}

TEST(Spelling, KnowsCallsThatAreWrittenOtherwise) {
  EXPECT_EQ(shown(misspelledCalls("Open 1N")), "1N -> 1NT");
  EXPECT_EQ(shown(misspelledCalls("Open 1 NT now")), "1 NT -> 1NT");
  EXPECT_EQ(shown(misspelledCalls("3nt")), "3nt -> 3NT");
  EXPECT_EQ(shown(misspelledCalls("(2C)")), "2C -> 2♣");
  EXPECT_EQ(shown(misspelledCalls("2d, or")), "2d -> 2♦");
  EXPECT_EQ(shown(misspelledCalls("1S-2H")), "1S -> 1♠");
  EXPECT_EQ(shown(misspelledCalls("over 2!h")), "2!h -> 2♥");
  EXPECT_EQ(shown(misspelledCalls("7♤")), "7♤ -> 7♠");
  EXPECT_EQ(shown(misspelledCalls("Say PASS")), "PASS -> Pass");
  EXPECT_EQ(shown(misspelledCalls("Dbl")), "Dbl -> X");
  EXPECT_EQ(shown(misspelledCalls("then redbl")), "redbl -> XX");
  EXPECT_EQ(shown(misspelledCalls("1n, or")), "1n -> 1NT");
  EXPECT_EQ(shown(misspelledCalls("2Nt")), "2Nt -> 2NT");
  EXPECT_EQ(shown(misspelledCalls("2 nT")), "2 nT -> 2NT");
}

TEST(Spelling, WantsNoBlankInACallBehindAVerb) {
  EXPECT_EQ(shown(misspelledCalls("Bid 2 ♣")), "2 ♣ -> 2♣");
  EXPECT_EQ(shown(misspelledCalls("he opens 1 ♥ and")), "1 ♥ -> 1♥");
}

TEST(Spelling, KnowsByTheWordsRoundItWhetherACallIsMeant) {
  EXPECT_EQ(shown(misspelledCalls("Open 2s")), "2s -> 2♠");
  EXPECT_EQ(shown(misspelledCalls("over (2s) pass")), "2s -> 2♠");
  EXPECT_EQ(shown(misspelledCalls("Open 1 N, then")), "1 N -> 1NT");
  EXPECT_EQ(shown(misspelledCalls("responds 2 n")), "2 n -> 2NT");
  EXPECT_EQ(shown(misspelledCalls("raise to 3 ♦")), "3 ♦ -> 3♦");
  EXPECT_EQ(shown(misspelledCalls("after a 2 ♣ opening")), "2 ♣ -> 2♣");
  EXPECT_EQ(shown(misspelledCalls("bid 2 C")), "2 C -> 2♣");
  EXPECT_EQ(shown(misspelledCalls("over (1♥) bid Xx, or (Xx)")), "Xx -> XX, Xx -> XX");
}

TEST(Spelling, FindsAllOfATextWithTheirPlaces) {
  EXPECT_EQ(shown(misspelledCalls("2C, 1N or 2C")), "2C -> 2♣, 1N -> 1NT, 2C -> 2♣");
  EXPECT_EQ(shown(misspelledRanges("7-9 or 6-8")), "7-9 -> 7–9, 6-8 -> 6–8");
  EXPECT_EQ(misspelledCalls("2C, 1N")[1].offset, 4U);
  EXPECT_EQ(misspelledRanges("7-9 or 6-8")[1].offset, 7U);
  EXPECT_EQ(misspelledRanges("7 - 9 or 6-8")[1].offset, 9U);
}

TEST(Spelling, FindsAHundredOfEachKindAtMost) {
  std::string calls, ranges, suits;
  for (int i = 0; i < 200; ++i) {
    calls += "1N ";
    ranges += "7-9 ";
    suits += "!S ";
  }
  EXPECT_EQ(misspelledCalls(calls).size(), mostMisspellings);
  EXPECT_EQ(misspelledRanges(ranges).size(), mostMisspellings);
  EXPECT_EQ(misspelledSuits(suits).size(), mostMisspellings);
}

TEST(Spelling, KnowsSuitsThatAreNotRead) {
  EXPECT_EQ(shown(misspelledSuits("4+ !S?")), "!S -> ♠");
  EXPECT_EQ(shown(misspelledSuits("2!diamonds, !Clubs")), "!diamonds -> ♦, !Clubs -> ♣");
  EXPECT_EQ(shown(misspelledSuits("Bid! Stop!Club !x !NT !cute !")), "");
}

TEST(Spelling, WantsCallsForWordsWhereACallStandsAlone) {
  EXPECT_EQ(shown(misspelledLoneCall("pass")), "pass -> Pass");
  EXPECT_EQ(shown(misspelledLoneCall("Bid Double")), "Double -> X");
  EXPECT_EQ(shown(misspelledLoneCall("Call xx")), "xx -> XX");
  EXPECT_EQ(shown(misspelledLoneCall("Xx")), "Xx -> XX");
  EXPECT_EQ(shown(misspelledLoneCall("2s")), "2s -> 2♠");
  EXPECT_EQ(shown(misspelledLoneCall("1 N")), "1 N -> 1NT");
  EXPECT_EQ(shown(misspelledLoneCall("2 ♣")), "2 ♣ -> 2♣");
  for (const char* text :
       {"", "Pass", "1NT", "4♠", "pass or double", "2 ♣ or 2 ♦", "8 ♣", "2", "4 ♠?", "Bid"}) {
    EXPECT_EQ(shown(misspelledLoneCall(text)), "") << text;
  }
}

TEST(Spelling, WantsNoFullStopBehindALoneCall) {
  EXPECT_EQ(shown(misspelledLoneCall("Pass.")), "Pass. -> Pass");
  EXPECT_EQ(shown(misspelledLoneCall("2♣.")), "2♣. -> 2♣");
  EXPECT_EQ(shown(misspelledLoneCall("double.")), "double. -> X");
  for (const char* text : {"Bid 1NT.", "Open 1NT.", "Pass it.", ".", "Pass..."}) {
    EXPECT_EQ(shown(misspelledLoneCall(text)), "") << text;
  }
}

TEST(Spelling, WantsAnEnDashInRanges) {
  EXPECT_EQ(shown(misspelledRanges("15-17 HCP")), "15-17 -> 15–17");
  EXPECT_EQ(shown(misspelledRanges("HCP: 8 - 9.")), "8 - 9 -> 8–9");
  EXPECT_EQ(shown(misspelledRanges("15—17")), "15—17 -> 15–17");
  EXPECT_EQ(shown(misspelledRanges("(6−10)")), "6−10 -> 6–10");
  EXPECT_EQ(shown(misspelledRanges("8-9-ish")), "8-9 -> 8–9");
  EXPECT_EQ(shown(misspelledRanges("4-5 cards")), "4-5 -> 4–5");
  EXPECT_EQ(shown(misspelledRanges("8-9 in notrump")), "8-9 -> 8–9");
}

TEST(Spelling, WantsNoBlanksInRangesAndOneBehindThem) {
  EXPECT_EQ(shown(misspelledRanges("15- 17")), "15- 17 -> 15–17");
  EXPECT_EQ(shown(misspelledRanges("15 -17")), "15 -17 -> 15–17");
  EXPECT_EQ(shown(misspelledRanges("15 – 17 or 6– 10")), "15 – 17 -> 15–17, 6– 10 -> 6–10");
  EXPECT_EQ(shown(misspelledRanges("8 – 9 HCP")), "8 – 9 -> 8–9");
  EXPECT_EQ(shown(misspelledRanges("15-17HCP, 8-9pts")),
            "15-17HCP -> 15–17 HCP, 8-9pts -> 8–9 pts");
}

TEST(Spelling, TellsRangesFromShapesAndOtherNumbers) {
  for (const char* text : {"15–17",
                           "5-4",
                           "4-4",
                           "4-3-3-3",
                           "1-4-4-4",
                           "2-over-1",
                           "4=4=3=2",
                           "4-5=2",
                           "9-",
                           "9-x",
                           "1C-1D",
                           "x4-5",
                           "12-1999",
                           "1000-2000",
                           "4-5=3=1",
                           "8-9th",
                           "3 -1 1",
                           "10-12 July",
                           "July 10-12",
                           "10-12 Sept",
                           "4-5 in the majors",
                           "a 2-4 break",
                           "2-3 fit",
                           "bid 3 – 4 would be too much",
                           "5- 6-card suit",
                           "15–17HCP",
                           "15-17HCPs",
                           "15 -",
                           "15 17"}) {
    EXPECT_EQ(shown(misspelledRanges(text)), "") << text;
  }
}

}  // namespace
}  // namespace tavrel::authoring
