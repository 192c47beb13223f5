// The subcommand that makes flowchart files of sources.

#ifndef TAVREL_HOSTS_TAVREL_COMPILE_H
#define TAVREL_HOSTS_TAVREL_COMPILE_H

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

struct CompileArguments {
  std::vector<std::string> sources;
  std::optional<std::string> output;  ///< a file, a folder, or "-"
  bool watches = false;
};

/// Compiles the sources and says what is wrong with them on standard error. Returns the exit
/// status: 1 if there was an error in any. Throws Failure for wrong usage and for files that
/// can't be read or written. With `watches` it goes on, until the program is ended.
int compileSources(const CompileArguments& arguments);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_COMPILE_H
