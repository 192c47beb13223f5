// Answers that differ in one thing alone aren't equal.

#include "tests/reference/Reply.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel::reference {
namespace {

using Lines = std::vector<std::string>;

class Replies : public testing::Test {
 protected:
  static Reply reply() {
    Reply all;
    all.numbers = {1, 2};
    all.texts = {"", std::nullopt};
    all.elements = {{true, true, 1, 2, 3, 4, 0, 1, 2, 3, {{"a"}}, {{"b"}}, "PGF"}};
    return all;
  }

  template <typename Change>
  static void expectNoticed(const Change& change) {
    Reply changed = reply();
    change(changed);
    EXPECT_FALSE(changed == reply());
    EXPECT_FALSE(reply() == changed);
  }

  /// The same for a change of the one element.
  template <typename Change>
  static void expectNoticedInElement(const Change& change) {
    expectNoticed([&](Reply& r) { change(r.elements[0]); });
  }
};

TEST_F(Replies, OfTheSameAreEqual) { EXPECT_TRUE(reply() == reply()); }

TEST_F(Replies, DifferInWhatIsThrown) {
  for (const Thrown thrown : {Thrown::outOfRange, Thrown::startText, Thrown::resetText,
                              Thrown::lengthError, Thrown::invalidArgument}) {
    expectNoticed([&](Reply& r) { r.thrown = thrown; });
  }
}

TEST_F(Replies, DifferInNumbers) {
  expectNoticed([](Reply& r) { ++r.numbers[1]; });
  expectNoticed([](Reply& r) { r.numbers[0] += std::int64_t{1} << 32; });
  expectNoticed([](Reply& r) { r.numbers.pop_back(); });
  expectNoticed([](Reply& r) { r.numbers.push_back(0); });
}

TEST_F(Replies, DifferInTexts) {
  expectNoticed([](Reply& r) { r.texts[0] = "a"; });
  expectNoticed([](Reply& r) { r.texts[0] = std::string(1, '\0'); });
  expectNoticed([](Reply& r) { r.texts[0] = std::nullopt; });
  expectNoticed([](Reply& r) { r.texts[1] = ""; });
  expectNoticed([](Reply& r) { r.texts.pop_back(); });
}

TEST_F(Replies, DifferInTheNumberOfElements) {
  expectNoticed([](Reply& r) { r.elements.clear(); });
  expectNoticed([](Reply& r) { r.elements.push_back(r.elements[0]); });
}

TEST_F(Replies, DifferInEveryFieldOfAnElement) {
  using Element = ElementProperties;
  expectNoticedInElement([](Element& e) { e.isNode = false; });
  expectNoticedInElement([](Element& e) { e.isOnPath = false; });
  expectNoticedInElement([](Element& e) { ++e.x; });
  expectNoticedInElement([](Element& e) { ++e.y; });
  expectNoticedInElement([](Element& e) { ++e.xOffset; });
  expectNoticedInElement([](Element& e) { ++e.yOffset; });
  expectNoticedInElement([](Element& e) { ++e.yesDirection; });
  expectNoticedInElement([](Element& e) { ++e.noDirection; });
  expectNoticedInElement([](Element& e) { ++e.intoDirection; });
  expectNoticedInElement([](Element& e) { ++e.outOfDirection; });
  expectNoticedInElement([](Element& e) { e.boxText->front() += '.'; });
  expectNoticedInElement([](Element& e) { e.commentaryText->clear(); });
  expectNoticedInElement([](Element& e) { e.nameOfNextFlowchart = "Slam"; });
}

TEST_F(Replies, DifferWhereAnElementHasNothingInThePlaceOfAnEmptyText) {
  const auto expectApart = [](auto field, auto value) {
    Reply empty = reply(), nothing = reply();
    empty.elements[0].*field = value;
    nothing.elements[0].*field = std::nullopt;
    EXPECT_FALSE(empty == nothing);
  };
  expectApart(&ElementProperties::boxText, Lines());
  expectApart(&ElementProperties::commentaryText, Lines());
  expectApart(&ElementProperties::nameOfNextFlowchart, std::string());
}

}  // namespace
}  // namespace tavrel::reference
