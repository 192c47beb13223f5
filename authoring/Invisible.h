// Characters that look like blanks or like nothing at all.

#ifndef TAVREL_AUTHORING_INVISIBLE_H
#define TAVREL_AUTHORING_INVISIBLE_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace tavrel::authoring {

struct Invisible {
  std::size_t offset;     ///< in the text, in bytes
  std::string_view name;  ///< "a no-break space"
};

/// The first of them in a text, nothing if there is none. Blanks and control characters are
/// none of them.
std::optional<Invisible> firstInvisible(std::string_view text);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_INVISIBLE_H
