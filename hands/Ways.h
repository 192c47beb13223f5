// The ways through a chart to one of its boxes.

#ifndef TAVREL_HANDS_WAYS_H
#define TAVREL_HANDS_WAYS_H

#include <cstddef>
#include <vector>

#include "hands/Subject.h"
#include "hands/Walker.h"

namespace tavrel::hands {

/// The questions from the root on, each with its answer; none of them comes twice.
using Way = std::vector<Step>;

struct Ways {
  std::vector<Way> ways;
  bool areAll = true;  ///< false: there are too many to be listed
};

/// How many ways to one box are listed at most.
inline constexpr std::size_t mostWays = 100;

/// The ways to all cells where a box stands.
Ways waysTo(const Subject& subject, BoxIndex box);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_WAYS_H
