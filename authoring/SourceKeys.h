// The keys that a source has.

#ifndef TAVREL_AUTHORING_SOURCEKEYS_H
#define TAVREL_AUTHORING_SOURCEKEYS_H

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrel::authoring {

inline constexpr std::array<std::string_view, 7> chartKeys = {"chart", "intro", "start", "entry",
                                                              "turn",  "width", "boxes"};
inline constexpr std::array<std::string_view, 7> boxKeys = {"text",  "comment", "yes", "no",
                                                            "chart", "turn",    "id"};

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

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCEKEYS_H
