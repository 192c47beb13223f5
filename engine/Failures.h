// The failures that leave the engine after something has changed already. They are
// made in advance, for making one takes memory: without it, a broken chart would be
// reported as std::bad_alloc, with work half done.

#ifndef TAVREL_ENGINE_FAILURES_H
#define TAVREL_ENGINE_FAILURES_H

namespace tavrel::engine {

/// Makes the failures unless they are made already. Every engine does this when it
/// is built. Safe on several threads at once.
void prepareFailures();

/// Throws a std::out_of_range: nothing stands where something was to be found.
/// Needs no memory once the failures are prepared.
[[noreturn]] void throwOutOfRange();

/// Throws a std::length_error: a flowchart of a size that cannot be. Needs no
/// memory once the failures are prepared.
[[noreturn]] void throwLengthError();

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_FAILURES_H
