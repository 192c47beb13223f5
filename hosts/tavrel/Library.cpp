#include "hosts/tavrel/Library.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "facade/Tavrel.h"
#include "hosts/tavrel/Failure.h"
#include "text/NearMiss.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

// The engine alone knows the names. It tells the one of the flowchart under the
// cursor, so a navigator that finds no file anywhere visits each in turn.
std::vector<CatalogueEntry> catalogue() {
  Tavrel navigator("/dev/null");
  std::vector<CatalogueEntry> entries;
  for (const std::string& title : navigator.flowchartTitles()) {
    const auto index = static_cast<std::int64_t>(entries.size());
    navigator.resetToStartLocationForFlowchartAtIndex(index);
    entries.push_back({index, std::get<0>(navigator.currentLocation()), title});
  }
  return entries;
}

void requireReadable(const fs::path& directory) {
  std::error_code failed;
  const fs::directory_iterator probe(directory, failed);
  if (!failed) return;
  throw Failure("cannot read the charts directory '" + directory.string() + "': " +
                failed.message() + "; name the folder that holds the .fv files with --charts DIR");
}

std::string suggestionFor(const std::string& wanted, const std::vector<CatalogueEntry>& entries) {
  NearMiss nearest(wanted);
  const CatalogueEntry* found = nullptr;
  for (const CatalogueEntry& entry : entries) {
    if (nearest.improvesWith(entry.name) || nearest.improvesWith(entry.title)) found = &entry;
  }
  return found ? "; did you mean '" + found->name + "' (" + found->title + ")?" : ";";
}

// Of a file in the place of a name, that what it is called keeps it from being read.
std::string cureFor(const std::string& wanted, const std::vector<CatalogueEntry>& entries,
                    const fs::path& file) {
  std::error_code ignored;
  if (!fs::is_regular_file(file, ignored)) {
    return suggestionFor(wanted, entries) + " 'tavrel list' shows them all";
  }
  return "; if the file of that name is a source, rename it so that it ends in .yaml";
}

}  // namespace

std::vector<std::string> catalogueNames() {
  std::vector<std::string> names;
  for (const CatalogueEntry& entry : catalogue()) names.push_back(entry.name);
  return names;
}

std::filesystem::path defaultChartsDirectory() {
  std::error_code failed;
  const fs::path program = fs::read_symlink("/proc/self/exe", failed);
  return (program.parent_path() / TAVREL_CHARTS_FROM_PROGRAM).lexically_normal();
}

Library::Library(fs::path directory, fs::path shownAs)
    : directory_(std::move(directory)),
      shownAs_(shownAs.empty() ? directory_ : std::move(shownAs)),
      entries_(catalogue()) {
  requireReadable(directory_);
}

const CatalogueEntry& Library::entry(std::int64_t index) const {
  return entries_.at(static_cast<std::size_t>(index));
}

const CatalogueEntry& Library::find(std::string_view nameOrTitle) const {
  const std::string wanted = lowerCase(nameOrTitle);
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const CatalogueEntry& entry) {
        return lowerCase(entry.name) == wanted || lowerCase(entry.title) == wanted;
      });
  if (found != entries_.end()) return *found;
  throw Failure("there is no flowchart '" + std::string(nameOrTitle) + "'" +
                cureFor(wanted, entries_, nameOrTitle));
}

fs::path Library::fileOf(const CatalogueEntry& entry) const {
  return directory_ / (entry.name + ".fv");
}

std::string Library::quotedFileOf(const CatalogueEntry& entry) const {
  return "'" + (shownAs_ / (entry.name + ".fv")).string() + "'";
}

bool Library::hasFile(const CatalogueEntry& entry) const {
  std::error_code ignored;
  return fs::is_regular_file(fileOf(entry), ignored);
}

std::string Library::faultOf(const CatalogueEntry& entry) const {
  const fs::path file = fileOf(entry);
  const std::string quoted = quotedFileOf(entry);
  std::error_code failed;
  const fs::file_status status = fs::status(file, failed);
  if (status.type() == fs::file_type::not_found) return quoted + " is missing";
  if (failed) return quoted + " can't be opened: " + failed.message();
  if (!fs::is_regular_file(status)) return quoted + " is not a file";
  if (access(file.c_str(), R_OK) == 0) return "";
  return quoted + " can't be opened: " + std::strerror(errno);
}

}  // namespace tavrel
