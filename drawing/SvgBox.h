// A box as a picture: what stands in its frame, and how far it and the lines at
// its sides reach. All sizes are in the picture's units, which are the pixels of
// a screen at its usual scale.

#ifndef TAVREL_DRAWING_SVGBOX_H
#define TAVREL_DRAWING_SVGBOX_H

#include <cstdint>

#include "drawing/CellSides.h"
#include "drawing/ChartGeometry.h"
#include "drawing/TextBox.h"
#include "facade/Tavrel.h"

namespace tavrel::drawing {

/// The measures of a picture.
namespace svg {
constexpr int fontSize = 14;
constexpr int suitSize = 16;  ///< of the suits' signs among text; FontWidths reckons with it
constexpr int lineHeight = 20;
constexpr int baseline = 15;       ///< of a line of text, from its top
constexpr int character = 8;       ///< what a character of the layout offsets is
constexpr int sidePadding = 16;    ///< between a frame and its text; an inner frame stands in it
constexpr int rowPadding = 10;     ///< so above and below
constexpr int smallFontSize = 12;  ///< of yes and no, and of a link's name
constexpr int labelGap = 7;        ///< between a label and its frame, and its line
constexpr int labelAbove = 6;      ///< between a line and the baseline of the label above it
constexpr int labelHeight = 12;
constexpr int headLength = 11;  ///< of an arrowhead
constexpr int headHalfWidth = 5;
constexpr int litHeadLength = 14;  ///< of one whose line is heavy; it takes from leastLine
constexpr int litHeadHalfWidth = 7;
constexpr int headClearance = 3;  ///< between the tip and the middle of the frame's stroke
constexpr int leastLine = 9;      ///< what is seen of a line beside its head
constexpr int crossSize = 5;      ///< from a cross's middle to its corners' sides
constexpr int bend = 7;           ///< the radius of a line's bends
constexpr int boxMargin = 9;      ///< around a box at the sides without a line
constexpr int lineMargin = 14;    ///< around the middle of a connector cell
constexpr int paperMargin = 24;   ///< around the whole
}  // namespace svg

/// What is drawn of a box.
struct SvgBox {
  TextBox text;         ///< its lines and its link; the sizes there are of characters
  std::int64_t width;   ///< of the frame; even
  std::int64_t height;  ///< of the frame; even
};

/// REQUIRES: element.isNode().
SvgBox svgBoxOf(const ScreenElement& element);

/// Ink after ink, a line's text in as few pieces as can be.
InkedText inRuns(const InkedText& line);

/// The text of a line or a link, without its inks.
std::string plainText(const InkedText& line);

/// How far it is from the box's frame, or the connector's centre, to the end of
/// what the line at this side needs: its words, its arrowhead, its cross.
std::int64_t svgLineLength(const ScreenElement& element, const CellSide& side,
                           XYDirection direction);

/// How far the element reaches, all that is drawn in its cell included.
ElementReach svgReach(const ScreenElement& element, const CellSides& sides);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_SVGBOX_H
