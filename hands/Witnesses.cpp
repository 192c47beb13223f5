#include "hands/Witnesses.h"

#include <array>
#include <optional>
#include <set>

#include "hands/AuctionText.h"
#include "hands/HandText.h"
#include "hands/Walker.h"

namespace tavrel::hands {
namespace {

constexpr std::size_t fieldCount = 5;
using Fields = std::array<std::string_view, fieldCount>;

// Why a line isn't a witness.
struct Unreadable {
  std::string why;
};

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The last field may have bars of its own.
Fields fieldsOf(std::string_view line) {
  Fields fields;
  for (std::size_t i = 0; i + 1 < fieldCount; ++i) {
    const std::size_t bar = line.find('|');
    if (bar == std::string_view::npos) throw Unreadable{"there are too few fields"};
    fields[i] = withoutBlanks(line.substr(0, bar));
    line.remove_prefix(bar + 1);
  }
  fields.back() = withoutBlanks(line);
  return fields;
}

template <typename Value>
Value valueOf(std::variant<Value, Misreading> read) {
  if (const auto* fault = std::get_if<Misreading>(&read)) throw Unreadable{fault->text};
  return std::get<Value>(std::move(read));
}

void setVulnerability(std::string_view word, Table& table) {
  for (const bool isVulnerable : {false, true}) {
    for (const bool areThey : {false, true}) {
      table.isVulnerable = isVulnerable;
      table.areTheyVulnerable = areThey;
      if (word == vulnerabilityOf(table)) return;
    }
  }
  throw Unreadable{"\"" + std::string(word) + "\" is none of none, we, they and both"};
}

Call callOf(std::string_view word) {
  if (word == nameOf(Call::none)) return Call::none;
  const std::optional<Call> call = callIn(word);
  if (!call) throw Unreadable{"\"" + std::string(word) + "\" is no call"};
  return *call;
}

Witness witnessIn(std::string_view line) {
  const Fields fields = fieldsOf(line);
  Witness witness;
  witness.hand = valueOf(readHand(fields[0]));
  witness.table.auction = valueOf(readAuction(fields[1]));
  setVulnerability(fields[2], witness.table);
  witness.call = callOf(fields[3]);
  witness.end = fields[4];
  return witness;
}

// Goes from box to box, both ways where judgement decides.
class Replay {
 public:
  Replay(const Witness& witness, const HandChart& chart)
      : witness_(witness), chart_(chart), walker_(chart) {
    walker_.evaluation().setTable(witness.table);
    walker_.evaluation().setHand(witness.hand);
  }

  bool isTrue() { return walker_.isForHand() && leadsThere(0); }

 private:
  bool leadsThere(BoxIndex box) {
    if (box == noBox || !seen_.insert(box).second) return false;
    if (chart_[box].isEnd()) {
      return chart_.nameOf(box) == witness_.end && walker_.callAt(box) == witness_.call;
    }
    const ByAnswer<BoxIndex>& exits = chart_[box].exits;
    if (const auto answer = walker_.answerAt(box)) return leadsThere(exits[*answer]);
    return leadsThere(exits.yes) || leadsThere(exits.no);
  }

  const Witness& witness_;
  const HandChart& chart_;
  Walker walker_;
  std::set<BoxIndex> seen_;
};

}  // namespace

std::string witnessFile(const Subject& subject, const Proof& proof) {
  const HandChart& chart = subject.chart();
  std::string text = "# Hands that come to the ends of " + chart.name() +
                     ", written by tavrel prove --update and replayed by the tests:\n"
                     "# HAND | AUCTION | VULNERABILITY (none, we, they or both) | CALL | END\n";
  Walker walker(chart);
  for (const EndOfHands& end : proof.ends) {
    if (!end.position) continue;
    const Table& table = subject.tables()[end.position->table];
    walker.evaluation().setTable(table);
    walker.evaluation().setHand(end.position->hand);
    const std::string auction = written(table.auction);
    text += written(end.position->hand) + " |" + (auction.empty() ? "" : " ") + auction + " | " +
            vulnerabilityOf(table) + " | " + nameOf(walker.callAt(end.box)) + " | " +
            chart.nameOf(end.box) + "\n";
  }
  return text;
}

std::variant<std::vector<Witness>, std::string> readWitnesses(std::string_view bytes) {
  std::vector<Witness> all;
  for (std::size_t number = 1; !bytes.empty(); ++number) {
    const std::size_t end = bytes.find('\n');
    const std::string_view line = withoutBlanks(bytes.substr(0, end));
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (line.empty() || line[0] == '#') continue;
    try {
      all.push_back(witnessIn(line));
    } catch (const Unreadable& unreadable) {
      return "line " + std::to_string(number) + ": " + unreadable.why;
    }
  }
  return all;
}

bool isTrue(const Witness& witness, const HandChart& chart) {
  return Replay(witness, chart).isTrue();
}

}  // namespace tavrel::hands
