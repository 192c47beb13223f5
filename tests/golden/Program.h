// Starting the command.

#ifndef TAVREL_TESTS_GOLDEN_PROGRAM_H
#define TAVREL_TESTS_GOLDEN_PROGRAM_H

#include <string>
#include <vector>

#include "tests/support/Notation.h"

namespace tavrel {

/// A command line as a shell has it: `LC_ALL=C tavrel walk Opening < answers > out`.
struct CommandLine {
  std::vector<std::string> environment;  ///< NAME=VALUE, all there is
  std::vector<std::string> arguments;    ///< behind the program's name
  std::string inputFile;                 ///< of standard input; empty for none
  std::string outputFile;                ///< of standard output; empty for none
};

/// Takes a line's words apart. Throws NotationError unless `tavrel` stands behind
/// the variables. The locale is C.UTF-8 and TERM is xterm-256color unless a variable
/// says otherwise; nothing else is in the environment, but for the leak sanitizer's options.
CommandLine parseCommandLine(const std::vector<Word>& words);

/// Becomes the command, in the directory. For a new process only: on failure it
/// ends. Files of the command line are not opened here.
[[noreturn]] void become(const CommandLine& command, const std::string& directory);

/// Runs the command in the directory, with the streams of this process, and returns how it ended.
/// One that hangs is ended after a minute.
std::string endOf(const CommandLine& command, const std::string& directory);

/// How a process ended, in its wait status: `exit 2` or `signal 15`.
std::string endNotation(int status);

}  // namespace tavrel

#endif  // TAVREL_TESTS_GOLDEN_PROGRAM_H
