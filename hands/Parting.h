// Where somebody's call leaves the way that the hand goes.

#ifndef TAVREL_HANDS_PARTING_H
#define TAVREL_HANDS_PARTING_H

#include <cstddef>
#include <optional>

#include "hands/Walker.h"

namespace tavrel::hands {

struct Parting {
  std::size_t step;  ///< the question's place in the walker's steps; behind the last of them, the
                     ///< end itself, which chooses between calls
  BoxIndex end;      ///< the end that makes the call, or may make it with another hand
};

/// Of all ends that make the call, the one whose way shares the longest beginning with the
/// hand's; where ways branch later on, the nearest end. std::nullopt if no end that can be come to
/// from the hand's way makes the call. REQUIRES: the walker has walked to an end.
/// Cost: one pass over the chart.
std::optional<Parting> partingOf(const Walker& walker, Call call);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_PARTING_H
