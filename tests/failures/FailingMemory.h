// Memory that is refused: by the operators new, or below them by malloc itself. A program
// links tavrel_test_allocations and operators.cpp for the one, malloc.cpp for the other.

#ifndef TAVREL_TESTS_FAILURES_FAILINGMEMORY_H
#define TAVREL_TESTS_FAILURES_FAILINGMEMORY_H

#include "tests/support/Allocations.h"

namespace tavrel {

/// Whether the opening of a file may be refused its memory too.
bool filesNeedMemory();

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_FAILINGMEMORY_H
