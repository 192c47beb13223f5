// Hands as people write them: the files of valid/ with the cards that they are, and those of
// invalid/ with what is said of them.

#include "hands/HandText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>

#include "hands/Deal.h"
#include "tests/support/Files.h"
#include "tests/support/GoldenFiles.h"

namespace tavrel::hands {
namespace {

const std::filesystem::path folder = TAVREL_HANDS;

Hand handIn(const std::string& text) {
  const auto read = readHand(text);
  if (const auto* fault = std::get_if<Misreading>(&read)) ADD_FAILURE() << text << shown(*fault);
  return std::holds_alternative<Hand>(read) ? std::get<Hand>(read) : Hand();
}

std::string faultOf(const std::string& text) {
  const auto read = readHand(text);
  const auto* fault = std::get_if<Misreading>(&read);
  return fault ? shown(*fault) : "none";
}

// {"spades": "AQ85", …}
std::string asJson(Hand hand) {
  nlohmann::ordered_json suitsOfHand;
  for (const Suit suit : suitsAsWritten) suitsOfHand[nameOf(suit)] = ranksOf(hand.holding(suit));
  return suitsOfHand.dump() + "\n";
}

void expectFile(const std::filesystem::path& file, const std::string& got) {
  if (isUpdatingGoldenFiles()) return writeFile(file, got);
  EXPECT_EQ(readFile(file), got) << file;
}

class ValidHand : public testing::TestWithParam<std::string> {};

TEST_P(ValidHand, IsTheHandOfItsFile) {
  const Hand hand = handIn(readFile(folder / "valid" / (GetParam() + ".hand")));
  EXPECT_EQ(hand.size(), cardsInHand);
  expectFile(folder / "valid" / (GetParam() + ".json"), asJson(hand));
}

INSTANTIATE_TEST_SUITE_P(All, ValidHand,
                         testing::ValuesIn(goldenFilesIn(folder / "valid", ".hand")),
                         goldenTestName);

class InvalidHand : public testing::TestWithParam<std::string> {};

TEST_P(InvalidHand, IsRefusedWithTheMessageOfItsFile) {
  const std::string fault = faultOf(readFile(folder / "invalid" / (GetParam() + ".hand")));
  expectFile(folder / "invalid" / (GetParam() + ".message"), fault + "\n");
}

INSTANTIATE_TEST_SUITE_P(All, InvalidHand,
                         testing::ValuesIn(goldenFilesIn(folder / "invalid", ".hand")),
                         goldenTestName);

TEST(HandTexts, AreThoseOfTheLists) {
  for (const char* kind : {"valid", "invalid"}) {
    EXPECT_EQ(goldenFilesIn(folder / kind, ".hand"), goldenFilesListed(folder / kind));
  }
}

TEST(HandText, IsReadAgainAsItWasWritten) {
  Random random(1);
  for (int i = 0; i < 10'000; ++i) {
    const Hand hand = dealHand(random);
    EXPECT_EQ(handIn(written(hand)), hand);
  }
}

std::string withNames(Hand hand) {
  std::string text;
  for (const Suit suit : suits) text += letterOf(suit) + ranksOf(hand.holding(suit));
  return text;
}

TEST(HandText, IsReadWithTheNamesOfItsSuits) {
  Random random(2);
  for (int i = 0; i < 10'000; ++i) {
    const Hand hand = dealHand(random);
    EXPECT_EQ(handIn(withNames(hand)), hand);
  }
}

// Texts of the characters that hands are made of, and of others.
TEST(HandText, IsAHandOrAFaultWhateverItIs) {
  const std::string characters = "AKQJT98765432akqjtx10SHDCshdc.,- :\t/\xE2\x99\xA0\xA5\xFF\x00Z";
  Random random(3);
  for (int i = 0; i < 200'000; ++i) {
    std::string text;
    for (std::uint32_t left = random.below(40); left > 0; --left) {
      text += characters[random.below(static_cast<std::uint32_t>(characters.size()))];
    }
    const auto read = readHand(text);
    if (const auto* hand = std::get_if<Hand>(&read)) {
      EXPECT_EQ(hand->size(), cardsInHand) << text;
    } else {
      EXPECT_LE(std::get<Misreading>(read).offset, text.size()) << text;
    }
  }
}

// A hand with one letter changed is another hand or a fault; it is never read with cards lost.
TEST(HandText, HasThirteenCardsAfterAnySlip) {
  Random random(4);
  const std::string characters = "AKQJT98765432.- ";
  for (int i = 0; i < 50'000; ++i) {
    std::string text = written(dealHand(random));
    text[random.below(static_cast<std::uint32_t>(text.size()))] =
        characters[random.below(static_cast<std::uint32_t>(characters.size()))];
    const auto read = readHand(text);
    if (const auto* hand = std::get_if<Hand>(&read)) {
      EXPECT_EQ(hand->size(), cardsInHand) << text;
    }
  }
}

TEST(HandText, IsShownAsPlayersReadIt) {
  EXPECT_EQ(shown(std::get<Hand>(readHand("AQT85.KJ7.KQ4.J6"))), "♠AQT85 ♥KJ7 ♦KQ4 ♣J6");
  EXPECT_EQ(shown(std::get<Hand>(readHand("AQJ8652..KQJ982."))), "♠AQJ8652 ♥— ♦KQJ982 ♣—");
}

}  // namespace
}  // namespace tavrel::hands
