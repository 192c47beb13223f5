#include "drawing/PageLayout.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "drawing/SvgBox.h"

namespace tavrel::drawing {
namespace {

constexpr double usualScale = 0.75;    // a screen's pixel on paper
constexpr double longestSide = 14400;  // that readers of PDF show
constexpr double margin = 36;          // printers need about half; marks and words stand in it
constexpr double smallestText = 6.5;
constexpr double tiledText = 9;
constexpr int mostPages = 500;

PageSize pageOf(Paper paper) {
  return paper == Paper::a4 ? PageSize{595.28, 841.89} : PageSize{612, 792};
}

PageSize sideways(const PageSize& page) { return {page.height, page.width}; }

PageLayout onOwnPage(const PageSize& picture) {
  const double scale = std::min(usualScale, longestSide / std::max(picture.width, picture.height));
  const PageSize page{picture.width * scale, picture.height * scale};
  return {page, 0, 0, page, scale, 1, 1};
}

double fittingScale(const PageSize& picture, const PageSize& page) {
  return std::min({usualScale, (page.width - 2 * margin) / picture.width,
                   (page.height - 2 * margin) / picture.height});
}

PageLayout onOnePage(const PageSize& picture, const PageSize& page) {
  const double scale = fittingScale(picture, page);
  const PageSize area{picture.width * scale, picture.height * scale};
  return {page, (page.width - area.width) / 2, (page.height - area.height) / 2, area, scale, 1, 1};
}

// As many as it takes; more than there are integers count as that many.
int pagesFor(double length, double onePage) {
  return static_cast<int>(std::min(std::ceil(length / onePage), 1e6));
}

PageLayout tiled(const PageSize& picture, const PageSize& page) {
  const PageSize area{page.width - 2 * margin, page.height - 2 * margin};
  const double scale = tiledText / svg::fontSize;
  return {page,
          margin,
          margin,
          area,
          scale,
          pagesFor(picture.width * scale, area.width),
          pagesFor(picture.height * scale, area.height)};
}

double pagesOf(const PageLayout& layout) { return double{1} * layout.across * layout.down; }

PageLayout withFewerPages(const PageLayout& a, const PageLayout& b) {
  const PageLayout& fewer = pagesOf(b) < pagesOf(a) ? b : a;
  if (pagesOf(fewer) <= mostPages) return fewer;
  throw std::runtime_error("it would take more than " + std::to_string(mostPages) +
                           " pages; draw it with --page fit");
}

}  // namespace

PageLayout pageLayoutOf(const PageSize& picture, Paper paper) {
  if (paper == Paper::fit) return onOwnPage(picture);
  const PageSize upright = pageOf(paper);
  const PageSize turned = sideways(upright);
  const bool isBetterTurned = fittingScale(picture, turned) > fittingScale(picture, upright);
  const PageLayout one = onOnePage(picture, isBetterTurned ? turned : upright);
  if (one.scale * svg::fontSize >= smallestText) return one;
  return withFewerPages(tiled(picture, upright), tiled(picture, turned));
}

}  // namespace tavrel::drawing
