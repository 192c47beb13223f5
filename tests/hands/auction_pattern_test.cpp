// Patterns of auctions: what they stand for, and what is wrong with others.

#include "hands/AuctionPattern.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel::hands {
namespace {

using Strings = std::vector<std::string>;
using authoring::Code;

Strings auctions(const std::string& pattern) {
  const auto read = auctionsOf(pattern);
  if (const auto* fault = std::get_if<Fault>(&read)) return {"fault: " + fault->text};
  Strings all;
  for (const Auction& auction : std::get<std::vector<Auction>>(read)) {
    all.push_back(written(auction));
  }
  return all;
}

// "OFFSET: what is wrong: cure", empty if nothing is.
std::string fault(const std::string& pattern, Code code) {
  const auto read = auctionsOf(pattern);
  const auto* fault = std::get_if<Fault>(&read);
  if (fault == nullptr) return "";
  EXPECT_EQ(nameOf(fault->code), nameOf(code)) << pattern;
  return std::to_string(fault->offset) + ": " + fault->text + ": " + fault->cure;
}

TEST(AuctionPattern, OfNoCallIsTheDealersFirstTurn) {
  EXPECT_EQ(auctions(""), Strings{""});
  EXPECT_EQ(auctions(" \n "), Strings{""});
}

TEST(AuctionPattern, OfCallsIsOneAuction) {
  EXPECT_EQ(auctions("1NT P 2C P"), Strings{"1NT P 2C P"});
  EXPECT_EQ(auctions("1n pass\n2♣  (x)"), Strings{"1NT P 2C X"});
}

TEST(AuctionPattern, NamesAlternatives) {
  EXPECT_EQ(auctions("(1C|1D) P (1H|1S)"), (Strings{"1C P 1H", "1D P 1H", "1C P 1S", "1D P 1S"}));
  EXPECT_EQ(auctions("( 1C P P | P 1D ) X"), (Strings{"1C P P X", "P 1D X"}));
}

TEST(AuctionPattern, LeavesOutWhatAQuestionMarkFollows) {
  EXPECT_EQ(auctions("P? P? 1NT P"), (Strings{"1NT P", "P 1NT P", "P P 1NT P"}));
  EXPECT_EQ(auctions("1C (X|1D) ?"), (Strings{"1C", "1C X", "1C 1D"}));
}

TEST(AuctionPattern, MayHaveGroupsOfSeveralCallsWithinGroups) {
  EXPECT_EQ(auctions("(P P|(P|1C) 1D)? P"), (Strings{"P", "P P P", "P 1D P", "1C 1D P"}));
}

TEST(AuctionPattern, NamesEachAuctionOnce) {
  EXPECT_EQ(auctions("(P|P|pass) P?"), (Strings{"P", "P P"}));
  EXPECT_EQ(auctions("P? P? P? 1C"), (Strings{"1C", "P 1C", "P P 1C", "P P P 1C"}));
}

TEST(AuctionPattern, WithAWordThatIsNoCallIsAFault) {
  EXPECT_EQ(fault("1NT foo", Code::badPattern),
            "4: foo is no call: calls are written as 1NT, 2C, P, X and XX");
  EXPECT_EQ(fault("1NT-P-2C", Code::badPattern),
            "0: 1NT-P-2C is no call: write blanks between calls");
  EXPECT_EQ(fault("1NT, P", Code::badPattern), "0: 1NT, is no call: write blanks between calls");
}

TEST(AuctionPattern, ThatIsPutTogetherWronglyIsAFault) {
  const std::string cure = ": write calls as in P? (1C|1D) P";
  EXPECT_EQ(fault("1C|1D", Code::badPattern),
            "2: alternatives stand in parentheses: write them as in (1C|1D)");
  EXPECT_EQ(fault("P (1C|1D", Code::badPattern),
            "2: this parenthesis is not closed: write a ) where it ends");
  EXPECT_EQ(fault("1C)", Code::badPattern), "2: no parenthesis is open here: take the ) away");
  EXPECT_EQ(fault("?", Code::badPattern), "0: a call is missing before this ?" + cure);
  EXPECT_EQ(fault("1C??", Code::badPattern), "3: a call is missing before this ?" + cure);
  EXPECT_EQ(fault("()", Code::badPattern), "1: a call is missing before this )" + cure);
  EXPECT_EQ(fault("(|1C)", Code::badPattern), "1: a call is missing before this |" + cure);
  EXPECT_EQ(fault("(1C| )", Code::badPattern), "5: a call is missing before this )" + cure);
  EXPECT_EQ(fault("(1C ? ?)", Code::badPattern), "6: a call is missing before this ?" + cure);
  EXPECT_EQ(fault("(1C|", Code::badPattern), "4: a call is missing at the end" + cure);
}

TEST(AuctionPattern, OfAnAuctionThatTheLawsDontAllowIsAFault) {
  EXPECT_EQ(fault("X", Code::impossibleAuction),
            "0: X is not allowed first: take it away, or write several patterns");
  EXPECT_EQ(fault("(1C|1D) (1C|1D)", Code::impossibleAuction),
            "9: 1C is not allowed after 1C: take it away, or write several patterns");
  EXPECT_EQ(fault("1C P P P 1D", Code::impossibleAuction),
            "9: nobody calls any more after 1C P P P: take calls away");
}

TEST(AuctionPattern, OfAnAuctionThatIsOverIsAFault) {
  EXPECT_EQ(fault("P? P? P? P?", Code::impossibleAuction),
            "11: nobody calls any more after P P P P: end where the chart's player calls next");
}

TEST(AuctionPattern, OfTooManyAuctionsIsAFault) {
  const std::string any = "(1C|1D|1H|1S|1NT) (P|X|2C|2D|2H|2S|2NT) (3C|3D|3H|3S|3NT)";
  EXPECT_EQ(auctions(any).size(), 175U);
  const std::string some = any + " (P|X|4C|4D|4H|4S|4NT) (5C|5D|5H|5S|5NT)";
  EXPECT_EQ(auctions(some).size(), 175U * 35);
  EXPECT_EQ(fault(some + " (P|X)", Code::tooManyAuctions),
            "0: the pattern stands for more than 10,000 auctions: name the calls that matter");
}

TEST(AuctionPattern, ThatNamesTheSameAuctionsAgainAndAgainIsAFault) {
  std::string pattern =
      "(1C|1D|1H|1S|1NT) (P|X|2C|2D|2H|2S|2NT) (3C|3D|3H|3S|3NT) "
      "(P|X|4C|4D|4H|4S|4NT) (5C|5D|5H|5S|5NT) (P";
  for (int i = 0; i < 100; ++i) pattern += "|P";
  EXPECT_EQ(fault(pattern + ")", Code::tooManyAuctions),
            "0: the pattern stands for more than 10,000 auctions: name the calls that matter");
}

TEST(AuctionPattern, ThatIsTooLongOrTooDeepIsAFault) {
  EXPECT_EQ(fault(std::string(1001, ' '), Code::tooManyAuctions),
            "1000: the pattern is longer than 1,000 bytes: write several patterns");
  EXPECT_EQ(auctions(std::string(10, '(') + "P" + std::string(10, ')')), Strings{"P"});
  EXPECT_EQ(fault(std::string(1000, '('), Code::badPattern),
            "10: parentheses stand in one another more than 10 deep: write several patterns");
}

TEST(PatternAuctions, AreThoseOfAllPatternsEachOnce) {
  PatternAuctions auctions;
  EXPECT_FALSE(auctions.add("P? 1C"));
  EXPECT_FALSE(auctions.add("(1C|1D)"));
  ASSERT_EQ(auctions.all().size(), 3U);
  EXPECT_EQ(written(auctions.all()[2]), "1D");
}

TEST(PatternAuctions, SayWhatIsWrongWithAPattern) {
  PatternAuctions auctions;
  EXPECT_EQ(auctions.add("1C 1C")->code, Code::impossibleAuction);
  EXPECT_FALSE(auctions.add("1C"));
  EXPECT_EQ(auctions.all().size(), 1U);
}

TEST(PatternAuctions, SayOnceThatTheyAreTooMany) {
  const std::string many =
      "(1C|1D|1H|1S|1NT) (P|X|2C|2D|2H|2S|2NT) (3C|3D|3H|3S|3NT) "
      "(P|X|4C|4D|4H|4S|4NT) (5C|5D|5H|5S|5NT)";
  PatternAuctions auctions;
  EXPECT_FALSE(auctions.add(many));
  EXPECT_EQ(auctions.add(many)->code, Code::tooManyAuctions);
  EXPECT_FALSE(auctions.add("no pattern"));
  EXPECT_EQ(auctions.all().size(), 175U * 35);
}

TEST(PatternAuctions, AreOfAHundredPatternsAtMost) {
  PatternAuctions auctions;
  for (int i = 0; i < 100; ++i) EXPECT_FALSE(auctions.add("1C"));
  EXPECT_EQ(auctions.add("1C")->code, Code::tooManyAuctions);
}

}  // namespace
}  // namespace tavrel::hands
