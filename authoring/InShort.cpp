#include "authoring/InShort.h"

#include <cstddef>

#include "text/Text.h"

namespace tavrel::authoring {

std::string inShort(std::string_view word) {
  constexpr std::size_t most = 40, mostBytes = 4 * most;
  const std::string piece = printable(word.substr(0, mostBytes), Charset::utf8);
  std::string shown;
  std::size_t count = 0;
  for (const Glyph& glyph : glyphs(piece)) {
    if (count++ == most) return shown + "…";
    shown += glyph.bytes;
  }
  return word.size() > mostBytes ? shown + "…" : shown;
}

}  // namespace tavrel::authoring
