#include "hosts/tavrel/WalkView.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace tavrel {
namespace {

// From this width on, the panel stands beside the chart instead of below it.
constexpr int wideScreen = 120;
constexpr int widestPanel = 72;
constexpr int highestPanel = 10;
// Fewer rows than this are left to the chart and one row of status.
constexpr int lowScreen = 8;

// What is kept in view around the current box where there is room.
constexpr int sideMargin = 6;
constexpr int rowMargin = 2;

struct Span {
  std::int64_t first;
  int length;
};

// Where a window of `size` on a drawing of `length` should start, so that the span
// and a margin around it are seen, with as little scrolling from `start` as that
// takes. A drawing that fits is centred; of a span that doesn't, the start shows.
std::int64_t scrolled(std::int64_t start, int size, std::int64_t length, const Span& span,
                      int margin) {
  if (length <= size) return -(size - length) / 2;
  const int room = size - span.length;
  if (room <= 0) return span.first;
  const std::int64_t around = std::min(margin, room / 2);
  start = std::max(start, span.first + span.length + around - size);
  start = std::min(start, span.first - around);
  return std::clamp<std::int64_t>(start, 0, length - size);
}

}  // namespace

WalkView::WalkView(Terminal& terminal, Charset charset)
    : terminal_(terminal), charset_(charset), panel_(terminal, charset) {}

void WalkView::chartChanged() {
  chart_.reset();
  window_ = {0, 0, 0, 0};
  placeChanged();
}

void WalkView::draw(const Walk& walk, const std::string& message, const std::string& notice) {
  if (!chart_) chart_.emplace(walk.navigator(), charset_);
  layOut();
  const auto [name, x, y] = walk.navigator().currentLocation();
  scrollTo(chart_->frameOf(x, y));
  terminal_.clear();
  drawChart(walk);
  panel_.draw(walk, panelArea_, message, notice);
  drawRule();
  terminal_.show();
}

void WalkView::layOut() {
  const int height = terminal_.height();
  const int width = terminal_.width();
  if (width >= wideScreen && height >= lowScreen) {
    const int panelWidth = std::min(widestPanel, width * 2 / 5);
    panelArea_ = {0, width - panelWidth, height, panelWidth};
    chartArea_ = {0, 0, height, width - panelWidth - 1};  // the rule stands between them
    return;
  }
  const int panelHeight =
      height < lowScreen ? std::min(1, height - 1) : std::min(highestPanel, height / 3 + 1);
  panelArea_ = {height - panelHeight, 0, panelHeight, width};
  chartArea_ = {0, 0, height - panelHeight, width};
}

void WalkView::scrollTo(const TextWindow& frame) {
  window_.width = chartArea_.width;
  window_.height = chartArea_.height;
  window_.left =
      scrolled(window_.left, window_.width, chart_->width(), {frame.left, frame.width}, sideMargin);
  window_.top =
      scrolled(window_.top, window_.height, chart_->height(), {frame.top, frame.height}, rowMargin);
}

void WalkView::drawChart(const Walk& walk) {
  const TextPicture picture = chart_->paint(walk.navigator(), window_);
  for (int row = 0; row < picture.height(); ++row) {
    for (int column = 0; column < picture.width(); ++column) {
      const TextCell& cell = picture.at(row, column);
      if (cell.glyph.empty()) continue;
      terminal_.put(chartArea_.top + row, chartArea_.left + column, cell.glyph,
                    {cell.ink, cell.lit, cell.current, false});
    }
  }
}

// Between a chart and the panel beside it; above one that stands below, the title
// is the rule.
void WalkView::drawRule() {
  if (panelArea_.left == 0) return;
  const bool utf8 = charset_ == Charset::utf8;
  const std::string_view corner = utf8 ? "┌" : "+";
  const std::string_view rule = utf8 ? "│" : "|";
  for (int row = 0; row < panelArea_.height; ++row) {
    terminal_.put(row, panelArea_.left - 1, row == 0 ? corner : rule, {Ink::line});
  }
}

}  // namespace tavrel
