// The signals that end a program, while it holds something that must be given back
// first.

#ifndef TAVREL_HOSTS_TAVREL_ENDINGSIGNALS_H
#define TAVREL_HOSTS_TAVREL_ENDINGSIGNALS_H

namespace tavrel {

/// Takes the signals over for as long as it lives; those that were ignored stay
/// ignored. One that asks the program to end (SIGINT, SIGTERM, SIGHUP, SIGQUIT and
/// their like) is only noted. One that crashes it (SIGSEGV, SIGABRT and their
/// like) calls `rescue`, which may do no more than a signal handler may, and then
/// takes its course. REQUIRES: no other object of this class.
class EndingSignals {
 public:
  explicit EndingSignals(void (*rescue)());
  ~EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

  /// The signal noted last, also after the object's end; 0 for none.
  static int noted() noexcept;

  /// Ends the program by the signal noted, if there is one.
  static void raiseNoted();
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_ENDINGSIGNALS_H
