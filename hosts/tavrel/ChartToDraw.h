// What `tavrel draw NAME|FILE` is given: a flowchart of the library, a source or a
// file, made fit for a navigator.

#ifndef TAVREL_HOSTS_TAVREL_CHARTTODRAW_H
#define TAVREL_HOSTS_TAVREL_CHARTTODRAW_H

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "hosts/tavrel/Library.h"
#include "hosts/tavrel/TemporaryFolder.h"

namespace tavrel {

/// A flowchart in a library that may be there for its sake alone.
struct ChartToDraw {
  std::unique_ptr<TemporaryFolder> folder;  ///< of the library, if it is such a one
  Library library;
  const CatalogueEntry* entry;  ///< of the library
  std::string title;            ///< "Opening: Deciding on an Opening Bid", or a file's name
};

/// The chart meant by `name`: a source if it ends in .yaml or .yml or is "-"
/// (standard input), a file if it ends in .fv, else a flowchart's name or title.
///
/// A source is compiled, and what is wrong with it is said on standard error;
/// nothing comes back if there was an error. A file may have any name; it is drawn as
/// the flowchart of that name, or as the first one of the catalogue. Throws Failure
/// when there is no such flowchart or file.
std::optional<ChartToDraw> chartToDraw(const std::string& name,
                                       const std::filesystem::path& chartsDirectory);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_CHARTTODRAW_H
