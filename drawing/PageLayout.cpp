#include "drawing/PageLayout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
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
constexpr std::size_t mostPages = 500;

PageSize pageOf(Paper paper) {
  return paper == Paper::a4 ? PageSize{595.28, 841.89} : PageSize{612, 792};
}

PageSize sideways(const PageSize& page) { return {page.height, page.width}; }

PageLayout onOwnPage(const PageSize& picture) {
  const double scale = std::min(usualScale, longestSide / std::max(picture.width, picture.height));
  const PageSize page{picture.width * scale, picture.height * scale};
  return {page, 0, 0, scale, {{0, picture.width}}, {{0, picture.height}}};
}

double fittingScale(const PageSize& picture, const PageSize& page) {
  return std::min({usualScale, (page.width - 2 * margin) / picture.width,
                   (page.height - 2 * margin) / picture.height});
}

PageLayout onOnePage(const PageSize& picture, const PageSize& page) {
  const double scale = fittingScale(picture, page);
  return {page,
          (page.width - picture.width * scale) / 2,
          (page.height - picture.height * scale) / 2,
          scale,
          {{0, picture.width}},
          {{0, picture.height}}};
}

// Where the piece that begins at `start` ends: at the last cut in reach, or else as far as a
// page reaches.
double endOfSpan(double start, double room, double length, const std::vector<std::int64_t>& cuts) {
  if (start + room >= length) return length;
  const auto beyond =
      std::upper_bound(cuts.begin(), cuts.end(), start + room,
                       [](double end, std::int64_t cut) { return end < static_cast<double>(cut); });
  if (beyond == cuts.begin()) return start + room;
  const auto cut = static_cast<double>(*std::prev(beyond));
  return cut > start ? cut : start + room;
}

// One more than the most pages is enough to know that they are too many.
std::vector<PageSpan> spansOf(double length, double room, const std::vector<std::int64_t>& cuts) {
  std::vector<PageSpan> spans;
  for (double start = 0; start < length && spans.size() <= mostPages;) {
    const double end = endOfSpan(start, room, length, cuts);
    spans.push_back({start, end - start});
    start = end;
  }
  return spans;
}

PageLayout tiled(const PageSize& picture, const PageSize& page, const SvgCuts& cuts) {
  const double scale = tiledText / svg::fontSize;
  return {page,
          margin,
          margin,
          scale,
          spansOf(picture.width, (page.width - 2 * margin) / scale, cuts.columns),
          spansOf(picture.height, (page.height - 2 * margin) / scale, cuts.rows)};
}

std::size_t pagesOf(const PageLayout& layout) { return layout.columns.size() * layout.rows.size(); }

PageLayout withFewerPages(const PageLayout& a, const PageLayout& b) {
  const PageLayout& fewer = pagesOf(b) < pagesOf(a) ? b : a;
  if (pagesOf(fewer) <= mostPages) return fewer;
  throw std::runtime_error("it would take more than " + std::to_string(mostPages) +
                           " pages; draw it with --page fit");
}

}  // namespace

PageLayout pageLayoutOf(const PageSize& picture, Paper paper, const SvgCuts& cuts) {
  if (paper == Paper::fit) return onOwnPage(picture);
  const PageSize upright = pageOf(paper);
  const PageSize turned = sideways(upright);
  const bool isBetterTurned = fittingScale(picture, turned) > fittingScale(picture, upright);
  const PageLayout one = onOnePage(picture, isBetterTurned ? turned : upright);
  if (one.scale * svg::fontSize >= smallestText) return one;
  return withFewerPages(tiled(picture, upright, cuts), tiled(picture, turned, cuts));
}

}  // namespace tavrel::drawing
