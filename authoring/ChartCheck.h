// Everything that can be said of a chart, whether it is a source or a flowchart file, and of
// charts that lie together.

#ifndef TAVREL_AUTHORING_CHARTCHECK_H
#define TAVREL_AUTHORING_CHARTCHECK_H

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "authoring/ChartSource.h"
#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"
#include "authoring/SourceReader.h"

namespace tavrel::authoring {

struct CheckedChart {
  std::string name;                    ///< of the chart, by its file
  bool mayBeUnlinked = false;          ///< players come in from the table, or nobody can tell
  Place place;                         ///< where the chart is named
  std::map<std::string, Place> links;  ///< charts of the catalogue, with the first link to each
  Diagnostics found;
};

/// What is said of a source by those who understand more of it than authoring does.
using SourceCheck =
    std::function<void(const ChartSource& source, const SourceFile& file, Diagnostics& found)>;

/// Checks a flowchart file, by its extension ".fv", or a source. The meaning of a source's ways is
/// checked where there are no errors but of its drawing, that of its texts and boxes where they
/// have none; that of a file's texts where they can be read, and that of its ways where they can be
/// walked. `furtherCheck` is asked about a source too, which may have been read in part.
CheckedChart checkChart(const SourceFile& file, const Catalogue& catalogue,
                        const SourceCheck& furtherCheck = {});

/// Warns of links to charts that have no file among `there`.
void checkLinks(CheckedChart& chart, const std::set<std::string>& there);

/// Notes sources that no chart but themselves links to and that aren't marked as entries. Where
/// a chart has errors, nobody can tell what it links to, and nothing is noted.
/// REQUIRES: these are all the charts of a folder.
void noteUnlinked(std::vector<CheckedChart>& charts);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_CHARTCHECK_H
