#include "text/Utf8.h"

#include <utf8proc.h>

#include <algorithm>

namespace tavrel {

std::size_t firstThatIsNotUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    if (static_cast<unsigned char>(bytes[at]) < 0x80) {
      ++at;
      continue;
    }
    utf8proc_int32_t codepoint = -1;
    const auto length = static_cast<utf8proc_ssize_t>(std::min<std::size_t>(bytes.size() - at, 4));
    const utf8proc_ssize_t used = utf8proc_iterate(
        reinterpret_cast<const utf8proc_uint8_t*>(bytes.data() + at), length, &codepoint);
    if (used < 1) return at;
    at += static_cast<std::size_t>(used);
  }
  return std::string_view::npos;
}

bool isUtf16(std::string_view bytes) {
  const std::string_view start = bytes.substr(0, 2);
  if (start == "\xFF\xFE" || start == "\xFE\xFF") return true;
  if (bytes.size() < 4) return false;
  return (bytes[0] == '\0' && bytes[2] == '\0') || (bytes[1] == '\0' && bytes[3] == '\0');
}

}  // namespace tavrel
