// The charts that hands can walk: NAME.fv, and NAME.when beside it.

#ifndef TAVREL_HOSTS_TAVREL_HANDCHARTS_H
#define TAVREL_HOSTS_TAVREL_HANDCHARTS_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "hands/HandChart.h"
#include "hosts/tavrel/Library.h"

namespace tavrel {

/// Reads each chart when it is first asked for, and keeps it. For one thread at a time; the charts
/// that come out are for any number of them, as long as this lives.
class HandCharts {
 public:
  /// Of the charts of `library`, which must outlive this.
  explicit HandCharts(const Library& library) : library_(library) {}

  const Library& library() const noexcept { return library_; }

  /// Whether the chart has a file of conditions.
  bool has(const CatalogueEntry& entry) const;

  /// Throws Failure, with what to do, where the chart has no conditions, they belong to another
  /// file of the chart, or one of both files can't be read.
  const hands::HandChart& chart(const CatalogueEntry& entry);

  /// The charts that have conditions, in the catalogue's order. Throws Failure as chart() does.
  std::vector<const hands::HandChart*> all();

  const CatalogueEntry& entryOf(const hands::HandChart& chart) const {
    return library_.find(chart.name());
  }

 private:
  std::filesystem::path conditionsOf(const CatalogueEntry& entry) const;
  hands::Conditions readConditions(const CatalogueEntry& entry) const;
  hands::HandChart read(const CatalogueEntry& entry) const;

  const Library& library_;
  std::map<std::string, hands::HandChart> charts_;  // by name
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_HANDCHARTS_H
