#include "hands/Evaluation.h"

#include <algorithm>
#include <functional>

#include "hands/HoldingValues.h"

namespace tavrel::hands {
namespace {

const Table nobodyHasCalled;

// The suit of a strain's number; nullptr for what is no suit.
const Suit* suitIn(double number) {
  if (!(number >= 1 && number <= static_cast<double>(suits.size()))) return nullptr;
  const auto place = static_cast<std::size_t>(number);
  return number == static_cast<double>(place) ? &suits[place - 1] : nullptr;
}

// With five comparisons and no branch, several times as fast as std::sort for so few.
void sortFalling(std::array<unsigned, 4>& values) {
  const auto order = [&values](std::size_t first, std::size_t second) {
    const auto [low, high] = std::minmax(values[first], values[second]);
    const unsigned larger = high, smaller = low;
    values[first] = larger;
    values[second] = smaller;
  };
  order(0, 1);
  order(2, 3);
  order(0, 2);
  order(1, 3);
  order(1, 2);
}

double suitOfBid(Call call) {
  const Strain strain = strainOf(call);
  return strain == Strain::notrump ? 0 : static_cast<double>(strain);
}

Call callIn(double number) {
  const bool isCall = number >= 0 && number <= static_cast<double>(Call::sevenNotrump);
  return isCall ? static_cast<Call>(number) : Call::none;
}

}  // namespace

Evaluation::Evaluation() {
  setTable(nobodyHasCalled);
  setHand({});
}

void Evaluation::setHand(Hand hand) {
  hand_ = hand;
  HoldingValues sum;
  for (const Suit suit : suits) {
    const HoldingValues& values = valuesOf(hand.holding(suit));
    lengths_[static_cast<std::size_t>(suit)] =
        static_cast<unsigned char>(values[HoldingValues::length]);
    sum = sum + values;
  }
  at(Variable::hcp) = sum[HoldingValues::hcp];
  at(Variable::points) = sum[HoldingValues::hcp] + sum[HoldingValues::lengthPoints];
  at(Variable::quick) = sum[HoldingValues::halfQuickTricks] / 2.0;
  at(Variable::losers) = sum[HoldingValues::losers];
  at(Variable::controls) = sum[HoldingValues::controls];
  at(Variable::aces) = sum[HoldingValues::aces];
  at(Variable::kings) = sum[HoldingValues::kings];
  setLengths();
  setSupport();
}

void Evaluation::setLengths() {
  at(Variable::clubs) = lengths_[0];
  at(Variable::diamonds) = lengths_[1];
  at(Variable::hearts) = lengths_[2];
  at(Variable::spades) = lengths_[3];
  // Four times the length and the rank: of two suits as long as one another, the higher is first.
  std::array<unsigned, 4> order = {lengths_[0] * 4U, lengths_[1] * 4U + 1, lengths_[2] * 4U + 2,
                                   lengths_[3] * 4U + 3};
  sortFalling(order);
  std::array<unsigned, 4> counts = {};  // of suits with no, one, two and more cards
  for (std::size_t i = 0; i < order.size(); ++i) {
    sorted_[i] = static_cast<unsigned char>(order[i] / 4);
    ++counts[std::min(order[i] / 4, 3U)];
  }
  at(Variable::longest) = sorted_[0];
  at(Variable::second) = sorted_[1];
  at(Variable::longestSuit) = order[0] % 4 + 1;
  at(Variable::secondSuit) = order[1] % 4 + 1;
  at(Variable::voids) = counts[0];
  at(Variable::singletons) = counts[1];
  at(Variable::doubletons) = counts[2];
  const bool hasNoShortSuit = counts[0] == 0 && counts[1] == 0;
  at(Variable::balanced) = hasNoShortSuit && counts[2] <= 1 && sorted_[0] <= 5;
  at(Variable::semibalanced) = hasNoShortSuit && sorted_[0] <= 6;
}

void Evaluation::setTable(const Table& table) {
  table_ = &table;
  const Auction& auction = table.auction;
  at(Variable::theirs) = suitOfBid(auction.lastBidOfThem());
  at(Variable::partners) = suitOfBid(auction.lastBidOf(Player::partner));
  at(Variable::seat) = auction.seat();
  at(Variable::vulnerable) = table.isVulnerable;
  at(Variable::theyVulnerable) = table.areTheyVulnerable;
  at(Variable::passedHand) = auction.callOf(Player::self, 1) == Call::pass;
  setSupport();
}

void Evaluation::setSupport() { at(Variable::support) = length((*this)[Variable::partners]); }

Holding Evaluation::holdingOf(double suit) const {
  const Suit* const held = suitIn(suit);
  return held == nullptr ? Holding{0} : hand_.holding(*held);
}

double Evaluation::length(double suit) const {
  const Suit* const held = suitIn(suit);
  return held == nullptr ? 0 : lengths_[static_cast<std::size_t>(*held)];
}

double Evaluation::shape(double a, double b, double c, double d) const {
  std::array<double, 4> wanted = {a, b, c, d};
  std::sort(wanted.begin(), wanted.end(), std::greater<>());
  return std::equal(wanted.begin(), wanted.end(), sorted_.begin()) ? 1 : 0;
}

double Evaluation::exact(double spades, double hearts, double diamonds, double clubs) const {
  const std::array<double, 4> wanted = {clubs, diamonds, hearts, spades};
  return std::equal(wanted.begin(), wanted.end(), lengths_.begin()) ? 1 : 0;
}

double Evaluation::stopper(double suit) const { return isStopper(holdingOf(suit)) ? 1 : 0; }

double Evaluation::tops(double suit, double count) const {
  constexpr double all = cardsInSuit;
  return count >= 1 ? topsOf(holdingOf(suit), static_cast<unsigned>(std::min(count, all))) : 0;
}

double Evaluation::callOf(Player player, double n) const {
  constexpr double most = Auction::longest;
  const bool isNumber = n >= 1 && n <= most;
  return static_cast<double>(isNumber ? table_->auction.callOf(player, static_cast<int>(n))
                                      : Call::none);
}

double suitOf(double call) { return static_cast<double>(strainOf(callIn(call))); }

double level(double call) { return levelOf(callIn(call)); }

}  // namespace tavrel::hands
