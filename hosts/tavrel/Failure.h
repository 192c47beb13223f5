// How the program ends when it can't do what was asked.

#ifndef TAVREL_HOSTS_TAVREL_FAILURE_H
#define TAVREL_HOSTS_TAVREL_FAILURE_H

#include <stdexcept>
#include <string>

namespace tavrel {

/// Wrong usage, or input that can't be read. The text says what is wrong, where,
/// and what to do; it is printed behind the program's name, and the exit status
/// is 2.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The exit status of a Failure.
constexpr int failureStatus = 2;

/// Prints it on standard error, behind the program's name, and returns its exit status.
int tellFailure(const std::string& what);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_FAILURE_H
