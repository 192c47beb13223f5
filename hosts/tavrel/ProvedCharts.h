// The charts that are to be proved, and those that they lead into.

#ifndef TAVREL_HOSTS_TAVREL_PROVEDCHARTS_H
#define TAVREL_HOSTS_TAVREL_PROVEDCHARTS_H

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "hands/HandChart.h"
#include "hands/Subject.h"
#include "hosts/tavrel/HandCharts.h"
#include "hosts/tavrel/SourceCharts.h"

namespace tavrel {

struct ProvedChart {
  const hands::HandChart* chart;
  hands::KnownCharts others;        ///< those that its boxes lead into
  std::filesystem::path witnesses;  ///< where its file NAME.hands belongs
};

class ProvedCharts {
 public:
  /// `names` are charts of the folder, or sources; without any, all charts of the folder that have
  /// conditions. What was found in a source goes to standard error. Throws Failure where a chart
  /// can't be proved, or there is none.
  ProvedCharts(const std::vector<std::string>& names, const std::filesystem::path& folder);

  const std::vector<ProvedChart>& charts() const { return charts_; }

  /// Whether an error in a source keeps it from being proved.
  bool hasErrors() const { return hasErrors_; }

 private:
  HandCharts& inFolder();
  HandCharts& opened(std::unique_ptr<Library> library);
  void addSource(const std::string& path);
  void add(HandCharts& charts, const CatalogueEntry& entry, const std::filesystem::path& folder);

  const std::filesystem::path folder_;
  std::vector<std::unique_ptr<SourceCharts>> sources_;
  std::vector<std::unique_ptr<Library>> libraries_;
  std::vector<std::unique_ptr<HandCharts>> handCharts_;
  HandCharts* inFolder_ = nullptr;
  std::vector<ProvedChart> charts_;
  bool hasErrors_ = false;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_PROVEDCHARTS_H
