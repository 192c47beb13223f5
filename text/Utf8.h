// Whether bytes are UTF-8.

#ifndef TAVREL_TEXT_UTF8_H
#define TAVREL_TEXT_UTF8_H

#include <cstddef>
#include <string_view>

namespace tavrel {

/// The offset of the first byte that begins no character of well-formed UTF-8: no overlong
/// forms, no surrogates, nothing beyond U+10FFFF. npos where there is none. Cost: one pass.
std::size_t firstThatIsNotUtf8(std::string_view bytes);

}  // namespace tavrel

#endif  // TAVREL_TEXT_UTF8_H
