// How the client interface's answers are written in a conversation: one notation
// for every form of the interface, in terms of plain values.

#ifndef TAVREL_TESTS_CONVERSATIONS_ANSWER_H
#define TAVREL_TESTS_CONVERSATIONS_ANSWER_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/Operation.h"

namespace tavrel {

/// Every property of a ScreenElement.
struct ElementProperties {
  /// A list of lines; std::nullopt where asking for it threw invalid_argument.
  using Lines = std::optional<std::vector<std::string>>;

  bool isNode;
  bool isOnPath;
  std::int64_t x, y;
  std::int64_t xOffset, yOffset;
  std::int64_t yesDirection, noDirection, intoDirection, outOfDirection;
  Lines boxText, commentaryText;
  std::optional<std::string> nameOfNextFlowchart;
};

/// One line: `box onPath @0,-2 offset 0,-14 yes X+ text "HCP 12+?" "4 spades?"`.
/// What an element doesn't have isn't written: directions of 4, empty texts and
/// a missing next flowchart.
std::string notation(const ElementProperties& element);

/// true or false.
std::string notation(bool value);
std::string notation(std::int64_t value);
/// The string in quotes.
std::string notation(const std::string& value);

/// The notation of the value, or nil.
template <typename Value>
std::string notation(const std::optional<Value>& value) {
  return value ? notation(*value) : "nil";
}

/// The notation of each value on a line of its own; of an empty list, the one
/// line `none`.
template <typename Value>
Answer listAnswer(const std::vector<Value>& values) {
  if (values.empty()) return {"none"};
  Answer answer;
  for (const Value& value : values) answer.push_back(notation(value));
  return answer;
}

/// A rectangle: `x 0..2 y -1..0`.
std::string boundsNotation(std::int64_t minX, std::int64_t maxX, std::int64_t minY,
                           std::int64_t maxY);

}  // namespace tavrel

#endif  // TAVREL_TESTS_CONVERSATIONS_ANSWER_H
