// The subcommand that draws a flowchart into a file.

#ifndef TAVREL_HOSTS_TAVREL_DRAW_H
#define TAVREL_HOSTS_TAVREL_DRAW_H

#include <optional>
#include <string>

namespace tavrel {

/// What may stand on the command line. What was not given is empty.
struct DrawArguments {
  std::string chart;                  ///< a name or title, or a file: see ChartToDraw.h
  std::optional<std::string> output;  ///< a file, or "-"
  std::optional<std::string> format;  ///< "svg", "pdf", "png" or "txt"
  std::optional<std::string> answers;
  std::optional<std::string> at;     ///< "X,Y"
  std::optional<std::string> theme;  ///< "light", "dark", "print" or "two-colour"
  std::optional<std::string> page;   ///< "A4", "Letter" or "fit"
};

/// Draws the chart. The format is that of `format`, or else of the output's extension, or else
/// SVG. The path is that of the answers; the place is the box at `at`, or else, where there are
/// answers, the box to which they lead. In text the place has a ●, in ASCII a *, for the upper
/// left corner of its frame. Returns the exit status: 1 if a source has an error.
/// Throws Failure for wrong usage, for charts that can't be read and pictures that can't be
/// made or written.
int drawChart(const DrawArguments& arguments, const std::optional<std::string>& chartsDirectory);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_DRAW_H
