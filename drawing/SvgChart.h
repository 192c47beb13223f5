// A flowchart as a picture in SVG.
//
//     Tavrel navigator("charts");
//     navigator.startNewPathForFlowchartAtIndexYesNoString(0, "ny");
//     const SvgChart chart(navigator, {"Deciding on an Opening Bid"});
//     puts(chart.svg().c_str());
//
// Larger x is further right, larger y further down. Columns and rows keep the
// order and at least the distances of the layout offsets. Boxes stand in frames,
// round ones where the chart ends; a box that leads into another flowchart names
// it below its text and is a link to that picture. The words yes and no stand on
// the exits, an arrowhead where a line arrives, a cross where a line leads to
// nothing.
//
// Without colour too, what the prepared path passes has heavy lines with larger
// arrowheads and double frames, and the place has a heavy frame and a disc on its
// upper left corner.
//
// Text is text, in the reader's own fonts: it can be searched, copied and read
// aloud. Frames are measured for wide fonts (see FontWidths.h). What a reader's
// program finds out about the picture:
//
//   - the picture is a document with a title;
//   - each box is a group with the id box-X-Y, by its cell, and a title that says
//     its text, what its exits lead to, the flowchart it leads into, and whether it
//     is on the path or the place: "12+? Yes: Open. No: Pass. On the path.";
//   - boxes come in reading order: from the root along the exits, what yes leads
//     to before what no leads to, each box once;
//   - all that is seen is hidden from it: the titles say it.
//
// There are no scripts and no styles that could reach what stands around the
// picture. Text that is not fit to be shown is made so (see printable in
// text/Text.h). A box with a line that is not UTF-8 shows "(not UTF-8)".

#ifndef TAVREL_DRAWING_SVGCHART_H
#define TAVREL_DRAWING_SVGCHART_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "drawing/Theme.h"
#include "facade/Tavrel.h"

namespace tavrel {

namespace drawing {
struct SvgScene;
}

/// A cell of the grid.
struct GridPlace {
  std::int64_t x;
  std::int64_t y;
};

struct SvgOptions {
  std::string title;  ///< of the whole; the flowchart's file name if empty
  Theme theme = Theme::light;
  std::optional<GridPlace> place;      ///< the box to be lit; none without it
  std::string linkExtension = ".svg";  ///< a link to RespNT leads to the file RespNT.svg
};

/// A part of a picture, in its units. (0, 0) is the picture's top left.
struct SvgArea {
  std::int64_t left;
  std::int64_t top;
  std::int64_t width;
  std::int64_t height;
};

/// Where a picture may be cut without cutting a box: between its columns, counted from its left
/// edge, and between its rows, counted from its top. In its units, increasing.
struct SvgCuts {
  std::vector<std::int64_t> columns;
  std::vector<std::int64_t> rows;
};

/// The picture of one flowchart. Measured once, it can write any part of itself, as often as
/// wanted. Keeps nothing of the navigator. Never changes; any number of threads may use it at
/// once. One that has been moved from may only be destroyed or assigned to.
class SvgChart {
 public:
  /// Measures the navigator's current flowchart, path marks as they are at this moment. Throws
  /// what `Tavrel::elementsInBounds` throws. Cost: a sort of the flowchart's elements; memory
  /// follows their number, not their coordinates.
  SvgChart(const Tavrel& navigator, const SvgOptions& options);

  ~SvgChart();
  SvgChart(SvgChart&& other) noexcept;
  SvgChart& operator=(SvgChart&& other) noexcept;
  SvgChart(const SvgChart&) = delete;
  SvgChart& operator=(const SvgChart&) = delete;

  /// The picture's size, the paper's margins included.
  std::int64_t width() const;
  std::int64_t height() const;

  SvgCuts cuts() const;

  /// The whole, ending in a line feed. The same chart always gives the same bytes.
  std::string svg() const { return svg({0, 0, width(), height()}); }

  /// A picture of the area alone. Boxes and lines that reach into it are in it, others aren't.
  std::string svg(const SvgArea& area) const;

 private:
  std::unique_ptr<const drawing::SvgScene> scene_;
};

}  // namespace tavrel

#endif  // TAVREL_DRAWING_SVGCHART_H
