// Sources of every kind that authors may write.

#ifndef TAVREL_TESTS_SOURCES_RANDOMSOURCE_H
#define TAVREL_TESTS_SOURCES_RANDOMSOURCE_H

#include <cstdint>
#include <string>

#include "tests/sources/Features.h"

namespace tavrel::sources {

/// A source for "Opening", of up to 60 boxes and without a mistake, though a line back in it may
/// have no way. The same seed always gives the same source. Counts what it writes.
std::string randomSource(std::uint64_t seed, Features& met);

}  // namespace tavrel::sources

#endif  // TAVREL_TESTS_SOURCES_RANDOMSOURCE_H
