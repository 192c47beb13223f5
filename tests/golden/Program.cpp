#include "Program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace tavrel {
namespace {

// What a process ends with that couldn't become the command.
constexpr int notStarted = 127;

// After which a command that hangs is ended.
constexpr unsigned patienceSeconds = 60;

bool isVariable(const Word& word) {
  return !word.isQuoted && word.text.find('=') != std::string::npos;
}

bool isRedirection(const Word& word) {
  return !word.isQuoted && (word.text == "<" || word.text == ">");
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

CommandLine parseCommandLine(const std::vector<Word>& words) {
  CommandLine command;
  auto word = words.begin();
  for (; word != words.end() && isVariable(*word); ++word) {
    command.environment.push_back(word->text);
  }
  // Of two values for a variable the first counts.
  command.environment.insert(command.environment.end(), {"LC_ALL=C.UTF-8", "TERM=xterm-256color"});
  if (word == words.end() || word->text != "tavrel") throw NotationError("tavrel must stand here");
  for (++word; word != words.end(); ++word) {
    if (!isRedirection(*word)) {
      command.arguments.push_back(word->text);
      continue;
    }
    std::string& file = word->text == "<" ? command.inputFile : command.outputFile;
    if (++word == words.end()) throw NotationError("a file must follow");
    file = word->text;
  }
  return command;
}

void become(const CommandLine& command, const std::string& directory) {
  std::vector<std::string> arguments = command.arguments;
  arguments.insert(arguments.begin(), "tavrel");
  std::vector<std::string> environment = command.environment;
  if (const char* options = std::getenv("LSAN_OPTIONS")) {
    environment.push_back(std::string("LSAN_OPTIONS=") + options);
  }
  if (chdir(directory.c_str()) != 0) _exit(notStarted);
  execve(TAVREL_PROGRAM, pointersTo(arguments).data(), pointersTo(environment).data());
  _exit(notStarted);
}

std::string endOf(const CommandLine& command, const std::string& directory) {
  const pid_t process = fork();
  if (process == 0) {
    alarm(patienceSeconds);
    become(command, directory);
  }
  int status = 0;
  if (process < 0 || waitpid(process, &status, 0) != process) {
    throw std::runtime_error("cannot start the command");
  }
  return endNotation(status);
}

std::string endNotation(int status) {
  if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
  return "exit " + std::to_string(WEXITSTATUS(status));
}

}  // namespace tavrel
