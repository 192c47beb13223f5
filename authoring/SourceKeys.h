// The keys that a source has.

#ifndef TAVREL_AUTHORING_SOURCEKEYS_H
#define TAVREL_AUTHORING_SOURCEKEYS_H

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrel::authoring {

inline constexpr std::array<std::string_view, 8> chartKeys = {"chart", "intro", "start",   "entry",
                                                              "turn",  "width", "applies", "boxes"};
inline constexpr std::array<std::string_view, 14> boxKeys = {
    "text", "comment", "yes",   "no",      "chart", "turn",  "when",
    "asks", "call",    "shows", "forcing", "next",  "never", "id"};

inline bool isChartKey(std::string_view word) {
  return std::find(chartKeys.begin(), chartKeys.end(), word) != chartKeys.end();
}

inline bool isBoxKey(std::string_view word) {
  return std::find(boxKeys.begin(), boxKeys.end(), word) != boxKeys.end();
}

/// Whether the key has a text that people read.
inline bool isTextKey(std::string_view word) {
  return word == "text" || word == "comment" || word == "intro";
}

/// Whether the key has an expression, or the calls of an auction: no sign in it is a remark's.
inline bool isExpressionKey(std::string_view word) {
  return word == "when" || word == "shows" || word == "hand" || word == "auction";
}

/// Whether the key has one or the other.
inline bool hasText(std::string_view word) { return isTextKey(word) || isExpressionKey(word); }

/// Whether the key has a map or a list, but no box.
inline bool isGroupKey(std::string_view word) {
  return word == "applies" || word == "call" || word == "never";
}

/// Whether the key may have a list.
inline bool isListKey(std::string_view word) { return word == "call" || word == "auction"; }

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCEKEYS_H
