// The inputs of the contests: generated and real charts, as files that both the engine
// and the readers of JSON can open.

#ifndef TAVREL_BENCH_CHARTS_H
#define TAVREL_BENCH_CHARTS_H

#include <cstddef>
#include <string>
#include <vector>

#include "engine/CTavrel.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::bench {

/// A directory with some charts, each under the name of a flowchart of the catalogue,
/// those with the lowest indices, as .fv and as .json. Removed at the end.
class Charts {
 public:
  Charts(std::string name, const std::vector<std::string>& files);

  const std::string& name() const { return name_; }
  std::size_t count() const { return fvFiles_.size(); }

  /// What an engine is created with.
  std::string directory() const { return directory_.prefix(); }

  /// The paths of the files, in the order of the catalogue.
  const std::vector<std::string>& fvFiles() const { return fvFiles_; }
  const std::vector<std::string>& jsonFiles() const { return jsonFiles_; }

 private:
  std::string name_;
  TemporaryDirectory directory_;
  std::vector<std::string> fvFiles_;
  std::vector<std::string> jsonFiles_;
};

/// "small": one chart of 60 boxes and 300 connector cells.
Charts smallChart();
/// "45 small": as many charts of that size as the catalogue has.
Charts smallCharts();
/// "big": one chart of 10,000 boxes and 40,000 connector cells.
Charts bigChart();
/// "real": three charts that people walk.
Charts realCharts();

/// The elements of the first of the charts, in stored order.
std::vector<sScreenElement> elementsOf(const Charts& charts);

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_CHARTS_H
