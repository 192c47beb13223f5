// How a picture is spread over pages.

#ifndef TAVREL_DRAWING_PAGELAYOUT_H
#define TAVREL_DRAWING_PAGELAYOUT_H

#include "drawing/Pictures.h"

namespace tavrel::drawing {

/// A width and a height, in the picture's units or in points, as is said.
struct PageSize {
  double width;
  double height;
};

/// One picture's pages, all of one size. Lengths are in points.
struct PageLayout {
  PageSize page;
  double left;  ///< of the part of a page that shows the picture
  double top;
  PageSize area;  ///< of that part
  double scale;   ///< points for each of the picture's units
  int across;     ///< pages from left to right
  int down;       ///< pages from top to bottom

  bool isTiled() const { return across * down > 1; }
};

/// The layout of a picture of that size, in its units. The rule is that of
/// PictureMakers::pdf. Throws std::runtime_error for one of too many pages.
PageLayout pageLayoutOf(const PageSize& picture, Paper paper);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_PAGELAYOUT_H
