// Flowcharts of any size to measure with.

#ifndef TAVREL_BENCH_GENERATEDCHART_H
#define TAVREL_BENCH_GENERATEDCHART_H

#include <cstddef>
#include <string>

namespace tavrel {

/// The file of a flowchart of `boxes` boxes in `columns` columns, each joined to the
/// next one by `connectors` connector cells; every answer is yes. The line runs
/// right along a row, down at its end, and back left along the next. Each box has two
/// lines of text, three of commentary and a node of its own. The same arguments give
/// the same bytes.
///
/// REQUIRES: connectors >= 1, columns >= 2.
std::string generatedChart(std::size_t boxes, std::size_t columns, std::size_t connectors);

/// A directory of its own with the chart as the file of "Opening", removed at the end.
class ChartDirectory {
 public:
  explicit ChartDirectory(const std::string& chart);
  ~ChartDirectory();
  ChartDirectory(const ChartDirectory&) = delete;
  ChartDirectory& operator=(const ChartDirectory&) = delete;

  /// The path, with a separator at its end.
  const std::string& path() const noexcept { return path_; }

 private:
  std::string path_;
};

}  // namespace tavrel

#endif  // TAVREL_BENCH_GENERATEDCHART_H
