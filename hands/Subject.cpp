#include "hands/Subject.h"

#include <algorithm>

namespace tavrel::hands {
namespace {

std::size_t callCountOf(const HandBox& box) {
  return box.conditions == nullptr ? 0 : box.conditions->calls.size();
}

}  // namespace

Subject::Subject(const HandChart& chart, const KnownCharts& others)
    : chart_(chart), tables_(tablesOf(chart.conditions())) {
  std::string all = conditionsFile(chart.conditions());
  for (const auto& [name, conditions] : others) all += conditionsFile(*conditions);
  digest_ = digestOf(all);
  std::map<const BoxConditions*, BoxIndex> firsts;
  for (BoxIndex box = 0; box < chart.boxes().size(); ++box) {
    const HandBox& at = chart[box];
    const bool isKnown = at.conditions != nullptr;
    firsts_.push_back(isKnown ? firsts.emplace(at.conditions, box).first->second : box);
    promises_.push_back(isKnown ? promisesIn(at.text) : std::vector<Promise>());
    const auto next = others.find(at.link);
    if (next == others.end() || next->second->auctions.empty()) continue;
    if (firsts_[box] == box) addLink(box, *next->second);
  }
}

void Subject::addLink(BoxIndex box, const Conditions& next) {
  LinkedChart& link = links_[box];
  link.conditions = &next;
  const Succession succession(next);
  const BoxConditions* const conditions = chart_[box].conditions;
  const auto turn = conditions == nullptr ? std::nullopt : conditions->next;
  for (std::size_t table = 0; table < tables_.size(); table += vulnerabilityCount) {
    const Auction& auction = tables_[table].auction;
    if (callCountOf(chart_[box]) == 0) {
      link.followings.push_back(succession.after(auction, Call::none, turn));
      continue;
    }
    for (const CallChoice& choice : conditions->calls) {
      link.followings.push_back(succession.after(auction, choice.call, turn));
    }
  }
}

const LinkedChart* Subject::linkOf(BoxIndex box) const {
  const auto found = links_.find(box);
  return found == links_.end() ? nullptr : &found->second;
}

const std::optional<Succession::Following>& Subject::following(BoxIndex box, std::uint32_t table,
                                                               std::size_t call) const {
  const std::size_t calls = std::max<std::size_t>(callCountOf(chart_[box]), 1);
  return linkOf(box)->followings[table / vulnerabilityCount * calls + call];
}

}  // namespace tavrel::hands
