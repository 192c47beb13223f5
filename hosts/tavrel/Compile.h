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

/// Compiles the sources and says what is wrong with them on standard error, each whatever became
/// of those before it. Returns the exit status: 1 if there was an error in any, 2 if a file can't
/// be read or written. Throws Failure for wrong usage. With `watches` it goes on, until the program is ended.
int compileSources(const CompileArguments& arguments);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_COMPILE_H
