// A flowchart drawn with characters.
//
//     Tavrel navigator("charts");
//     navigator.resetToStartLocationForFlowchartAtIndex(0);
//     const TextChart chart(navigator, Charset::utf8);
//     const TextPicture picture = chart.paint(navigator, {0, 0, 80, 24});
//     for (int row = 0; row < picture.height(); ++row) puts(picture.line(row).c_str());
//
// Larger x is further right, larger y further down. Boxes stand in frames, round
// ones where the chart ends; the frame's bottom names the flowchart that a box
// leads into. The words yes and no stand on the exits, an arrowhead where a line
// arrives, a cross where a line leads to nothing. What the prepared path passes
// is drawn heavy: with ━ and ┃, in plain with = and #.
//
//     ┌──────┐      ╭──────╮
//     │ 12+? ├─yes─▶│ Open │
//     └──┬───┘      ╰──────╯
//        │ no
//        ▼
//     ╭──────╮
//     │ Pass │
//     ╰──────╯
//
// Text that is not fit for a terminal is made so (see printable in Text.h). A box
// with a line that is not UTF-8 shows "(not UTF-8)" instead of its text.

#ifndef TAVREL_DRAWING_TEXTCHART_H
#define TAVREL_DRAWING_TEXTCHART_H

#include <cstdint>
#include <vector>

#include "drawing/ChartGeometry.h"
#include "drawing/TextPicture.h"
#include "facade/Tavrel.h"
#include "text/Text.h"

namespace tavrel {

/// The places of one flowchart's elements in a drawing of characters. Measured
/// once, it can paint any part of the drawing, as often as wanted. Keeps nothing
/// of the navigator. Never changes; any number of threads may use it at once,
/// each with a navigator of its own.
class TextChart {
 public:
  /// Measures the navigator's current flowchart. Throws what
  /// `Tavrel::currentFlowchartBounds` throws. Cost: a copy and a sort of the
  /// flowchart's elements; memory follows their number, not their coordinates.
  TextChart(const Tavrel& navigator, Charset charset);

  /// The drawing's size, in characters and lines; 0 for a flowchart without
  /// elements.
  std::int64_t width() const;
  std::int64_t height() const;

  /// Where the element in cell (x, y) is drawn: a box's frame, or all of a
  /// connector's cell. A window of no width and height at (0, 0) for an empty
  /// cell.
  TextWindow frameOf(std::int64_t x, std::int64_t y) const;

  /// What shows in the window; blank beyond the drawing. Path marks and the
  /// cursor are the navigator's at this moment. A wide character that is half
  /// inside shows as a blank. Throws what `Tavrel::elementsInBounds` throws.
  /// Cost: that of asking for the elements that show and those next to them, and
  /// the window's size.
  ///
  /// REQUIRES: the navigator's current flowchart is the one measured, and has not
  /// been read again since. Otherwise the picture means nothing, but no harm is
  /// done.
  TextPicture paint(const Tavrel& navigator, const TextWindow& window) const;

 private:
  struct Place {
    std::int64_t x;
    std::int64_t y;
    TextWindow frame;
  };

  TextChart(const drawing::ElementGrid& grid, Charset charset);
  TextWindow measured(const ScreenElement& element) const;
  ScreenBounds cellsIn(const TextWindow& window) const;

  Charset charset_;
  drawing::ChartGeometry geometry_;
  std::vector<Place> places_;  // by y, then by x
};

}  // namespace tavrel

#endif  // TAVREL_DRAWING_TEXTCHART_H
