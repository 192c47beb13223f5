// Everything that an engine holds, compared with what the reference holds.

#ifndef TAVREL_TESTS_REFERENCE_STATE_H
#define TAVREL_TESTS_REFERENCE_STATE_H

#include <cstddef>
#include <optional>
#include <string>

#include "engine/CTavrel.h"
#include "tests/reference/PlainEngine.h"

namespace tavrel::reference {

struct StateDifference {
  std::string what;
  std::string reference, navigator;
};

/// The first difference in the cursor, the answers kept, and the bounds, the number of
/// elements and the marks of the current flowchart. Cheap.
std::optional<StateDifference> differenceAtCursor(const PlainEngine& reference,
                                                  const CTavrel& engine);

/// The same, and in everything that is held of every flowchart.
std::optional<StateDifference> differenceAnywhere(const PlainEngine& reference,
                                                  const CTavrel& engine);

/// The first difference in what is held of one flowchart.
std::optional<StateDifference> differenceInChart(const PlainChart& chart, const CTavrel& engine,
                                                 std::size_t fc);

/// The engine's record of an element.
sScreenElement asRecord(const PlainElement& plain);

/// Whether the two are the same in every field.
bool isEqual(const PlainElement& plain, const sScreenElement& record);

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_STATE_H
