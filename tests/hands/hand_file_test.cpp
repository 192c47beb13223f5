// Deals and files of deals.

#include "hands/HandFile.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "hands/Deal.h"

namespace tavrel::hands {
namespace {

constexpr const char* dealText =
    "N:AKQ2.AKQ2.AK3.32 JT98.JT98.QJT.AK 7654.7654.987.QJ 3.3.6542.T987654";

// "N:… … … …", or the fault.
std::string shown(const HandsBySeat& hands) {
  std::string text = "N:";
  for (const auto& hand : hands) {
    text += (text.size() > 2 ? " " : "") + (hand ? written(*hand) : std::string("-"));
  }
  return text;
}

std::string dealAs(const std::string& text) {
  const auto read = readDeal(text);
  if (const auto* fault = std::get_if<Misreading>(&read)) return "! " + shown(*fault);
  return shown(std::get<HandsBySeat>(read));
}

std::string shown(const Board& board) {
  std::string text = board.name + " line " + std::to_string(board.line);
  if (board.dealer) text += std::string(" dealer ") + letterOf(*board.dealer);
  if (board.vulnerability) {
    text += std::string(" vul ") + (board.vulnerability->northSouth ? "NS" : "") +
            (board.vulnerability->eastWest ? "EW" : "");
  }
  if (board.auction) text += " [" + written(*board.auction) + "]";
  return text + " " + (board.fault ? "! " + shown(*board.fault) : shown(board.hands));
}

std::vector<std::string> boardsIn(const std::string& bytes) {
  std::vector<std::string> boards;
  readBoards(bytes, [&](const Board& board) { boards.push_back(shown(board)); });
  return boards;
}

using Boards = std::vector<std::string>;

TEST(Seats, FaceTheirPartners) {
  for (const auto& [seat, partner] : {std::pair(Seat::north, Seat::south),
                                      {Seat::east, Seat::west},
                                      {Seat::south, Seat::north},
                                      {Seat::west, Seat::east}}) {
    EXPECT_EQ(partnerOf(seat), partner) << nameOf(seat);
  }
}

TEST(DealText, GoesRoundFromTheSeatThatIsNamed) {
  EXPECT_EQ(dealAs("N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432"),
            "N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432");
  EXPECT_EQ(dealAs("w:AKQJT98765432... .AKQJT98765432.. - -"),
            "N:.AKQJT98765432.. - - AKQJT98765432...");
}

TEST(DealText, HasTheFourthHandOfTheOtherThree) {
  EXPECT_EQ(dealAs("N:AKQJT98765432... .AKQJT98765432.. - ...AKQJT98765432"),
            "N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432");
}

TEST(DealText, SaysWhoseHandIsWrong) {
  EXPECT_EQ(dealAs("N:AKQJT9876543... - - -"),
            "! North's hand: there are only 12 cards: ♠ AKQJT9876543, ♥ none, ♦ none, ♣ none; a "
            "hand has thirteen");
  EXPECT_EQ(dealAs("N:AKQJT98765432... A.KQJT98765432.. - -"),
            "! ♠A is in North's hand and in East's; a pack has each card once");
  EXPECT_EQ(dealAs("N:- -"),
            "! there are fewer than four hands; write a dash for a hand that isn't known");
  EXPECT_EQ(dealAs("N:- - - - -"), "! there is a fifth hand; a deal has four");
  EXPECT_EQ(dealAs("Q:- - - -"), "! a deal begins with a seat; write N: and the four hands");
}

TEST(DealText, IsToldFromAHandWhoseSuitsAreNamed) {
  EXPECT_TRUE(isDealText("S:AQ85.KJ7.KQ4.J62 - - -"));
  EXPECT_FALSE(isDealText("S:AQ85 H:KJ7 D:KQ4 C:J62"));
  EXPECT_FALSE(isDealText("AQ85.KJ7.KQ4.J62"));
  EXPECT_FALSE(isDealText(""));
}

TEST(PbnFile, HasItsBoardsWithDealerVulnerabilityAndAuction) {
  const std::string file =
      std::string("% PBN 2.1\n[Event \"Club\"]\n[Board \"7\"]\n") +
      "[Dealer \"S\"]\n[Vulnerable \"EW\"]\n[Deal \"" + dealText + "\"]\n" +
      "[Auction \"S\"]\n1NT =1= Pass! 2C Pass\n2H $4 AP\n[Note \"1:15-17\"]\n" +
      "\n[Board \"8\"]\n[Dealer \"#\"]\n[Deal \"N:- - - -\"]\n";
  EXPECT_EQ(boardsIn(file),
            (Boards{std::string("7 line 6 dealer S vul EW [1NT P 2C P 2H P P P] ") + dealText,
                    "8 line 14 dealer S N:- - - -"}));
}

TEST(PbnFile, StartsABoardAtATagThatStandsAgain) {
  EXPECT_EQ(boardsIn("[Deal \"N:- - - -\"]\r\n[Deal \"E:- - - -\"]\r\n"),
            (Boards{" line 1 N:- - - -", " line 2 N:- - - -"}));
}

TEST(PbnFile, PassesOverComments) {
  EXPECT_EQ(boardsIn("[Board \"1\"]\n{ over\n[Board \"2\"]\ntwo lines }\n; and one\n"
                     "[Deal \"N:- - - -\"]\n"),
            Boards{"1 line 6 N:- - - -"});
  EXPECT_EQ(boardsIn("[Deal \"N:- - - -\"]\n{ without an end\n"), Boards{" line 1 N:- - - -"});
}

TEST(PbnFile, SaysWhatIsWrongWithABoardAndGoesOn) {
  EXPECT_EQ(boardsIn("[Deal \"N:A.A.A.A - - -\"]\n\n[Deal \"N:- - - -\"]\n"),
            (Boards{" line 1 ! North's hand: there are only 4 cards: ♠ A, ♥ A, ♦ A, ♣ A; a hand "
                    "has thirteen",
                    " line 3 N:- - - -"}));
}

TEST(LinFile, HasItsBoardsWithDealerVulnerabilityAndAuction) {
  EXPECT_EQ(boardsIn("pn|a,b,c,d|st||\nqx|o7|md|3S7654H7654D987CQJ,S3H3D6542CT987654,"
                     "SAKQ2HAKQ2DAK3C32,|rh||ah|Board 7|sv|n|\nmb|1N|an|15-17|mb|p|mb|2C!|mb|d|"
                     "pg||\nqx|c7|md|1,,,|sv|o|\n"),
            (Boards{std::string("Board 7 line 2 dealer N vul NS [1NT P 2C X] ") + dealText,
                    "c7 line 4 dealer S vul  N:- - - -"}));
}

TEST(LinFile, SaysWhatIsWrongWithABoardAndGoesOn) {
  EXPECT_EQ(boardsIn("md|1SAK,|\nmd|2,|"),
            (Boards{" line 1 dealer S ! South's hand: there are only 2 cards: ♠ AK, ♥ none, ♦ "
                    "none, ♣ none; a hand has thirteen",
                    " line 2 dealer W N:- - - -"}));
}

TEST(DealFile, IsToldFromAListOfHands) {
  EXPECT_TRUE(isDealFile("\xEF\xBB\xBF\n[Event \"\"]\n"));
  EXPECT_TRUE(isDealFile("% PBN\n"));
  EXPECT_TRUE(isDealFile("pn|a,b|md|1|\n"));
  EXPECT_FALSE(isDealFile("AQ85.KJ7.KQ4.J62\n[Deal \"\"]\n"));
  EXPECT_FALSE(isDealFile(""));
}

// Pieces of both forms in any order, and bytes of any kind.
TEST(DealFile, MayHoldAnyBytes) {
  const std::vector<std::string> pieces = {"[Deal \"",
                                           "\"]",
                                           "[Board \"1\"]",
                                           "N:",
                                           "AKQ2.AKQ2.AK3.32",
                                           " ",
                                           "\n",
                                           "\r\n",
                                           "{",
                                           "}",
                                           ";",
                                           "%",
                                           "[Auction \"N\"]",
                                           "1NT",
                                           "Pass",
                                           "AP",
                                           "=1=",
                                           "#",
                                           "md|",
                                           "|",
                                           ",",
                                           "3",
                                           "SAKQ2HAKQ2DAK3C32",
                                           "sv|",
                                           "o",
                                           "mb|",
                                           "p",
                                           "d!",
                                           "qx|",
                                           "ah|",
                                           "[",
                                           "\"",
                                           "\xFF",
                                           std::string(1, '\0'),
                                           "♠"};
  Random random(5);
  for (int i = 0; i < 50'000; ++i) {
    std::string bytes = random.below(2) == 0 ? "[" : "pn|";
    for (std::uint32_t left = random.below(30); left > 0; --left) {
      bytes += pieces[random.below(static_cast<std::uint32_t>(pieces.size()))];
    }
    readBoards(bytes, [&](const Board& board) {
      EXPECT_GE(board.line, 1U);
      for (const auto& hand : board.hands) {
        if (hand) {
          EXPECT_EQ(hand->size(), cardsInHand);
        }
      }
    });
  }
}

}  // namespace
}  // namespace tavrel::hands
