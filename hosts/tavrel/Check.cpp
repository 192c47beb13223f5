#include "hosts/tavrel/Check.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "authoring/ChartCheck.h"
#include "hands/ConditionCompiler.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/Library.h"
#include "text/Text.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using namespace authoring;

bool isChart(const fs::path& path) {
  return path.extension() == ".yaml" || path.extension() == ".fv";
}

// Sorted, so that a run says the same everywhere. A pipe of such a name would be waited for.
std::vector<fs::path> chartsIn(const fs::path& folder) {
  std::error_code failed;
  std::vector<fs::path> charts;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    if (isChart(entry->path()) && isFileOrNothing(entry->path())) charts.push_back(entry->path());
  }
  if (failed) throw Failure("cannot read '" + folder.string() + "': " + failed.message());
  std::sort(charts.begin(), charts.end());
  return charts;
}

std::set<std::string> namesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const fs::path& chart : chartsIn(folder)) names.insert(chart.stem().string());
  return names;
}

// What is said of the charts, one after the other.
class Findings {
 public:
  Findings(const CheckArguments& arguments, const fs::path& library) : arguments_(arguments) {
    if (isFolder(library)) inLibrary_ = namesIn(library);
  }

  void check(const fs::path& path) try {
    if (!isFolder(path)) return check({path}, false);
    const std::vector<fs::path> charts = chartsIn(path);
    if (charts.empty()) {
      throw Failure("there is no *.yaml and no *.fv in '" + path.string() + "'");
    }
    check(charts, true);
  } catch (const Failure& failure) {
    tellFailure(failure.what());
    isUnread_ = true;
  }

  /// The exit status. Whoever wants all findings is told of those that there are, even though
  /// some file or folder can't be read.
  int finish() {
    if (arguments_.asJson) {
      std::cout << array_.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    } else {
      std::cout << summary() << '\n';
    }
    if (isUnread_) return failureStatus;
    const bool isWarned = arguments_.isStrict && count(Severity::warning) > 0;
    return isWarned || count(Severity::error) > 0 ? 1 : 0;
  }

 private:
  // `areAll`: these are the charts of a folder, which link to each other.
  void check(const std::vector<fs::path>& paths, bool areAll) {
    std::vector<SourceFile> files;
    std::vector<CheckedChart> charts;
    for (const fs::path& path : paths) {
      if (!read(path, files)) continue;
      charts.push_back(checkChart(files.back(), catalogue_, hands::checkConditions));
      const std::set<std::string>* names = path == "-" ? nullptr : namesFor(path);
      if (names != nullptr) checkLinks(charts.back(), *names);
    }
    if (areAll) noteUnlinked(charts);
    for (std::size_t i = 0; i < files.size(); ++i) take(charts[i], files[i]);
  }

  bool read(const fs::path& path, std::vector<SourceFile>& files) try {
    files.push_back(readInput(path));
    return true;
  } catch (const Failure& failure) {
    tellFailure(failure.what());
    isUnread_ = true;
    return false;
  }

  std::size_t count(Severity severity) const { return counts_[static_cast<std::size_t>(severity)]; }

  // A walk goes on in the charts beside a file, and in those of the library. Null for a folder
  // whose files may be read but not listed: nobody can tell what is there.
  const std::set<std::string>* namesFor(const fs::path& file) {
    const fs::path folder = file.has_parent_path() ? file.parent_path() : ".";
    const auto [names, isNew] = names_.try_emplace(folder);
    if (isNew) {
      std::error_code unlisted;
      const fs::directory_iterator probe(folder, unlisted);
      if (unlisted) return nullptr;
      names->second = namesIn(folder);
      names->second->insert(inLibrary_.begin(), inLibrary_.end());
    }
    return names->second ? &*names->second : nullptr;
  }

  void take(const CheckedChart& chart, const SourceFile& file) {
    ++files_;
    std::size_t unseen = 0;
    for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
      counts_[static_cast<std::size_t>(severity)] += chart.found.count(severity);
      unseen += chart.found.count(severity);
    }
    for (const Diagnostic& diagnostic : chart.found.sorted()) {
      --unseen;
      if (arguments_.asJson) {
        array_.push_back(jsonOf(diagnostic, file.name()));
      } else {
        std::cout << shown(diagnostic, file);
      }
    }
    if (unseen == 0) return;
    std::cerr << printable(file.name(), Charset::utf8) << ": " << unseen
              << " more, which are not shown\n";
  }

  static nlohmann::ordered_json jsonOf(const Diagnostic& diagnostic, const std::string& file) {
    return {{"file", file},
            {"line", diagnostic.place.line},
            {"column", diagnostic.place.column},
            {"severity", authoring::nameOf(severityOf(diagnostic.code))},
            {"code", authoring::nameOf(diagnostic.code)},
            {"text", diagnostic.text},
            {"cure", diagnostic.cure}};
  }

  static std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
  }

  std::string summary() const {
    return counted(files_, "file") + " checked: " + counted(count(Severity::error), "error") +
           ", " + counted(count(Severity::warning), "warning") + ", " +
           counted(count(Severity::note), "note");
  }

  const CheckArguments& arguments_;
  const Catalogue catalogue_ = catalogueNames();
  nlohmann::ordered_json array_ = nlohmann::ordered_json::array();
  std::set<std::string> inLibrary_;
  // Of charts that those of a folder may link to.
  std::map<fs::path, std::optional<std::set<std::string>>> names_;
  std::size_t files_ = 0;
  bool isUnread_ = false;
  std::array<std::size_t, 3> counts_ = {};
};

}  // namespace

int checkCharts(const CheckArguments& arguments, const std::string& usualFolder) {
  std::vector<std::string> paths = arguments.paths;
  if (paths.empty()) paths.push_back(usualFolder);
  Findings findings(arguments, usualFolder);
  for (const std::string& path : paths) findings.check(fs::path(path));
  return findings.finish();
}

}  // namespace tavrel
