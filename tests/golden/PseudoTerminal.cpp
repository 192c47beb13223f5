#include "PseudoTerminal.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace tavrel {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr auto patience = std::chrono::seconds(60);
constexpr auto step = milliseconds(2);
// Longer than the command waits for the rest of a key's sequence.
constexpr auto idleLongEnough = milliseconds(40);

winsize windowOf(ScreenSize size) {
  winsize window = {};
  window.ws_col = static_cast<unsigned short>(size.columns);
  window.ws_row = static_cast<unsigned short>(size.rows);
  return window;
}

// What no command writes. It is taken out of what is read.
constexpr char mark = '\0';

// The letter for what a process does: S while it sleeps until something happens.
char stateOf(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string all;
  std::getline(file, all);
  const std::size_t name = all.rfind(')');
  return name == std::string::npos || name + 2 >= all.size() ? '?' : all[name + 2];
}

void require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(std::string(what) + ": " + std::strerror(errno));
}

}  // namespace

PseudoTerminal::PseudoTerminal(const CommandLine& command, const std::string& directory,
                               ScreenSize size)
    : screen_(size.columns, size.rows) {
  const winsize window = windowOf(size);
  require(openpty(&outside_, &inside_, nullptr, nullptr, &window) == 0, "no terminal");
  fcntl(outside_, F_SETFD, FD_CLOEXEC);
  require(tcgetattr(inside_, &modesBefore_) == 0, "no modes");
  process_ = fork();
  require(process_ >= 0, "no process");
  if (process_ == 0) {
    login_tty(inside_);
    become(command, directory);
  }
  settle();
}

PseudoTerminal::~PseudoTerminal() {
  if (!status_) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  if (outside_ >= 0) close(outside_);
  if (inside_ >= 0) close(inside_);
}

void PseudoTerminal::type(const std::string& bytes) {
  const long before = wakes();
  require(write(outside_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
          "cannot type");
  waitUntilNoticed(before);
  settle();
}

void PseudoTerminal::resize(ScreenSize size) {
  const winsize window = windowOf(size);
  screen_.resize(size.columns, size.rows);
  require(ioctl(outside_, TIOCSWINSZ, &window) == 0, "cannot resize");
  settle();
}

void PseudoTerminal::end(int signal) {
  require(kill(process_, signal) == 0, "cannot signal");
  waitForEnd();
}

void PseudoTerminal::hangUp() {
  close(inside_);
  close(outside_);
  inside_ = outside_ = -1;
  waitForEnd();
}

std::vector<std::string> PseudoTerminal::leftBehind() const {
  std::vector<std::string> left;
  if (screen_.isAlternate()) left.emplace_back("alternate screen");
  if (!screen_.isCursorVisible()) left.emplace_back("hidden cursor");
  termios now = {};
  tcgetattr(inside_, &now);
  const bool sameFlags = now.c_iflag == modesBefore_.c_iflag &&
                         now.c_oflag == modesBefore_.c_oflag && now.c_lflag == modesBefore_.c_lflag;
  if (!sameFlags || std::memcmp(now.c_cc, modesBefore_.c_cc, sizeof now.c_cc) != 0) {
    left.emplace_back("modes");
  }
  return left;
}

// The kernel may be late with what was typed, and with what the command answers.
void PseudoTerminal::waitUntilNoticed(long wakesBefore) {
  const auto deadline = Clock::now() + patience;
  while (!hasEnded() && isIdle() && wakes() == wakesBefore) {
    if (Clock::now() > deadline) throw std::runtime_error("the command takes no keys");
    std::this_thread::sleep_for(step);
  }
}

void PseudoTerminal::settle() {
  std::size_t before;
  do {
    waitUntilIdle();
    before = raw_.size();
    drainAll();
  } while (raw_.size() != before);
}

void PseudoTerminal::waitUntilIdle() {
  const auto deadline = Clock::now() + patience;
  auto busyAt = Clock::now();
  while (Clock::now() - busyAt < idleLongEnough) {
    if (Clock::now() > deadline) throw std::runtime_error("the command doesn't come to rest");
    const bool ended = hasEnded();
    const bool idle = isIdle();
    const std::size_t before = raw_.size();
    drain();
    if (ended) return;
    if (!idle || raw_.size() != before || raw_.empty()) busyAt = Clock::now();
    std::this_thread::sleep_for(step);
  }
}

void PseudoTerminal::drain() {
  char piece[4096];
  pollfd output = {outside_, POLLIN, 0};
  while (poll(&output, 1, 0) > 0 && (output.revents & POLLIN) != 0) {
    const ssize_t count = read(outside_, piece, sizeof piece);
    if (count <= 0) return;
    std::string bytes(piece, static_cast<std::size_t>(count));
    const auto marks = std::remove(bytes.begin(), bytes.end(), mark);
    marksRead_ += static_cast<int>(bytes.end() - marks);
    bytes.erase(marks, bytes.end());
    raw_ += bytes;
    screen_.write(bytes);
  }
}

// Bytes come out of a terminal in the order in which they went in: whoever has seen a mark has
// seen all that was written before it.
void PseudoTerminal::drainAll() {
  const auto deadline = Clock::now() + patience;
  const int marksBefore = marksRead_;
  require(write(inside_, &mark, 1) == 1, "cannot write a mark");
  while (marksRead_ == marksBefore) {
    if (Clock::now() > deadline) throw std::runtime_error("the mark is lost");
    drain();
    std::this_thread::yield();
  }
}

// How often the process has slept until something happened.
long PseudoTerminal::wakes() const {
  std::ifstream file("/proc/" + std::to_string(process_) + "/status");
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("voluntary_ctxt_switches:", 0) == 0) return std::stol(line.substr(24));
  }
  return -1;
}

bool PseudoTerminal::isIdle() const {
  int waiting = 0;
  ioctl(inside_, FIONREAD, &waiting);
  return waiting == 0 && stateOf(process_) == 'S';
}

bool PseudoTerminal::hasEnded() {
  int status = 0;
  if (!status_ && waitpid(process_, &status, WNOHANG) == process_) status_ = status;
  return status_.has_value();
}

void PseudoTerminal::waitForEnd() {
  const auto deadline = Clock::now() + patience;
  while (!hasEnded()) {
    if (Clock::now() > deadline) throw std::runtime_error("the command doesn't end");
    drain();
    std::this_thread::sleep_for(step);
  }
  if (outside_ >= 0) drainAll();
}

}  // namespace tavrel
