// Where a call finds an engine or a navigator.

#ifndef TAVREL_TESTS_FAILURES_SITUATION_H
#define TAVREL_TESTS_FAILURES_SITUATION_H

#include <string>
#include <vector>

#include "tests/failures/Call.h"

namespace tavrel {

/// What came before the call, made on a new subject. Some calls may throw.
struct Situation {
  std::string name;
  std::vector<Call> before;
  bool withoutFile = false;  ///< the file of flowchart 0 appears between `before` and the call
};

const std::vector<Situation>& situations();

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_SITUATION_H
