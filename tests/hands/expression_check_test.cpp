// What is taken for an expression, and what is said of everything else.

#include "hands/ExpressionCheck.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavrel::hands {
namespace {

using authoring::Code;
using Strings = std::vector<std::string>;

// "T0837 0: what is wrong: its cure", for each fault.
Strings faults(const std::string& text, Type wanted = Type::truth) {
  Strings all;
  for (const Fault& fault : checkExpression(text, wanted).faults) {
    all.push_back(nameOf(fault.code) + " " + std::to_string(fault.offset) + ": " + fault.text +
                  ": " + fault.cure);
  }
  return all;
}

struct Case {
  const char* text;
  const char* fault;
};

void expectFaults(const std::vector<Case>& cases) {
  for (const auto& [text, fault] : cases) EXPECT_EQ(faults(text), Strings{fault}) << text;
}

TEST(ExpressionCheck, TakesConditions) {
  for (const char* text : {
           "balanced",
           "hcp >= 6 || length(S) >= 5",
           "suitOf(partner(1)) >= H && support >= 3",
           "hcp >= 15 && hcp <= 17 && (balanced || shape(5,4,2,2))",
           "!(hcp >= 12)",
           "!balanced && !stopper(theirs)",
           "quick >= 2.5",
           "2*(clubs >= 6 && tops(C, 3) >= 2) + hcp >= 15",
           "hcp >= (vulnerable ? 12 : 10)",
           "vulnerable ? hcp >= 12 : hcp >= 10",
           "partner(1) == c2H || partner(1) == noCall",
           "max(spades, hearts) >= 5 && min(spades, hearts, 3) > -1",
           "longestSuit == S && secondSuit < longestSuit",
           "balanced == vulnerable",
           "(15 <= hcp) == (hcp <= 17)",
           "exact(4,4,3,2)||shape( 4 , 4 , 4 , 1 )",
           "level(right(1)) < 3",
           "length(suitOf(own(1))) >= 6",
           "hcp\n  >= 12\t&& balanced\r\n",
           "partner(seat) == cX",
       }) {
    EXPECT_EQ(faults(text), Strings{}) << text;
  }
}

TEST(ExpressionCheck, TakesWhatIsOfTheTypeThatIsWanted) {
  EXPECT_EQ(faults("hcp + 1", Type::number), Strings{});
  EXPECT_EQ(faults("balanced", Type::number), Strings{});
  EXPECT_EQ(faults("longestSuit", Type::suit), Strings{});
  EXPECT_EQ(faults("vulnerable ? S : H", Type::suit), Strings{});
  EXPECT_EQ(faults("partner(1)", Type::call), Strings{});
  EXPECT_EQ(faults("S", Type::number),
            Strings{"T0837 0: S is a suit where a number belongs: write length(S) for the number "
                    "of its cards"});
}

// --- what another language, or muParser, would take otherwise -----------------------

TEST(ExpressionCheck, RefusesASingleEqualsSign) {
  expectFaults({{"hcp = 12", "T0832 4: a single = doesn't compare: write =="},
                {"balanced = vulnerable", "T0832 9: a single = doesn't compare: write =="}});
}

TEST(ExpressionCheck, RefusesChainedComparisons) {
  const std::string said = "a second comparison would compare what came of the first: write ";
  EXPECT_EQ(faults("15<=hcp<=17"), Strings{"T0833 7: " + said + "15 <= hcp && hcp <= 17"});
  EXPECT_EQ(faults("15 < length( S ) + 1 < 17 && balanced"),
            Strings{"T0833 21: " + said + "15 < length( S ) + 1 && length( S ) + 1 < 17"});
  EXPECT_EQ(faults("hcp == spades == (hearts)"),
            Strings{"T0833 14: " + said + "hcp == spades && spades == (hearts)"});
  EXPECT_EQ(faults("1 < hcp < 3 < 4"), Strings{"T0833 8: " + said + "1 < hcp && hcp < 3"});
}

TEST(ExpressionCheck, RefusesRangesThatAreDifferences) {
  expectFaults({{"hcp == 15-17",
                 "T0833 7: 15-17 is a difference, and less than 0: write hcp >= 15 && hcp <= 17"},
                {"15 - 17 == hcp && balanced",
                 "T0833 0: 15 - 17 is a difference, and less than 0: write hcp >= 15 && hcp <= 17"},
                {"hcp == 15–17",
                 "T0831 9: – means nothing in expressions: write a range as hcp >= 15 && hcp <= "
                 "17, and a difference with -"}});
  EXPECT_EQ(faults("hcp == 17-15 || hcp == spades-15 || hcp == 15-spades"), Strings{});
}

TEST(ExpressionCheck, RefusesCommasBetweenConditions) {
  const std::string said =
      "a comma stands between arguments alone: join conditions with && or ||, and write 1.5 with a "
      "point";
  EXPECT_EQ(faults("hcp >= 12, balanced"), Strings{"T0834 9: " + said});
  EXPECT_EQ(faults("(hcp >= 12, balanced)"), Strings{"T0834 10: " + said});
  EXPECT_EQ(faults("quick > 1,5"), Strings{"T0834 9: " + said});
}

TEST(ExpressionCheck, RefusesNamesThatOthersHave) {
  const std::string all =
      ": there are hcp, points, spades, hearts, diamonds, clubs, balanced, support and more: see "
      "docs/hands.md";
  EXPECT_EQ(faults("_pi > 3"), Strings{"T0835 0: there is no name _pi" + all});
  EXPECT_EQ(faults("asinh(hcp) > 1"), Strings{"T0835 0: there is no name asinh" + all});
  EXPECT_EQ(faults("sin(hcp) > 1"), Strings{"T0835 0: there is no name sin: did you mean min?"});
  EXPECT_EQ(faults("abs(1) == 1 || _e > 1").size(), 2U);
}

TEST(ExpressionCheck, GuessesWhatAWrongNameWasToBe) {
  expectFaults({{"HCP >= 12", "T0835 0: there is no name HCP: write hcp: capitals matter"},
                {"Balanced", "T0835 0: there is no name Balanced: write balanced: capitals matter"},
                {"length(h) > 4", "T0835 7: there is no name h: write H: capitals matter"},
                {"ballanced", "T0835 0: there is no name ballanced: did you mean balanced?"},
                {"lenght(S) > 4", "T0835 0: there is no name lenght: did you mean length?"},
                {"partner(1) == X", "T0835 14: there is no name X: write cX"},
                {"partner(1) == pass", "T0835 14: there is no name pass: write cP"},
                {"partner(1) == c1N", "T0835 14: there is no name c1N: write c1NT"},
                {"partner(1) == cPass", "T0835 14: there is no name cPass: write cP"}});
  const std::string longName(50, 'x');
  EXPECT_EQ(faults(longName)[0].substr(0, 62), "T0835 0: there is no name " + std::string(36, 'x'));
}

TEST(ExpressionCheck, RefusesOperatorsOfOtherLanguages) {
  expectFaults({
      {"balanced and vulnerable", "T0831 9: and is no operator here: write &&"},
      {"balanced OR vulnerable", "T0831 9: OR is no operator here: write ||"},
      {"not balanced", "T0831 0: not is no operator here: write !"},
      {"balanced xor vulnerable", "T0831 9: xor is no operator here: write !="},
      {"balanced & vulnerable", "T0831 9: & is no operator here: write &&"},
      {"balanced | vulnerable", "T0831 9: | is no operator here: write ||"},
      {"hcp ≥ 12", "T0831 4: ≥ is no operator here: write >="},
      {"hcp ≤ 12", "T0831 4: ≤ is no operator here: write <="},
      {"hcp ≠ 12", "T0831 4: ≠ is no operator here: write !="},
      {"hcp <> 12", "T0831 4: <> is no operator here: write !="},
      {"hcp => 12", "T0831 4: => is no operator here: write >="},
      {"hcp =< 12", "T0831 4: =< is no operator here: write <="},
      {"hcp === 12", "T0831 4: === is no operator here: write =="},
      {"hcp × 2 > 12", "T0831 4: × is no operator here: write *"},
      {"hcp − 2 > 12", "T0831 4: − is no operator here: write -"},
      {"hcp ** 2 > 12", "T0831 4: ** is no operator here: write *"},
      {"hcp ^ 2 > 12",
       "T0831 4: ^ means nothing in expressions: write a product: there are no powers"},
      {"hcp % 2 == 0",
       "T0831 4: % means nothing in expressions: there are no remainders and no per cent"},
      {"balanced;", "T0831 8: ; means nothing in expressions: take it away"},
      {"balanced \xFF", "T0831 9: � means nothing in expressions: take it away"},
  });
  EXPECT_EQ(faults("[hcp > 12}"), (Strings{"T0831 0: [ means nothing in expressions: write (",
                                           "T0831 9: } means nothing in expressions: write )"}));
}

TEST(ExpressionCheck, RefusesNumbersOfOtherLanguages) {
  const std::string digits = ": write a number with digits alone, as 12 or 1.5";
  EXPECT_EQ(faults("hcp > 1e3"), Strings{"T0831 6: 1e3 is no number or name" + digits});
  EXPECT_EQ(faults("hcp > 0x10"), Strings{"T0831 6: 0x10 is no number or name" + digits});
  EXPECT_EQ(faults("hcp > 5."), Strings{"T0831 6: 5. is no number or name" + digits});
  EXPECT_EQ(faults("hcp > 1.2.3"), Strings{"T0831 6: 1.2.3 is no number or name" + digits});
  EXPECT_EQ(faults("hcp > ."), Strings{"T0831 6: . is no number or name" + digits});
  EXPECT_EQ(faults("hcp > .5"), Strings{"T0831 6: .5 is no number or name: write 0.5"});
  EXPECT_EQ(faults("hcp > 1234567890123456"),
            Strings{"T0831 6: 1234567890123456 is no number or name: no number in bridge is as "
                    "long"});
  EXPECT_EQ(faults("hcp > 123456789012345"), Strings{});
}

TEST(ExpressionCheck, RefusesCallsAndSuitsAsTheTableWritesThem) {
  expectFaults({{"partner(1) == 1NT", "T0831 14: 1NT is no name of a call here: write c1NT"},
                {"partner(1) == 2♥", "T0831 14: 2♥ is no name of a call here: write c2H"},
                {"length(♥) > 4",
                 "T0831 7: ♥ is no number or name: suits are written as C, D, H and S, and their "
                 "lengths as clubs, diamonds, hearts and spades"},
                {"partner(1) == \"1NT\"",
                 "T0831 14: there are no quotation marks in expressions: write names, suits and "
                 "calls without them"},
                {"partner(1) == 'P",
                 "T0831 14: there are no quotation marks in expressions: write names, suits and "
                 "calls without them"}});
}

// --- the way it is put together ---------------------------------------------------

TEST(ExpressionCheck, RefusesWhatIsPutTogetherWrongly) {
  expectFaults({
      {"", "T0830 0: there is no expression here: write a condition, as in hcp >= 12"},
      {" \n ", "T0830 0: there is no expression here: write a condition, as in hcp >= 12"},
      {"hcp >= ", "T0830 6: something is missing behind >=: write what belongs there"},
      {">= 12",
       "T0830 0: something is missing before >=: write what belongs there, or take >= away"},
      {"+hcp > 3",
       "T0830 0: something is missing before +: write what belongs there, or take + away"},
      {"hcp > * 3",
       "T0830 6: something is missing before *: write what belongs there, or take * away"},
      {"()", "T0830 1: something is missing before ): write what belongs there, or take ) away"},
      {"max(1,) > 0",
       "T0830 6: something is missing before ): write what belongs there, or take ) away"},
      {"(hcp > 3", "T0830 0: this parenthesis is not closed: write a ) where it ends"},
      {"length(S > 3", "T0830 6: this parenthesis is not closed: write a ) where it ends"},
      {"hcp > 3)", "T0830 7: no parenthesis is open here: take the ) away"},
      {"hcp > 3 balanced",
       "T0830 8: an operator is missing before balanced: join conditions with && or ||, and "
       "compare with =="},
      {"(hcp 3)",
       "T0830 5: an operator is missing before 3: join conditions with && or ||, and compare "
       "with =="},
      {"2(hcp) > 3",
       "T0830 1: an operator is missing before (: join conditions with && or ||, and compare "
       "with =="},
      {"balanced ! vulnerable",
       "T0830 9: an operator is missing before !: join conditions with && or ||, and compare "
       "with =="},
      {"balanced ? vulnerable",
       "T0830 9: there is no : for this ?: write condition ? value : other value"},
      {"balanced : vulnerable",
       "T0830 9: no ? belongs to this :: write condition ? value : other value"},
      {"!!balanced",
       "T0830 1: two signs stand here in a row: leave them out, or put parentheses behind the "
       "first"},
      {"- -hcp < 3",
       "T0830 2: two signs stand here in a row: leave them out, or put parentheses behind the "
       "first"},
      {"length (S) > 3",
       "T0830 6: there is a blank between length and its parenthesis: write length("},
  });
  EXPECT_EQ(faults("hcp - -3 > 2 && hcp * -1 < 3 && -(-hcp) > 3 && !(!balanced)"), Strings{});
}

TEST(ExpressionCheck, SaysNothingOfTheRestWhereCharactersMeanNothing) {
  EXPECT_EQ(faults("hcp # > 12").size(), 1U);
  EXPECT_EQ(faults("5 $").size(), 1U);
}

TEST(ExpressionCheck, SaysAllThatIsWrongInTheOrderOfTheText) {
  EXPECT_EQ(faults("HCP = 12 and length(5) ≥ 3"),
            (Strings{"T0835 0: there is no name HCP: write hcp: capitals matter",
                     "T0832 4: a single = doesn't compare: write ==",
                     "T0831 9: and is no operator here: write &&",
                     "T0837 20: 5 is a number where a suit belongs: suits are C, D, H, S, theirs "
                     "and partners",
                     "T0831 23: ≥ is no operator here: write >="}));
}

// --- types ------------------------------------------------------------------------

TEST(ExpressionCheck, WantsConditionsWhereConditionsBelong) {
  expectFaults({
      {"support",
       "T0837 0: support is a number where a condition belongs: compare it, as in support >= 3"},
      {"hcp && balanced",
       "T0837 0: hcp is a number where a condition belongs: compare it, as in hcp >= 12"},
      {"balanced || theirs",
       "T0837 12: theirs is a suit where a condition belongs: compare it, as in theirs == H"},
      {"partner(1) ? balanced : vulnerable",
       "T0837 0: partner(1) is a call where a condition belongs: compare it, as in partner(1) == "
       "c1NT"},
      {"!support",
       "T0837 1: support is a number where a condition belongs: compare it, as in support >= 3"},
      {"!support + 1 > 0",
       "T0837 1: support is a number where a condition belongs: compare it, as in support >= 3"},
      {"!theirs",
       "T0837 1: theirs is a suit where a condition belongs: compare it, as in theirs == H"},
      {"3 > !support",
       "T0837 5: support is a number where a condition belongs: compare it, as in support >= 3"},
  });
}

TEST(ExpressionCheck, KnowsANegationThatWasMeantOfTheComparison) {
  expectFaults(
      {{"!hcp >= 12", "T0837 0: ! belongs to hcp alone, which is a number: write !(hcp >= 12)"},
       {"balanced && ! (hcp+1) < losers",
        "T0837 12: ! belongs to (hcp+1) alone, which is a number: write !((hcp+1) < "
        "losers)"}});
}

TEST(ExpressionCheck, KnowsAChoiceThatWasMeantOnOneSide) {
  expectFaults(
      {{"hcp >= vulnerable ? 12 : 10",
        "T0837 18: hcp >= vulnerable as a whole decides between the values, which are no "
        "conditions: write hcp >= (vulnerable ? 12 : 10)"},
       {"(hcp >= 3) ? 12 : 10",
        "T0837 0: (hcp >= 3) ? 12 : 10 is a number where a condition belongs: compare it, as in "
        "(hcp >= 3) ? 12 : 10 >= 3"},
       {"balanced ? 12 : 10",
        "T0837 0: balanced ? 12 : 10 is a number where a condition belongs: compare it, as in "
        "balanced ? 12 : 10 >= 3"}});
}

TEST(ExpressionCheck, ComparesLikeWithLike) {
  const std::string suits = ": suits are C, D, H, S, theirs and partners";
  const std::string calls = ": calls are c1C to c7NT, cP, cX, cXX, noCall and partner(1)";
  EXPECT_EQ(faults("H >= 3"), Strings{"T0837 0: H is a suit where a number belongs: write "
                                      "length(H) for the number of its cards"});
  EXPECT_EQ(faults("3 <= theirs"), Strings{"T0837 5: theirs is a suit where a number belongs: "
                                           "write length(theirs) for the number of its cards"});
  EXPECT_EQ(faults("longestSuit == hearts"),
            Strings{"T0837 15: hearts is a number where a suit belongs: write H"});
  EXPECT_EQ(faults("spades == theirs"),
            Strings{"T0837 0: spades is a number where a suit belongs: write S"});
  EXPECT_EQ(faults("theirs == diamonds || partners == clubs").size(), 2U);
  EXPECT_EQ(faults("partner(1) >= 2"), Strings{"T0837 0: partner(1) is a call where a number "
                                               "belongs: write level(partner(1))"});
  EXPECT_EQ(faults("H == partner(1)"), Strings{"T0837 5: partner(1) is a call where a suit belongs:"
                                               " write suitOf(partner(1))"});
  EXPECT_EQ(faults("hcp + S > 3"), Strings{"T0837 6: S is a suit where a number belongs: write "
                                           "length(S) for the number of its cards"});
  EXPECT_EQ(faults("-S > 3"), Strings{"T0837 1: S is a suit where a number belongs: write "
                                      "length(S) for the number of its cards"});
  EXPECT_EQ(faults("level(2) > 1"), Strings{"T0837 6: 2 is a number where a call belongs" + calls});
  EXPECT_EQ(faults("length(balanced) > 1"),
            Strings{"T0837 7: balanced is a condition where a suit belongs" + suits});
}

TEST(ExpressionCheck, WantsBothValuesOfAChoiceAlike) {
  EXPECT_EQ(faults("(balanced ? S : 3) == H"),
            Strings{"T0837 16: 3 is a number where a suit belongs: suits are C, D, H, S, theirs "
                    "and partners"});
  EXPECT_EQ(faults("(balanced ? 3 : vulnerable) > 1"), Strings{});
  EXPECT_EQ(faults("balanced ? foo : hcp").size(), 1U);
}

TEST(ExpressionCheck, SaysNothingThatFollowsFromAnotherFault) {
  EXPECT_EQ(faults("foo && !bar && -baz > length(bam)").size(), 4U);
  EXPECT_EQ(faults("foo > 3 && 3 > foo").size(), 2U);
  EXPECT_EQ(faults("foo(H, hcp)").size(), 1U);
  EXPECT_EQ(faults("foo(H, hcp").size(), 2U);
}

// --- arguments --------------------------------------------------------------------

TEST(ExpressionCheck, CountsArguments) {
  expectFaults({
      {"tops(S) > 2", "T0836 0: tops takes 2 arguments, not 1: write it as in tops(S, 3)"},
      {"length(S, H) > 2", "T0836 0: length takes 1 argument, not 2: write it as in length(S)"},
      {"shape(5,3,3)", "T0836 0: shape takes 4 arguments, not 3: write it as in shape(5, 3, 3, 2)"},
      {"max() > 2",
       "T0836 0: max takes at least 1 argument, not 0: write it as in max(spades, hearts)"},
      {"length > 3", "T0836 0: length has no arguments here: write it as in length(S)"},
      {"stopper", "T0836 0: stopper has no arguments here: write it as in stopper(theirs)"},
      {"balanced()", "T0836 8: balanced takes no arguments: write balanced alone"},
      {"support(H) > 3", "T0836 7: support takes no arguments: write support alone"},
      {"S(3) > 3", "T0836 1: S takes no arguments: write S alone"},
  });
}

TEST(ExpressionCheck, WantsASuitWhereASuitBelongs) {
  expectFaults(
      {{"length(5) > 3",
        "T0837 7: 5 is a number where a suit belongs: suits are C, D, H, S, theirs and partners"},
       {"length(spades) > 3",
        "T0837 7: spades is a number where a suit belongs: write length(S), or spades alone"},
       {"tops(hearts, 3) > 1", "T0837 5: hearts is a number where a suit belongs: write H"},
       {"stopper(partner(1))",
        "T0837 8: partner(1) is a call where a suit belongs: write suitOf(partner(1))"},
       {"length(NT) > 1",
        "T0838 7: NT is no suit that has cards: suits are C, D, H, S, theirs and partners"},
       {"tops(noSuit, 3) > 1",
        "T0838 5: noSuit is no suit that has cards: suits are C, D, H, S, theirs and partners"}});
}

TEST(ExpressionCheck, WantsNumbersThatMeanSomething) {
  const std::string tops =
      " is no number from 1 to 5, as many honours as there are: write 3 for ace, king and queen, 5 "
      "for all down to the ten";
  for (const std::string count : {"0", "6", "2.5", "-1", "aces", "(7)"}) {
    EXPECT_EQ(faults("tops(S, " + count + ") > 1"), Strings{"T0838 8: " + count + tops});
  }
  EXPECT_EQ(faults("tops(S, 1) + tops(S, (5)) > 1"), Strings{});
  for (const std::string player : {"own", "left", "right", "partner"}) {
    const std::string place = std::to_string(player.size() + 1);
    for (const std::string turn : {"0", "1.5", "-1"}) {
      EXPECT_EQ(faults(player + "(" + turn + ") == cP"),
                Strings{"T0838 " + place + ": a player has no call with the number " + turn +
                        ": write 1 for the first call, 2 for the second"});
    }
  }
  expectFaults(
      {{"shape(5,4,3,2)",
        "T0838 0: no hand is shape(5,4,3,2): its lengths add up to 13: write it as in "
        "shape(5, 3, 3, 2)"},
       {"exact(4,4,4,4)",
        "T0838 0: no hand is exact(4,4,4,4): its lengths add up to 13: write it as in "
        "exact(4, 4, 3, 2)"},
       {"shape(4.5,4.5,2,2)", "T0838 6: no suit has 4.5 cards: write whole numbers from 0 to 13"},
       {"exact(-1,5,5,4)", "T0838 6: no suit has -1 cards: write whole numbers from 0 to 13"}});
  EXPECT_EQ(faults("shape(longest, 4, 3, 3)"), Strings{});
}

// --- size -------------------------------------------------------------------------

TEST(ExpressionCheck, RefusesWhatIsNestedTooDeep) {
  const auto nested = [](int depth) {
    return std::string(static_cast<std::size_t>(depth), '(') + "balanced" +
           std::string(static_cast<std::size_t>(depth), ')');
  };
  EXPECT_EQ(faults(nested(99)), Strings{});
  EXPECT_EQ(faults(nested(100)),
            Strings{"T0839 100: this is nested deeper than 100 levels: write it in simpler terms"});
  EXPECT_EQ(faults(nested(4000)).size(), 1U);
  EXPECT_EQ(faults(std::string(9'000, '(')).size(), 1U);
  std::string choices, signs;
  for (int i = 0; i < 200; ++i) choices += "balanced ? vulnerable : ";
  for (int i = 0; i < 200; ++i) signs += "-(";
  EXPECT_EQ(faults(choices + "balanced").size(), 1U);
  EXPECT_EQ(faults(signs).size(), 1U);
}

TEST(ExpressionCheck, RefusesWhatIsTooLong) {
  std::string longest = "hcp > 1";
  longest += std::string(10'000 - longest.size(), ' ');
  EXPECT_EQ(faults(longest), Strings{});
  EXPECT_EQ(faults(longest + " "),
            Strings{"T0839 10000: the expression is longer than 10,000 bytes: write it in simpler "
                    "terms"});
  EXPECT_EQ(faults(std::string(1'000'000, '!')).size(), 1U);
}

TEST(ExpressionCheck, SaysOfTenUnknownNamesAtMost) {
  std::string sum = "x0";
  for (int i = 1; i < 500; ++i) sum += "+x" + std::to_string(i);
  EXPECT_EQ(faults(sum, Type::number).size(), 10U);
}

// --- what it is about -------------------------------------------------------------

Strings uses(const std::string& text) {
  Strings all;
  for (const NameUse& use : checkExpression(text, Type::truth).uses) {
    const std::string_view name = use.variable != nullptr ? use.variable->name : use.function->name;
    all.push_back(std::string(name) + ": " + text.substr(use.offset, use.size));
  }
  return all;
}

TEST(ExpressionCheck, NamesAllUsesInTheirOrder) {
  EXPECT_EQ(
      uses("(hcp) >= 12 && length( suitOf(partner(1)) ) > second && S == theirs"),
      (Strings{"hcp: hcp", "length: length( suitOf(partner(1)) )", "suitOf: suitOf(partner(1))",
               "partner: partner(1)", "second: second", "theirs: theirs"}));
}

TEST(ExpressionCheck, KnowsWhatAboutTheCardsMatters) {
  const auto basis = [](const std::string& text) {
    return checkExpression(text, Type::truth).basis;
  };
  EXPECT_EQ(basis("seat == 1"), noCards);
  EXPECT_EQ(basis("hcp > 3"), highCardPoints);
  EXPECT_EQ(basis("spades > 3 && hcp > 3"), highCardPoints | lengths);
  EXPECT_EQ(basis("stopper(S) || aces > 1"), lengths | topHonours | aceCount);
}

TEST(ExpressionCheck, KnowsWhetherTheTableMatters) {
  const auto needsTable = [](const std::string& text) {
    return checkExpression(text, Type::truth).needsTable;
  };
  for (const char* text : {"hcp > 3", "doubletons > 1", "c1C < c2C", "suitOf(c1C) == C",
                           "length(S) > 1", "max(1, 2) > 1"}) {
    EXPECT_FALSE(needsTable(text)) << text;
  }
  for (const char* text : {"support > 3", "theirs == S", "partners == S", "seat == 1", "vulnerable",
                           "theyVulnerable", "passedHand", "partner(1) == cP", "left(1) == cP",
                           "right(1) == cP", "own(1) == cP", "hcp > 3 && length(partners) > 1"}) {
    EXPECT_TRUE(needsTable(text)) << text;
  }
}

}  // namespace
}  // namespace tavrel::hands
