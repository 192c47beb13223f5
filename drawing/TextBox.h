// A box as text: what stands in its frame, and how far it and the lines at its
// sides reach.

#ifndef TAVREL_DRAWING_TEXTBOX_H
#define TAVREL_DRAWING_TEXTBOX_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/CellSides.h"
#include "drawing/ChartGeometry.h"
#include "drawing/TextPicture.h"
#include "facade/Tavrel.h"
#include "text/Text.h"

namespace tavrel::drawing {

/// A grapheme cluster with what it stands for.
struct InkedGlyph {
  std::string glyph;
  int width;  ///< in columns
  Ink ink;
};
using InkedText = std::vector<InkedGlyph>;

/// The text made printable, in this ink but for the suits, which have their own
/// also where letters stand for them.
InkedText inked(std::string_view text, Ink ink, Charset charset);

int widthOf(const InkedText& text);

/// What is drawn of a box.
struct TextBox {
  std::vector<InkedText> lines;  ///< at least one
  InkedText link;                ///< stands in the bottom frame; empty without a link
  int width = 0;                 ///< of the frame, in columns
  int height = 0;                ///< of the frame, in lines
  bool isEnd = false;            ///< no exits
};

/// REQUIRES: element.isNode(). A text that is not UTF-8 shows as "(not UTF-8)".
TextBox textBoxOf(const ScreenElement& element, Charset charset);

/// Where a frame of that size stands around the centre of a cell.
TextWindow frameAround(std::int64_t centreX, std::int64_t centreY, const TextBox& box);

/// The word or words on an exit: "yes", "no", "yes/no", or "" where there is
/// none.
std::string_view exitLabel(const CellSide& side);

/// What the line at an element's side needs between the box's frame, or the
/// connector's centre, and the cell's edge, in characters or lines: its words,
/// its arrowhead, its cross.
int lineLength(const ScreenElement& element, const CellSide& side, XYDirection direction);

/// How far the element reaches as text, all that is drawn in its cell included.
ElementReach textReach(const ScreenElement& element, const CellSides& sides, Charset charset);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_TEXTBOX_H
