// What a proof says, for people and for programs.

#ifndef TAVREL_HOSTS_TAVREL_PROOFREPORT_H
#define TAVREL_HOSTS_TAVREL_PROOFREPORT_H

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "hands/Proof.h"
#include "hands/Prover.h"
#include "hands/Subject.h"
#include "hands/Tally.h"
#include "text/Text.h"

namespace tavrel {

/// One chart of a report.
struct ChartReport {
  const hands::Subject* subject;
  hands::Tally tally;
  hands::Proof proof;
};

struct ProofReport {
  std::uint64_t seed = 1;
  hands::DealRange range;
  std::vector<ChartReport> charts;

  std::size_t findingCount() const;
};

/// A table of each chart's ends, then what was found, and a summary.
std::string textOf(const ProofReport& report, Charset charset);

/// All of it, with the tallies, as JSON. The same deals give the same bytes, however they were
/// shared out.
std::string jsonOf(const ProofReport& report);

/// A file of such JSON.
struct ProofSlice {
  std::string name;  ///< of the file
  std::uint64_t seed = 1;
  hands::DealRange range;           ///< of at least one deal
  std::vector<std::string> charts;  ///< their names
  nlohmann::ordered_json file;
};

/// Throws Failure for what is no report of this version.
ProofSlice readSlice(const std::string& name, std::string_view bytes);

/// What the slice has counted of a chart. Throws Failure where it is of another file of the chart.
hands::Tally tallyIn(const ProofSlice& slice, const hands::Subject& subject);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_PROOFREPORT_H
