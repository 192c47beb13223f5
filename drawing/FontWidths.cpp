#include "drawing/FontWidths.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "text/Text.h"

namespace tavrel::drawing {
namespace {

// In thousandths of the font's size, from the blank to the tilde.
constexpr std::array<int, 95> asciiWidths = {
    318, 401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361,  318, 337, 636, 636, 636,
    636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 531, 1000, 684, 686, 698, 770, 632,
    575, 775, 752, 295, 295, 656, 557, 863, 748, 787, 603, 787, 695, 635,  611, 732, 684, 989, 685,
    611, 685, 390, 337, 390, 838, 500, 500, 613, 635, 550, 635, 615, 352,  635, 634, 278, 278, 579,
    278, 974, 634, 612, 635, 635, 411, 521, 392, 634, 592, 818, 592, 592,  525, 636, 337, 636, 838};

// What charts are full of and no letter resembles. The suits are drawn an eighth larger than
// letters, to tell clubs from spades.
constexpr std::array<std::pair<std::string_view, int>, 8> signWidths = {{{"♣", 1024},
                                                                         {"♦", 1024},
                                                                         {"♥", 1024},
                                                                         {"♠", 1024},
                                                                         {"–", 500},
                                                                         {"—", 1000},
                                                                         {"…", 1000},
                                                                         {"→", 838}}};

constexpr int unknownWidth = 1100;      // of most letters of most scripts
constexpr int unknownWideWidth = 1300;  // of pictographs

int asciiWidth(std::string_view text) {
  int width = 0;
  for (const char byte : text) width += asciiWidths[static_cast<std::size_t>(byte - ' ')];
  return width;
}

// A letter with accents is as wide as the letter.
int widthOf(const Glyph& glyph) {
  if (glyph.width == 0) return 0;
  if (glyph.width == 2) return unknownWideWidth;
  const auto* const sign =
      std::find_if(signWidths.begin(), signWidths.end(),
                   [&](const auto& known) { return known.first == glyph.bytes; });
  if (sign != signWidths.end()) return sign->second;
  const std::string plain = printable(glyph.bytes, Charset::plain);
  return plain == "?" && glyph.bytes != "?" ? unknownWidth : asciiWidth(plain);
}

}  // namespace

std::int64_t fontWidth(std::string_view text, int fontSize) {
  std::int64_t thousandths = 0;
  for (const Glyph& glyph : glyphs(text)) thousandths += widthOf(glyph);
  return (thousandths * fontSize + 999) / 1000;
}

}  // namespace tavrel::drawing
