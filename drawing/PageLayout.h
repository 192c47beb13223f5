// How a picture is spread over pages.

#ifndef TAVREL_DRAWING_PAGELAYOUT_H
#define TAVREL_DRAWING_PAGELAYOUT_H

#include <cstdint>
#include <vector>

#include "drawing/Pictures.h"

namespace tavrel::drawing {

/// Around what a page shows of a picture, in points. Printers need about half; marks and words
/// stand in it.
constexpr double pageMargin = 36;

/// A page's size, in points.
struct PageSize {
  double width;
  double height;
};

/// A piece of a picture's width or height, in its units.
struct PageSpan {
  std::int64_t start;
  std::int64_t length;
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

/// What there is to know of a picture, in its units.
struct PictureSize {
  std::int64_t width;
  std::int64_t height;
  SvgCuts cuts;
};

/// The layout of a picture. The rule is that of PictureMakers::pdf. Throws
/// std::runtime_error for one of too many pages.
PageLayout pageLayoutOf(const PictureSize& picture, Paper paper);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_PAGELAYOUT_H
