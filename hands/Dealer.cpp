#include "hands/Dealer.h"

namespace tavrel::hands {
std::vector<Table> tablesOf(const Conditions& conditions) {
  std::vector<Auction> auctions = conditions.auctions;
  if (auctions.empty()) auctions.emplace_back();
  std::vector<Table> tables;
  for (const Auction& auction : auctions) {
    for (const bool areThey : {false, true}) {
      tables.push_back({auction, false, areThey});
      tables.push_back({auction, true, areThey});
    }
  }
  return tables;
}

const char* vulnerabilityOf(const Table& table) {
  if (table.isVulnerable) return table.areTheyVulnerable ? "both" : "we";
  return table.areTheyVulnerable ? "they" : "none";
}

Dealer::Dealer(Walker& walker, const std::vector<Table>& tables, std::optional<Position> known)
    : walker_(walker), tables_(tables), known_(known) {
  walker_.evaluation().setTable(tables_[table_]);
}

void Dealer::sit(Position position) {
  if (position.table != table_) walker_.evaluation().setTable(tables_[position.table]);
  table_ = position.table;
  walker_.evaluation().setHand(position.hand);
}

std::optional<Position> Dealer::deal(Random& random) {
  const auto count = static_cast<std::uint32_t>(tables_.size());
  for (int draw = 0; draw < mostDraws; ++draw) {
    const std::uint32_t table = random.below(count);
    const Position position = {dealHand(random), table};
    sit(position);
    if (walker_.isForHand()) return position;
  }
  return changed(random);
}

// Steps that may be taken back as likely as they are made lead to all hands alike.
std::optional<Position> Dealer::changed(Random& random) {
  constexpr int steps = 300;
  if (!known_) return std::nullopt;
  Position position = *known_;
  for (int step = 0; step < steps; ++step) {
    const Position other = {withAnotherCard(position.hand, random), position.table};
    sit(other);
    if (walker_.isForHand()) position = other;
  }
  sit(position);
  return position;
}

}  // namespace tavrel::hands
