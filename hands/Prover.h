// Deals hands for a chart and counts where they come to.

#ifndef TAVREL_HANDS_PROVER_H
#define TAVREL_HANDS_PROVER_H

#include <cstdint>
#include <functional>

#include "hands/Feasibility.h"
#include "hands/Subject.h"
#include "hands/Tally.h"

namespace tavrel::hands {

/// Which deals of a seed: from `first` up to, and without, `end`.
struct DealRange {
  std::uint64_t first = 0, end = 0;
};

struct Proving {
  std::uint64_t seed = 1;
  DealRange range;
  unsigned threads = 1;
};

/// Walks the deals through a chart; questions of judgement are answered by the deal's random
/// numbers. The tally hangs on seed and range alone. Where there is no hand that the chart assumes,
/// nothing is dealt. `tell` hears now and then, from one thread at a time, how many more deals are
/// done; what it throws ends the work and comes out here. So does std::system_error where a thread
/// can't be started.
Tally tallyOf(const Subject& subject, Feasibility& feasibility, const Proving& proving,
              const std::function<void(std::uint64_t)>& tell);

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_PROVER_H
