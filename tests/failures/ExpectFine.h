// What a test expects of a trial.

#ifndef TAVREL_TESTS_FAILURES_EXPECTFINE_H
#define TAVREL_TESTS_FAILURES_EXPECTFINE_H

#include <gtest/gtest.h>

#include <string>

#include "tests/failures/Tally.h"

namespace tavrel {

/// That it was tried in so many ways at least, and that nothing fell short.
inline void expectFine(const Tally& tally, long atLeast) {
  EXPECT_GE(tally.tried, atLeast);
  for (const std::string& finding : tally.findings) ADD_FAILURE() << finding;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_EXPECTFINE_H
