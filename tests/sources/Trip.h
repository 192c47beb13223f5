// A source, there and back: compiled, written to a file, and walked through the client interface.

#ifndef TAVREL_TESTS_SOURCES_TRIP_H
#define TAVREL_TESTS_SOURCES_TRIP_H

#include <string>

#include "facade/Tavrel.h"
#include "tests/sources/Features.h"
#include "tests/sources/Meaning.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel::sources {

/// Walks every exit of every box of the navigator's chart, and back along the grid, and compares
/// what it meets with what the source means: boxes, their texts, comments, exits and links, and
/// that the file holds no box that no walk meets. What differs first, with the answers that led
/// there; empty for nothing.
std::string differenceOf(Tavrel& navigator, const MeantChart& meant);

enum class Outcome {
  alike,
  noWayBack,  ///< a line back can't be drawn, the one reason to refuse a source without a mistake
  refused,    ///< for any other reason
  differs
};

struct Result {
  Outcome outcome;
  std::string text;  ///< what differs, or what the compiler said
};

/// Makes trips, each through a file in a directory of its own.
class Traveller {
 public:
  /// A source in a file `name`, as messages call it. Counts what it has met.
  Result travel(const std::string& name, const std::string& source, Features& met);

 private:
  TemporaryDirectory directory_;
};

}  // namespace tavrel::sources

#endif  // TAVREL_TESTS_SOURCES_TRIP_H
