// A command that runs on a terminal of its own, and what is seen there.

#ifndef TAVREL_TESTS_GOLDEN_PSEUDOTERMINAL_H
#define TAVREL_TESTS_GOLDEN_PSEUDOTERMINAL_H

#include <sys/types.h>
#include <termios.h>

#include <optional>
#include <string>
#include <vector>

#include "Program.h"
#include "VirtualScreen.h"

namespace tavrel {

struct ScreenSize {
  int columns;
  int rows;
};

/// Every function that lets the command do something waits until it has done it:
/// until it has taken all keys and sleeps with nothing left to show, or has ended.
/// This is looked up, not guessed from the time that passed, so that a busy machine
/// makes tests slow but not wrong. A command that isn't done after a minute throws
/// std::runtime_error.
class PseudoTerminal {
 public:
  /// Starts the command in the directory.
  PseudoTerminal(const CommandLine& command, const std::string& directory, ScreenSize size);

  /// Kills the command if it still runs.
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  void type(const std::string& bytes);
  void resize(ScreenSize size);

  /// Sends a signal and waits for the end.
  void end(int signal);

  /// Closes the terminal, as when its window is closed, and waits for the end.
  void hangUp();

  const VirtualScreen& screen() const { return screen_; }

  /// All bytes that the command has written.
  const std::string& raw() const { return raw_; }

  /// The wait status, once the command has ended.
  std::optional<int> status() const { return status_; }

  /// What the terminal has not got back: "alternate screen", "hidden cursor",
  /// "modes"; nothing while the terminal is as it was before the command.
  std::vector<std::string> leftBehind() const;

 private:
  void settle();
  void waitUntilIdle();
  void waitUntilNoticed(long wakesBefore);
  void drain();
  void drainAll();
  bool isIdle() const;
  long wakes() const;
  bool hasEnded();
  void waitForEnd();

  VirtualScreen screen_;
  std::string raw_;
  int marksRead_ = 0;  // of those that follow what the command has written
  pid_t process_ = -1;
  int outside_ = -1;  // the end of whoever sits at the terminal
  int inside_ = -1;   // the command's end, kept open to ask about it
  termios modesBefore_ = {};
  std::optional<int> status_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_GOLDEN_PSEUDOTERMINAL_H
