// The subcommands. What they were asked for goes to standard output.

#ifndef TAVREL_HOSTS_TAVREL_COMMANDS_H
#define TAVREL_HOSTS_TAVREL_COMMANDS_H

#include <optional>
#include <string>

#include "hosts/tavrel/TableArguments.h"

namespace tavrel {

/// The command line, taken apart. What was not given is empty.
struct Arguments {
  std::optional<std::string> charts;  ///< the folder of the .fv files
  std::string name;                   ///< a flowchart's name or title, or a source
  std::optional<std::string> answers;
  bool watches = false;
  std::optional<std::string> hand;  ///< that walks by itself
  TableArguments table;
};

// All throw Failure for wrong usage and unreadable input.

/// Lists the flowcharts: index, name, whether the file is there, title.
void listCharts(const Arguments& arguments);

/// Prints a flowchart's introduction.
void printIntroduction(const Arguments& arguments);

/// Walks a flowchart: on the terminal's screen where there is one, else in lines. A name that
/// ends in ".yaml" is a source, which is compiled into a temporary folder and walked there.
/// A hand walks by itself, from key to key on the screen, and to its end in lines. Returns the exit
/// status: 1 if there was an error in the source, that of statusOf() for a hand in lines.
int walkCharts(const Arguments& arguments);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_COMMANDS_H
