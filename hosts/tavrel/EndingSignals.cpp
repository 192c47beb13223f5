#include "hosts/tavrel/EndingSignals.h"

#include <array>
#include <csignal>
#include <cstddef>

namespace tavrel {
namespace {

constexpr std::array requests = {SIGHUP,  SIGINT,  SIGQUIT,   SIGTERM, SIGALRM, SIGPIPE, SIGUSR1,
                                 SIGUSR2, SIGPROF, SIGVTALRM, SIGXCPU, SIGXFSZ, SIGPOLL};
constexpr std::array crashes = {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS, SIGTRAP};

volatile std::sig_atomic_t notedSignal = 0;
void (*rescueBeforeCrash)() = nullptr;
std::array<struct sigaction, requests.size()> actionsOnRequest;
std::array<struct sigaction, crashes.size()> actionsOnCrash;

template <std::size_t count>
void restore(const std::array<int, count>& signals,
             const std::array<struct sigaction, count>& actions) {
  for (std::size_t i = 0; i < count; ++i) sigaction(signals[i], &actions[i], nullptr);
}

// Other threads there are none, so that `before` is whole whenever a signal comes.
template <std::size_t count>
void handle(const std::array<int, count>& signals, void (*handler)(int),
            std::array<struct sigaction, count>& before) {
  struct sigaction action = {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < count; ++i) {
    sigaction(signals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(signals[i], &action, nullptr);
  }
}

extern "C" void noteSignal(int number) { notedSignal = number; }

// The signal is blocked until the handler returns, and is then handled as before.
extern "C" void rescueAndCrash(int number) {
  rescueBeforeCrash();
  restore(crashes, actionsOnCrash);
  std::raise(number);
}

}  // namespace

EndingSignals::EndingSignals(void (*rescue)()) {
  rescueBeforeCrash = rescue;
  handle(requests, noteSignal, actionsOnRequest);
  handle(crashes, rescueAndCrash, actionsOnCrash);
}

EndingSignals::~EndingSignals() {
  restore(requests, actionsOnRequest);
  restore(crashes, actionsOnCrash);
}

int EndingSignals::noted() noexcept { return notedSignal; }

void EndingSignals::raiseNoted() {
  if (notedSignal != 0) std::raise(notedSignal);
}

}  // namespace tavrel
