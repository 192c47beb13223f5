// The subcommand that says what is wrong with charts.

#ifndef TAVREL_HOSTS_TAVREL_CHECK_H
#define TAVREL_HOSTS_TAVREL_CHECK_H

#include <string>
#include <vector>

namespace tavrel {

struct CheckArguments {
  std::vector<std::string> paths;  ///< files, folders, or "-"
  bool asJson = false;
  bool isStrict = false;  ///< warnings count for the exit status
};

/// Checks the files, and all *.yaml and *.fv in the folders; `usualFolder` where no path is
/// given. Links may lead to the charts beside a file and to those of `usualFolder`. What is found
/// goes to standard output: as text with a summary line, or as a JSON array. Files that can't be
/// read and folders without a chart are told of on standard error, and the others are checked.
/// Returns the exit status: 1 if anything was found that counts, 2 if something couldn't be read.
/// Throws Failure where `usualFolder` is there and can't be read.
int checkCharts(const CheckArguments& arguments, const std::string& usualFolder);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_CHECK_H
