// Counting the instructions of one operation under callgrind.

#ifndef TAVREL_TESTS_LIMITS_COUNTED_H
#define TAVREL_TESTS_LIMITS_COUNTED_H

#include <string>

#include "tests/support/Require.h"

namespace tavrel {

/// Callgrind counts from startCounting() to stopCounting(), which writes what was
/// counted into callgrind's file under this name. Without callgrind neither does
/// anything.
void startCounting();
void stopCounting(const std::string& name);

template <typename Operation>
void counted(const std::string& name, Operation&& operation) {
  startCounting();
  operation();
  stopCounting(name);
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_LIMITS_COUNTED_H
