// How wide text is in a picture, where nobody knows yet which font will show it.
//
// The widths are those of DejaVu Sans, which Verdana shares: of the fonts that
// systems have for their own words these are the widest, so that a text drawn
// with another keeps inside the frame that was measured for it.

#ifndef TAVREL_DRAWING_FONTWIDTHS_H
#define TAVREL_DRAWING_FONTWIDTHS_H

#include <cstdint>
#include <string_view>

namespace tavrel::drawing {

/// The width of printable text (see text/Text.h) in a font of that size, in the
/// size's units and rounded up. Cost: one pass.
std::int64_t fontWidth(std::string_view text, int fontSize);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_FONTWIDTHS_H
