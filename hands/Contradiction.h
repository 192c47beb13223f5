// Which of many conditions contradict one another.

#ifndef TAVREL_HANDS_CONTRADICTION_H
#define TAVREL_HANDS_CONTRADICTION_H

#include <cstddef>
#include <vector>

#include "hands/Feasibility.h"

namespace tavrel::hands {

struct Contradiction {
  std::vector<std::size_t> conditions;  ///< their numbers, rising
  bool isSmallest = true;  ///< false: none of them can be left out, but another set may be smaller
};

/// The smallest set of conditions that no hand fulfils together, or one of several as small.
/// REQUIRES: feasibility.find(all) has given Verdict::none.
///
/// Each hand that is found fulfils some of the conditions, and a set in contradiction has one that
/// it doesn't: the smallest set that has one for every known hand is tried next, until no hand is
/// found for one.
Contradiction smallestContradiction(Feasibility& feasibility, const std::vector<Wanted>& all);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_CONTRADICTION_H
