// What a fuzzer's bytes mean to the targets that talk with a navigator: the files of
// three flowcharts, and requests to a navigator over them. tests/fuzz/README.md has the
// tables.

#ifndef TAVREL_TESTS_FUZZ_FUZZEDDIALOGUE_H
#define TAVREL_TESTS_FUZZ_FUZZEDDIALOGUE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/reference/Dialogue.h"

namespace tavrel::fuzz {

/// Decodes an input. Its flowcharts are those from `firstChart` of the catalogue on, and
/// are written, or removed, by the first requests. The navigator is 0, and is thought to be
/// there; the catalogue's last flowchart is thought to have no file. Any bytes are a
/// dialogue.
reference::Dialogue dialogueOf(const std::uint8_t* data, std::size_t size, std::size_t firstChart);

/// Whom its requests are put to.
reference::Front frontOf(const std::uint8_t* data, std::size_t size);

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_FUZZEDDIALOGUE_H
