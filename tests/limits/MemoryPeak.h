// The memory that a program has in use, and the most it had.

#ifndef TAVREL_TESTS_LIMITS_MEMORYPEAK_H
#define TAVREL_TESTS_LIMITS_MEMORYPEAK_H

#include <cstddef>

namespace tavrel {

/// The bytes allocated and not freed: by malloc and its kin, which the operators new
/// and the C library's own functions use, and mapped by calls of mmap. A program that
/// links MemoryPeak.cpp has these functions from there. For one thread.
std::size_t memoryInUse();

/// The most that was in use since the last call, and at least what is in use now.
std::size_t takeMemoryPeak();

}  // namespace tavrel

#endif  // TAVREL_TESTS_LIMITS_MEMORYPEAK_H
