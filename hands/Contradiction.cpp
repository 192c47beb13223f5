#include "hands/Contradiction.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace tavrel::hands {
namespace {

using Numbers = std::vector<std::size_t>;

// The conditions that each known hand doesn't fulfil.
class Failures {
 public:
  void add(const std::vector<bool>& fulfilled) {
    Numbers& failed = all_.emplace_back();
    for (std::size_t i = 0; i < fulfilled.size(); ++i) {
      if (!fulfilled[i]) failed.push_back(i);
    }
  }

  // The smallest set that has a condition of each; std::nullopt where looking on takes too long.
  std::optional<Numbers> smallestSet(std::size_t most) {
    tries_ = 0;
    for (std::size_t size = 1; size <= most && tries_ <= mostTries; ++size) {
      Numbers chosen;
      tries_ = 0;
      if (complete(chosen, size)) {
        std::sort(chosen.begin(), chosen.end());
        return chosen;
      }
    }
    return std::nullopt;
  }

 private:
  static constexpr std::size_t mostTries = 200'000;

  bool complete(Numbers& chosen, std::size_t left) {
    const Numbers* const missed = firstMissed(chosen);
    if (missed == nullptr) return true;
    if (left == 0 || ++tries_ > mostTries) return false;
    for (const std::size_t each : *missed) {
      chosen.push_back(each);
      if (complete(chosen, left - 1)) return true;
      chosen.pop_back();
    }
    return false;
  }

  const Numbers* firstMissed(const Numbers& chosen) const {
    const auto found = std::find_if(all_.begin(), all_.end(), [&chosen](const Numbers& failed) {
      return std::find_first_of(failed.begin(), failed.end(), chosen.begin(), chosen.end()) ==
             failed.end();
    });
    return found == all_.end() ? nullptr : &*found;
  }

  std::vector<Numbers> all_;
  std::size_t tries_ = 0;
};

std::vector<Wanted> chosenOf(const std::vector<Wanted>& all, const Numbers& numbers) {
  std::vector<Wanted> chosen;
  for (const std::size_t number : numbers) chosen.push_back(all[number]);
  return chosen;
}

// Leaves out what can be left out, one condition after the other.
Contradiction withoutNeedless(Feasibility& feasibility, const std::vector<Wanted>& all) {
  Numbers kept;
  for (std::size_t i = 0; i < all.size(); ++i) kept.push_back(i);
  for (std::size_t i = 0; i < all.size(); ++i) {
    Numbers fewer;
    std::copy_if(kept.begin(), kept.end(), std::back_inserter(fewer),
                 [i](std::size_t number) { return number != i; });
    if (feasibility.find(chosenOf(all, fewer)).verdict == Verdict::none) kept = fewer;
  }
  return {kept, false};
}

}  // namespace

Contradiction smallestContradiction(Feasibility& feasibility, const std::vector<Wanted>& all) {
  Failures failures;
  while (const auto set = failures.smallestSet(all.size())) {
    const Search search = feasibility.find(chosenOf(all, *set));
    if (search.verdict == Verdict::none) return {*set, true};
    if (search.verdict == Verdict::unsettled) break;
    failures.add(feasibility.fulfilled(all, search.position));
  }
  return withoutNeedless(feasibility, all);
}

}  // namespace tavrel::hands
