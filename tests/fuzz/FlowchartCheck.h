// What must be true of a flowchart once its file was read, whatever the file held.

#ifndef TAVREL_TESTS_FUZZ_FLOWCHARTCHECK_H
#define TAVREL_TESTS_FUZZ_FLOWCHARTCHECK_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/CTavrel.h"

namespace tavrel::fuzz {

/// Elements and bounds agree: also where the reading threw.
void checkElements(const CTavrel& engine, std::int32_t fc);

/// Offsets and row index agree with the elements, and every query finds what they say.
/// REQUIRES: the reading threw nothing. Makes the flowchart current.
void checkWhole(CTavrel& engine, std::int32_t fc);

/// The memory that the records of a flowchart take.
std::size_t sizeOf(const std::vector<sScreenElement>& elements);

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_FLOWCHARTCHECK_H
