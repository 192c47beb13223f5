// The colours of a picture. They never carry a meaning alone.

#ifndef TAVREL_DRAWING_THEME_H
#define TAVREL_DRAWING_THEME_H

#include <optional>
#include <string_view>

#include "drawing/TextPicture.h"

namespace tavrel {

enum class Theme {
  light,     ///< dark on white, four suit colours
  dark,      ///< light on nearly black, four suit colours
  print,     ///< black on white alone, for any printer
  twoColour  ///< as light, but the suits red and black
};

namespace drawing {

/// Colours as "#rrggbb". All text stands out from `paper` and from `box`, and
/// from `place` too, by a contrast of at least 4.5 to 1.
struct Colours {
  std::string_view paper;  ///< behind everything
  std::string_view box;    ///< inside a frame
  std::string_view place;  ///< inside the frame of the place
  std::string_view text;
  std::string_view frame;
  std::string_view line;   ///< lines and arrowheads
  std::string_view label;  ///< the words yes and no
  std::string_view link;
  std::string_view path;  ///< frames and lines of the prepared path
  std::string_view clubs;
  std::string_view diamonds;
  std::string_view hearts;
  std::string_view spades;
};

const Colours& coloursOf(Theme theme);

/// The colour of a text's ink.
std::string_view colourOf(Ink ink, const Colours& colours);

}  // namespace drawing
}  // namespace tavrel

#endif  // TAVREL_DRAWING_THEME_H
