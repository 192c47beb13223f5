// The subcommand that proves charts by dealing.

#ifndef TAVREL_HOSTS_TAVREL_PROVE_H
#define TAVREL_HOSTS_TAVREL_PROVE_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

struct ProveArguments {
  std::vector<std::string> charts;  ///< names, or sources; none: all that say anything of hands
  std::uint64_t deals = 1'000'000;
  std::uint64_t seed = 1;
  unsigned threads = 0;  ///< 0: as many as the machine runs at once
  bool asJson = false;
  std::optional<std::string> range;  ///< "A..B": the deals from A up to, and without, B
  std::vector<std::string> slices;   ///< files of JSON to be merged; then nothing is dealt
  bool updates = false;              ///< the files of witnesses are written
};

/// Deals hands for the charts, of `folder` or compiled from sources, walks them, and says on
/// standard output what comes of it. Returns the exit status: 1 if anything was found, or there
/// was an error in a source. Throws Failure for wrong usage and for what can't be read or written.
int proveCharts(const ProveArguments& arguments, const std::string& folder);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_PROVE_H
