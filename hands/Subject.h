// A chart as it is proved: with the tables that it is for and the charts that it leads into.

#ifndef TAVREL_HANDS_SUBJECT_H
#define TAVREL_HANDS_SUBJECT_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hands/Dealer.h"
#include "hands/HandChart.h"
#include "hands/Promise.h"
#include "hands/Succession.h"

namespace tavrel::hands {

/// Conditions by the names of their charts.
using KnownCharts = std::map<std::string, const Conditions*>;

/// The chart that an end leads into.
struct LinkedChart {
  const Conditions* conditions = nullptr;
  /// How the auction goes on, by the auction of the subject and the call of the end, as
  /// Subject::following() finds it.
  std::vector<std::optional<Succession::Following>> followings;
};

/// Immutable; any number of threads may look at it.
class Subject {
 public:
  /// The chart and the others must outlive it.
  Subject(const HandChart& chart, const KnownCharts& others);

  const HandChart& chart() const { return chart_; }
  const std::vector<Table>& tables() const { return tables_; }

  /// A digest of the chart, its conditions, and those of the charts that it leads into.
  const std::string& digest() const { return digest_; }

  /// The box that stands for this one: the first of those that the author wrote as one.
  BoxIndex firstOf(BoxIndex box) const { return firsts_[box]; }

  const std::vector<Promise>& promisesOf(BoxIndex box) const { return promises_[box]; }

  /// The chart that a box leads into; nullptr where none does, or nothing is known of it, or it
  /// doesn't say which auctions it is for.
  const LinkedChart* linkOf(BoxIndex box) const;

  /// How the auction of a table goes on in it behind the n-th call of the end, or at once for an
  /// end without calls. REQUIRES: a link of the box.
  const std::optional<Succession::Following>& following(BoxIndex box, std::uint32_t table,
                                                        std::size_t call) const;

 private:
  void addLink(BoxIndex box, const Conditions& next);

  const HandChart& chart_;
  const std::vector<Table> tables_;
  std::string digest_;
  std::vector<BoxIndex> firsts_;
  std::vector<std::vector<Promise>> promises_;
  std::map<BoxIndex, LinkedChart> links_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_SUBJECT_H
