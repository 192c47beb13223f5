// Every public operation, with every allocation that it makes failing in turn.

#ifndef TAVREL_TESTS_FAILURES_FAILEDCALLS_H
#define TAVREL_TESTS_FAILURES_FAILEDCALLS_H

#include "tests/failures/Tally.h"

namespace tavrel {

/// Makes all calls of the engine, or of the client interface, in all situations on the three
/// charts. In each the n-th allocation fails, for n from 0 until the call makes no more:
/// once alone, once with all after it. The rules:
///
///  - The call throws std::bad_alloc, or it does and gives back what it does undisturbed.
///  - Where it threw, nothing has changed, or all has, or a flowchart that isn't read was
///    made current and nothing else. Which one it is shows in the whole state and in a
///    conversation that goes on from there.
///  - Nothing stays allocated once subject and answer are gone, and no file stays open.
///  - Where memory is refused below the operators new, in the opening of a file, the call
///    may also do what it does while the file is missing.
Tally failEngineCalls(const Share& share);
Tally failFacadeCalls(const Share& share);

/// The same for the making of an engine and of a navigator: std::bad_alloc, nothing left
/// allocated, and the next one as good as ever.
Tally failConstruction();

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_FAILEDCALLS_H
