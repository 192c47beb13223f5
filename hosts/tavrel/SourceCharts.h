// The charts that a walk of a source can come to.

#ifndef TAVREL_HOSTS_TAVREL_SOURCECHARTS_H
#define TAVREL_HOSTS_TAVREL_SOURCECHARTS_H

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "authoring/Compiler.h"
#include "hosts/tavrel/TemporaryFolder.h"

namespace tavrel {

/// Whether a name on the command line is that of a source, and not of a flowchart.
bool isSource(const std::string& name);

/// A source compiled into a temporary folder, together with the charts that links lead to from
/// there. Each of those is taken from the source's own folder or, if it isn't there, from the
/// folder of other charts: compiled from NAME.yaml, or as NAME.fv where there is no such source
/// or it has an error. What was made of a linked source before it got its errors stays.
class SourceCharts {
 public:
  /// Compiles nothing yet. Throws Failure when there can be no temporary folder.
  SourceCharts(std::filesystem::path source, std::filesystem::path others);

  /// Compiles everything as it is now. False if the source has an error: then all stays as it
  /// was. Throws Failure when the source can't be read.
  bool compile();

  /// What the last compilation had to say, for standard error: all that was found in the
  /// source, and the names of other sources that have errors.
  const std::string& said() const noexcept { return said_; }

  /// The first error of it, on one line, be it a linked source's; empty if there is none.
  const std::string& firstError() const noexcept { return firstError_; }

  /// Whether a source has been saved since the last compilation.
  bool haveChanged() const;

  /// The folder of the compiled charts.
  const std::filesystem::path& folder() const noexcept { return folder_.path(); }

  /// The folder of the source.
  std::filesystem::path origin() const;

  /// The name of the source's chart. REQUIRES: it has been compiled.
  const std::string& chart() const noexcept { return chart_; }

  /// The chart of that name; nullptr for one that wasn't made from a source.
  const authoring::CompiledChart* find(const std::string& name) const;

 private:
  using Charts = std::map<std::string, authoring::CompiledChart>;

  std::optional<authoring::CompiledChart> compiled(const std::filesystem::path& source);
  void write(authoring::CompiledChart chart);
  void fetchLinksOf(const std::string& name);
  bool fetch(const std::string& name);
  bool fetchFrom(const std::filesystem::path& folder, const std::string& name);
  void tell(const std::filesystem::path& source, const authoring::SourceFile& file,
            const authoring::Diagnostics& found);
  void note(const std::filesystem::path& source);

  const std::filesystem::path source_, others_;
  const authoring::Catalogue catalogue_;
  TemporaryFolder folder_;
  Charts charts_, before_;  // of this compilation, and of the one before it
  std::string chart_;
  std::string said_, firstError_;
  std::map<std::filesystem::path, std::filesystem::file_time_type> seen_;  // sources
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_SOURCECHARTS_H
