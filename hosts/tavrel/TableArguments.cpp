#include "hosts/tavrel/TableArguments.h"

#include <utility>
#include <variant>

#include "authoring/InShort.h"
#include "hands/AuctionText.h"
#include "hands/HandText.h"
#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

using namespace hands;

// What was read. Throws Failure, which calls the text `what`, for a fault.
template <typename Value>
Value require(std::variant<Value, Misreading> read, const std::string& what) {
  if (const auto* fault = std::get_if<Misreading>(&read)) {
    throw Failure("cannot read " + what + ": " + shown(*fault));
  }
  return std::get<Value>(std::move(read));
}

std::string quoted(const std::string& text) { return "'" + authoring::inShort(text) + "'"; }

Hand handIn(const std::string& text, const std::string& what) {
  return require(readHand(text), what + " " + quoted(text));
}

Seat seatNamed(const std::string& option, const std::string& text) {
  if (const auto seat = seatIn(text)) return *seat;
  throw Failure(option + " takes N, E, S or W, not " + quoted(text));
}

Vulnerability vulnerabilityNamed(const std::string& text) {
  if (const auto vulnerability = vulnerabilityIn(text)) return *vulnerability;
  throw Failure("--vul takes NS, EW, both or none, not " + quoted(text));
}

void addPartner(HandAtTable& at, const std::string& text) {
  std::optional<Hand>& partner = handOf(at.situation.hands, partnerOf(at.seat));
  if (partner) throw Failure("--partner is for a single hand; a deal has partner's already");
  partner = handIn(text, "partner's hand");
  if (const auto fault = completeDeal(at.situation.hands)) throw Failure(shown(*fault));
}

}  // namespace

Situation tableOf(const TableArguments& arguments) {
  Situation table;
  if (arguments.auction) {
    table.auction =
        require(readAuction(*arguments.auction), "the auction " + quoted(*arguments.auction));
  }
  if (arguments.dealer) table.dealer = seatNamed("--dealer", *arguments.dealer);
  if (arguments.vulnerable) table.vulnerability = vulnerabilityNamed(*arguments.vulnerable);
  return table;
}

Seat seatMeant(const Situation& table, const TableArguments& arguments) {
  if (arguments.seat) return seatNamed("--seat", *arguments.seat);
  if (table.auction.isOver()) {
    throw Failure("the auction is over, and nobody calls next; --seat says whose the hand is");
  }
  return table.seatAt(table.auction.size());
}

HandAtTable seated(const std::string& hand, Situation table, const TableArguments& arguments) {
  const Seat seat = seatMeant(table, arguments);
  HandAtTable at = {std::move(table), seat};
  if (isDealText(hand)) {
    at.situation.hands = require(readDeal(hand), "the deal");
  } else {
    handOf(at.situation.hands, at.seat) = handIn(hand, "the hand");
  }
  if (!handOf(at.situation.hands, at.seat)) {
    throw Failure(std::string("the deal has no hand of ") + nameOf(at.seat) + "'s, who calls next");
  }
  if (arguments.partner) addPartner(at, *arguments.partner);
  return at;
}

}  // namespace tavrel
