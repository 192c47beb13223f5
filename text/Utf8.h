// UTF-8, byte by byte, and what is taken for it.

#ifndef TAVREL_TEXT_UTF8_H
#define TAVREL_TEXT_UTF8_H

#include <cstddef>
#include <string_view>

namespace tavrel {

/// Whether a byte goes on with a character that began before it. Where the bytes are no UTF-8,
/// that means little.
inline bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The offset of the first byte that begins no character of well-formed UTF-8: no overlong
/// forms, no surrogates, nothing beyond U+10FFFF. npos where there is none. Cost: one pass.
std::size_t firstThatIsNotUtf8(std::string_view bytes);

/// Whether bytes are a file in UTF-16, by the byte order mark at its start or, without one, by the
/// zero bytes of its first two characters.
bool isUtf16(std::string_view bytes);

}  // namespace tavrel

#endif  // TAVREL_TEXT_UTF8_H
