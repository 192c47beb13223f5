// How a fuzz target says that something is wrong.

#ifndef TAVREL_TESTS_FUZZ_FINDING_H
#define TAVREL_TESTS_FUZZ_FINDING_H

#include <cstdio>
#include <cstdlib>
#include <string>

namespace tavrel::fuzz {

/// Ends the program as a crash does, so that the fuzzer keeps the input.
[[noreturn]] inline void report(const std::string& finding) {
  std::fprintf(stderr, "FINDING: %s\n", finding.c_str());
  std::abort();
}

/// What must be true of any input.
inline void require(bool isTrue, const char* claim) {
  if (!isTrue) report(std::string("not true: ") + claim);
}

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_FINDING_H
