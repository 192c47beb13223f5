// Small charts with every fault that one byte can have, and cut short at every byte.

#ifndef TAVREL_TESTS_FAILURES_VARIATIONS_H
#define TAVREL_TESTS_FAILURES_VARIATIONS_H

#include "tests/failures/Tally.h"

namespace tavrel {

/// Gives each of the three charts another value for one of its bytes, all 255 of them for
/// every byte, and compares what engine, navigator and reference make of it: elements,
/// bounds, introduction, kind of exception, and a conversation.
Tally tryChangedBytes(const Share& share);

/// The same for all that the charts begin with, from nothing to the whole.
Tally tryPrefixes(const Share& share);

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_VARIATIONS_H
