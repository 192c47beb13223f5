#include "Answer.h"

#include "tests/support/Notation.h"

namespace tavrel {
namespace {

constexpr std::int64_t kNoDirection = 4;

std::string pair(std::int64_t first, std::int64_t second) {
  return notation(first) + "," + notation(second);
}

std::string range(std::int64_t first, std::int64_t last) {
  return notation(first) + ".." + notation(last);
}

std::string direction(const std::string& label, std::int64_t value) {
  static const char* const kNames[] = {"Y+", "X+", "Y-", "X-"};
  if (value == kNoDirection) return "";
  const bool isNamed = value >= 0 && value < kNoDirection;
  return " " + label + " " + (isNamed ? kNames[value] : notation(value));
}

std::string lines(const std::string& label, const ElementProperties::Lines& lines) {
  if (!lines) return " " + label + " throws invalid_argument";
  if (lines->empty()) return "";
  std::string text = " " + label;
  for (const std::string& line : *lines) text += " " + quote(line);
  return text;
}

}  // namespace

std::string notation(const ElementProperties& element) {
  std::string text = element.isNode ? "box" : "line";
  if (element.isOnPath) text += " onPath";
  text += " @" + pair(element.x, element.y);
  text += " offset " + pair(element.xOffset, element.yOffset);
  text += direction("yes", element.yesDirection);
  text += direction("no", element.noDirection);
  text += direction("into", element.intoDirection);
  text += direction("out", element.outOfDirection);
  text += lines("text", element.boxText);
  text += lines("commentary", element.commentaryText);
  if (element.nameOfNextFlowchart) text += " next " + quote(*element.nameOfNextFlowchart);
  return text;
}

std::string notation(bool value) { return value ? "true" : "false"; }

std::string notation(std::int64_t value) { return std::to_string(value); }

std::string notation(const std::string& value) { return quote(value); }

std::string boundsNotation(std::int64_t minX, std::int64_t maxX, std::int64_t minY,
                           std::int64_t maxY) {
  return "x " + range(minX, maxX) + " y " + range(minY, maxY);
}

}  // namespace tavrel
