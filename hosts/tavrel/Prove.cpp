#include "hosts/tavrel/Prove.h"

#include <algorithm>
#include <charconv>
#include <deque>
#include <iostream>
#include <string_view>
#include <thread>
#include <utility>

#include "hands/Proof.h"
#include "hands/Prover.h"
#include "hands/Witnesses.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/OutputFile.h"
#include "hosts/tavrel/ProgressBar.h"
#include "hosts/tavrel/ProofReport.h"
#include "hosts/tavrel/ProvedCharts.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

using hands::DealRange;

std::optional<std::uint64_t> numberIn(std::string_view text) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

DealRange rangeIn(const std::string& text) {
  const std::size_t dots = text.find("..");
  if (dots != std::string::npos) {
    const auto first = numberIn(std::string_view(text).substr(0, dots));
    const auto end = numberIn(std::string_view(text).substr(dots + 2));
    if (first && end && *first < *end) return {*first, *end};
  }
  throw Failure("'" + text +
                "' is no range of deals; 0..500000 stands for the first half of a million, "
                "500000..1000000 for the second");
}

void checkUsage(const ProveArguments& arguments) {
  if (arguments.updates && arguments.range) {
    throw Failure(
        "--update needs all deals, as the first hand of each end is kept; leave out "
        "--range");
  }
}

unsigned threadsFor(const ProveArguments& arguments) {
  if (arguments.threads > 0) return arguments.threads;
  return std::max(std::thread::hardware_concurrency(), 1U);
}

// --- slices -------------------------------------------------------------------------

std::vector<ProofSlice> readSlices(const std::vector<std::string>& files) {
  std::vector<ProofSlice> slices;
  for (const std::string& file : files) slices.push_back(readSlice(file, readInput(file).bytes()));
  std::sort(slices.begin(), slices.end(),
            [](const ProofSlice& a, const ProofSlice& b) { return a.range.first < b.range.first; });
  return slices;
}

std::string dealsOf(const ProofSlice& slice) {
  return "'" + slice.name + "' has the deals " + std::to_string(slice.range.first) + ".." +
         std::to_string(slice.range.end);
}

// They have to be of one seed and of the same charts, with no deal missing and none twice.
void checkTogether(const std::vector<ProofSlice>& slices) {
  for (std::size_t i = 1; i < slices.size(); ++i) {
    const ProofSlice &before = slices[i - 1], &slice = slices[i];
    const std::string both = dealsOf(before) + ", and " + dealsOf(slice);
    if (slice.seed != before.seed) {
      throw Failure("'" + before.name + "' and '" + slice.name + "' are of different seeds");
    }
    if (slice.charts != before.charts) {
      throw Failure("'" + before.name + "' and '" + slice.name + "' are of different charts");
    }
    if (slice.range.first < before.range.end) throw Failure(both + ": some are in both");
    if (slice.range.first > before.range.end) throw Failure(both + ": those between are missing");
  }
}

// --- the work -----------------------------------------------------------------------

class Proofs {
 public:
  Proofs(const ProveArguments& arguments, const std::string& folder)
      : arguments_(arguments),
        slices_(readSlices(arguments.slices)),
        charts_(arguments.charts.empty() && !slices_.empty() ? slices_[0].charts : arguments.charts,
                folder) {
    checkTogether(slices_);
    report_.seed = slices_.empty() ? arguments.seed : slices_[0].seed;
    report_.range = range();
  }

  bool hasErrors() const { return charts_.hasErrors(); }

  const ProofReport& make() {
    for (const ProvedChart& proved : charts_.charts()) {
      const hands::Subject& subject = subjects_.emplace_back(*proved.chart, proved.others);
      report_.charts.push_back(prove(subject));
    }
    return report_;
  }

  void updateWitnesses() const {
    for (std::size_t i = 0; i < report_.charts.size(); ++i) {
      const ChartReport& chart = report_.charts[i];
      writeOutput(charts_.charts()[i].witnesses, witnessFile(*chart.subject, chart.proof));
    }
  }

 private:
  DealRange range() const {
    if (!slices_.empty()) return {slices_.front().range.first, slices_.back().range.end};
    return arguments_.range ? rangeIn(*arguments_.range) : DealRange{0, arguments_.deals};
  }

  ChartReport prove(const hands::Subject& subject) {
    hands::Feasibility feasibility(subject.tables());
    ChartReport report = {&subject, tallyOf(subject, feasibility), {}};
    report.proof = proofOf(subject, report.tally, feasibility);
    return report;
  }

  hands::Tally tallyOf(const hands::Subject& subject, hands::Feasibility& feasibility) const {
    if (slices_.empty()) return dealt(subject, feasibility);
    hands::Tally sum(subject.chart());
    for (const ProofSlice& slice : slices_) sum += tallyIn(slice, subject);
    return sum;
  }

  hands::Tally dealt(const hands::Subject& subject, hands::Feasibility& feasibility) const {
    hands::Proving proving;
    proving.seed = report_.seed;
    proving.range = report_.range;
    proving.threads = threadsFor(arguments_);
    ProgressBar bar(subject.chart().name(), proving.range.end - proving.range.first);
    return hands::tallyOf(subject, feasibility, proving,
                          [&bar](std::uint64_t more) { bar.advance(more); });
  }

  const ProveArguments& arguments_;
  const std::vector<ProofSlice> slices_;
  const ProvedCharts charts_;
  std::deque<hands::Subject> subjects_;
  ProofReport report_;
};

}  // namespace

int proveCharts(const ProveArguments& arguments, const std::string& folder) {
  checkUsage(arguments);
  Proofs proofs(arguments, folder);
  if (proofs.hasErrors()) return 1;
  const ProofReport& report = proofs.make();
  std::cout << (arguments.asJson ? jsonOf(report) : textOf(report, localeCharset()));
  if (arguments.updates) proofs.updateWitnesses();
  return report.findingCount() > 0 ? 1 : 0;
}

}  // namespace tavrel
