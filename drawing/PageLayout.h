// How a picture is spread over pages.

#ifndef TAVREL_DRAWING_PAGELAYOUT_H
#define TAVREL_DRAWING_PAGELAYOUT_H

#include <vector>

#include "drawing/Pictures.h"

namespace tavrel::drawing {

/// A width and a height, in the picture's units or in points, as is said.
struct PageSize {
  double width;
  double height;
};

/// A piece of a picture's width or height, in its units.
struct PageSpan {
  double start;
  double length;
};

/// One picture's pages, all of one size.
struct PageLayout {
  PageSize page;  ///< in points
  double left;    ///< of what a page shows of the picture, in points; so `top`
  double top;
  double scale;                   ///< points for each of the picture's units
  std::vector<PageSpan> columns;  ///< what the pages show, from left to right
  std::vector<PageSpan> rows;     ///< and from top to bottom

  bool isTiled() const { return columns.size() * rows.size() > 1; }
};

/// The layout of a picture of that size, in its units. The rule is that of
/// PictureMakers::pdf. Throws std::runtime_error for one of too many pages.
PageLayout pageLayoutOf(const PageSize& picture, Paper paper, const SvgCuts& cuts);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_PAGELAYOUT_H
