// What a text drawing is drawn on: the characters of one window. Everything is
// given in the drawing's coordinates, and what falls outside the window is
// dropped. The parts of lines and areas that are dropped cost nothing.

#ifndef TAVREL_DRAWING_TEXTCANVAS_H
#define TAVREL_DRAWING_TEXTCANVAS_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "drawing/BoxDrawing.h"
#include "drawing/TextBox.h"
#include "drawing/TextPicture.h"
#include "facade/Tavrel.h"
#include "text/Text.h"

namespace tavrel::drawing {

/// A character's place in a drawing.
struct Point {
  std::int64_t x;
  std::int64_t y;
};

/// How something is drawn. What is lit is drawn heavy.
struct Pen {
  Ink ink;
  bool lit = false;
  bool current = false;
};

class TextCanvas {
 public:
  TextCanvas(const TextWindow& window, Charset charset);

  /// Marks the rectangle's characters as the pen says, drawing nothing.
  void mark(const TextWindow& area, const Pen& pen);

  /// A line from the centre of one character to that of another in the same row
  /// or column.
  void line(Point from, Point to, const Pen& pen);

  /// A line from the character's centre to its edge.
  void stroke(Point at, XYDirection direction, const Pen& pen);

  /// One character in front of whatever else is drawn there.
  void glyph(Point at, std::string_view bytes, const Pen& pen);

  /// Text from `at` rightward, in the inks of its glyphs. Glyphs of no width are
  /// left out, and a wide one half inside the window shows as a blank.
  void text(Point at, const InkedText& text, const Pen& pen);

  /// What has been drawn, each crossing with the character that shows it.
  TextPicture picture() const;

 private:
  bool contains(Point at) const;
  TextCell& touched(Point at, const Pen& pen);
  Strokes& strokesAt(Point at);
  void wideGlyph(Point at, const InkedGlyph& glyph, const Pen& pen);

  TextWindow window_;
  Charset charset_;
  TextPicture picture_;           // glyphs, inks and marks
  std::vector<Strokes> strokes_;  // row by row, as in the picture
};

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_TEXTCANVAS_H
