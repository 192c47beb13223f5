#include "drawing/PageLayout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

#include "drawing/SvgBox.h"

namespace tavrel::drawing {
namespace {

constexpr double usualScale = 0.75;    // a screen's pixel on paper
constexpr double longestSide = 14400;  // that readers of PDF show
constexpr double smallestText = 6.5;
constexpr double tiledTexts[] = {9, 8.5, 8};  // the best first
constexpr std::size_t mostPages = 500;

PageSize pageOf(Paper paper) {
  return paper == Paper::a4 ? PageSize{595.28, 841.89} : PageSize{612, 792};
}

PageSize sideways(const PageSize& page) { return {page.height, page.width}; }

PageSize scaled(const PictureSize& picture, double scale) {
  return {static_cast<double>(picture.width) * scale, static_cast<double>(picture.height) * scale};
}

PageLayout onOwnPage(const PictureSize& picture) {
  const PageSize usual = scaled(picture, usualScale);
  const double scale =
      usualScale * std::min(1.0, longestSide / std::max(usual.width, usual.height));
  return {scaled(picture, scale), 0, 0, scale, {{0, picture.width}}, {{0, picture.height}}};
}

double fittingScale(const PictureSize& picture, const PageSize& page) {
  const PageSize usual = scaled(picture, usualScale);
  return usualScale * std::min({1.0, (page.width - 2 * pageMargin) / usual.width,
                                (page.height - 2 * pageMargin) / usual.height});
}

PageLayout onOnePage(const PictureSize& picture, const PageSize& page) {
  const double scale = fittingScale(picture, page);
  const PageSize area = scaled(picture, scale);
  return {page,  (page.width - area.width) / 2, (page.height - area.height) / 2,
          scale, {{0, picture.width}},          {{0, picture.height}}};
}

// Where the piece that begins at `start` ends: at the last cut in reach, or else as far as a
// page reaches.
std::int64_t endOfSpan(std::int64_t start, std::int64_t room, std::int64_t length,
                       const std::vector<std::int64_t>& cuts) {
  if (length - start <= room) return length;
  const auto beyond = std::upper_bound(cuts.begin(), cuts.end(), start + room);
  if (beyond == cuts.begin() || *std::prev(beyond) <= start) return start + room;
  return *std::prev(beyond);
}

// One more than the most pages is enough to know that they are too many.
std::vector<PageSpan> spansOf(std::int64_t length, double room,
                              const std::vector<std::int64_t>& cuts) {
  std::vector<PageSpan> spans;
  for (std::int64_t start = 0; start < length && spans.size() <= mostPages;) {
    const std::int64_t end = endOfSpan(start, static_cast<std::int64_t>(room), length, cuts);
    spans.push_back({start, end - start});
    start = end;
  }
  return spans;
}

PageLayout tiled(const PictureSize& picture, const PageSize& page, double text) {
  const double scale = text / svg::fontSize;
  return {page,
          pageMargin,
          pageMargin,
          scale,
          spansOf(picture.width, (page.width - 2 * pageMargin) / scale, picture.cuts.columns),
          spansOf(picture.height, (page.height - 2 * pageMargin) / scale, picture.cuts.rows)};
}

std::size_t pagesOf(const PageLayout& layout) { return layout.columns.size() * layout.rows.size(); }

// Of two that take as many the one with larger text.
PageLayout onFewestPages(const PictureSize& picture, const PageSize& upright) {
  PageLayout fewest = tiled(picture, upright, tiledTexts[0]);
  for (const double text : tiledTexts) {
    for (const PageSize& page : {upright, sideways(upright)}) {
      PageLayout layout = tiled(picture, page, text);
      if (pagesOf(layout) < pagesOf(fewest)) fewest = std::move(layout);
    }
  }
  if (pagesOf(fewest) <= mostPages) return fewest;
  throw std::runtime_error("it would take more than " + std::to_string(mostPages) +
                           " pages; draw it with --page fit");
}

}  // namespace

PageLayout pageLayoutOf(const PictureSize& picture, Paper paper) {
  if (paper == Paper::fit) return onOwnPage(picture);
  const PageSize upright = pageOf(paper);
  const PageSize turned = sideways(upright);
  const bool isBetterTurned = fittingScale(picture, turned) > fittingScale(picture, upright);
  const PageLayout one = onOnePage(picture, isBetterTurned ? turned : upright);
  if (one.scale * svg::fontSize >= smallestText) return one;
  return onFewestPages(picture, upright);
}

}  // namespace tavrel::drawing
