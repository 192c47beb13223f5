// Characters that look like blanks or like nothing at all, or move what is shown.

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

/// How many bytes the control character has that begins a text: one of ASCII but for the line
/// feed, DEL, or one from U+0080 to U+009F. 0 if another character begins it, or none.
std::size_t controlAt(std::string_view text);

/// The same for the byte order mark.
std::size_t byteOrderMarkAt(std::string_view text);

/// Whether one of these stands anywhere in the text.
bool hasControl(std::string_view text);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_INVISIBLE_H
