// The flowcharts that the program can walk: the navigator's catalogue, and the
// directory with the files.

#ifndef TAVREL_HOSTS_TAVREL_LIBRARY_H
#define TAVREL_HOSTS_TAVREL_LIBRARY_H

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

struct CatalogueEntry {
  std::int64_t index;
  std::string name;   ///< the file name, as links use it
  std::string title;  ///< for display
};

/// The file names of the catalogue, in its order.
std::vector<std::string> catalogueNames();

/// The charts installed with this program, or those of the build that it runs from:
/// found from where the program lies, so that both may move.
std::filesystem::path defaultChartsDirectory();

/// A directory of charts and the catalogue of what may be in it.
class Library {
 public:
  /// Throws Failure when `directory` is not a directory that can be read. Messages call it
  /// `shownAs`, if that is not empty.
  explicit Library(std::filesystem::path directory, std::filesystem::path shownAs = {});

  const std::filesystem::path& directory() const noexcept { return directory_; }
  const std::vector<CatalogueEntry>& entries() const noexcept { return entries_; }
  const CatalogueEntry& entry(std::int64_t index) const;

  /// The flowchart of this name or title, upper and lower case alike. Throws
  /// Failure, with a suggestion for a near miss, if there is none.
  const CatalogueEntry& find(std::string_view nameOrTitle) const;

  std::filesystem::path fileOf(const CatalogueEntry& entry) const;

  /// What messages call the file: 'PATH', in quotes.
  std::string quotedFileOf(const CatalogueEntry& entry) const;

  bool hasFile(const CatalogueEntry& entry) const;

  /// Why the flowchart's file can't be opened, as "'PATH' is missing"; empty if
  /// it can. Looks into no file.
  std::string faultOf(const CatalogueEntry& entry) const;

 private:
  std::filesystem::path directory_, shownAs_;
  std::vector<CatalogueEntry> entries_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_LIBRARY_H
