#include "drawing/TextCanvas.h"

#include <algorithm>
#include <cstddef>

namespace tavrel::drawing {
namespace {

struct Span {
  std::int64_t first;
  std::int64_t last;  // inclusive
};

Span clipped(std::int64_t a, std::int64_t b, std::int64_t start, int length) {
  return {std::max(std::min(a, b), start), std::min(std::max(a, b), start + length - 1)};
}

}  // namespace

TextCanvas::TextCanvas(const TextWindow& window, Charset charset)
    : window_(window),
      charset_(charset),
      picture_(window.width, window.height),
      strokes_(static_cast<std::size_t>(picture_.width()) *
               static_cast<std::size_t>(picture_.height())) {
  window_.width = picture_.width();
  window_.height = picture_.height();
}

void TextCanvas::mark(const TextWindow& area, const Pen& pen) {
  const Span columns = clipped(area.left, area.left + area.width - 1, window_.left, window_.width);
  const Span rows = clipped(area.top, area.top + area.height - 1, window_.top, window_.height);
  for (std::int64_t y = rows.first; y <= rows.last; ++y) {
    for (std::int64_t x = columns.first; x <= columns.last; ++x) touched({x, y}, pen);
  }
}

void TextCanvas::line(Point from, Point to, const Pen& pen) {
  const bool across = from.y == to.y;
  const XYDirection forward = across ? XYDirectionXPlus : XYDirectionYPlus;
  const auto [low, high] = across ? std::minmax({from.x, to.x}) : std::minmax({from.y, to.y});
  const Span span = across ? clipped(low, high, window_.left, window_.width)
                           : clipped(low, high, window_.top, window_.height);
  for (std::int64_t at = span.first; at <= span.last; ++at) {
    const Point point = across ? Point{at, from.y} : Point{from.x, at};
    if (at > low) stroke(point, reversed(forward), pen);
    if (at < high) stroke(point, forward, pen);
  }
}

void TextCanvas::stroke(Point at, XYDirection direction, const Pen& pen) {
  if (!contains(at)) return;
  touched(at, pen);
  strokesAt(at).add(direction, pen.lit ? Weight::heavy : Weight::light);
}

void TextCanvas::glyph(Point at, std::string_view bytes, const Pen& pen) {
  if (!contains(at)) return;
  TextCell& cell = touched(at, pen);
  cell.glyph = bytes;
  cell.ink = pen.ink;
  strokesAt(at) = Strokes();
}

void TextCanvas::text(Point at, const InkedText& text, const Pen& pen) {
  for (const InkedGlyph& each : text) {
    if (each.width == 1) glyph(at, each.glyph, {each.ink, pen.lit, pen.current});
    if (each.width == 2) wideGlyph(at, each, pen);
    at.x += each.width;
  }
}

void TextCanvas::wideGlyph(Point at, const InkedGlyph& wide, const Pen& pen) {
  const Point right{at.x + 1, at.y};
  const bool whole = contains(at) && contains(right);
  const Pen own{wide.ink, pen.lit, pen.current};
  glyph(at, whole ? wide.glyph : " ", own);
  glyph(right, whole ? "" : " ", own);
}

TextPicture TextCanvas::picture() const {
  TextPicture picture = picture_;
  auto strokes = strokes_.begin();
  for (int row = 0; row < picture.height(); ++row) {
    for (int column = 0; column < picture.width(); ++column, ++strokes) {
      if (!strokes->empty()) picture.at(row, column).glyph = lineGlyph(*strokes, charset_);
    }
  }
  return picture;
}

bool TextCanvas::contains(Point at) const {
  return at.x >= window_.left && at.x - window_.left < window_.width && at.y >= window_.top &&
         at.y - window_.top < window_.height;
}

// The first ink stays: a frame that a line starts from remains a frame.
TextCell& TextCanvas::touched(Point at, const Pen& pen) {
  TextCell& cell =
      picture_.at(static_cast<int>(at.y - window_.top), static_cast<int>(at.x - window_.left));
  if (cell.ink == Ink::blank) cell.ink = pen.ink;
  cell.lit |= pen.lit;
  cell.current |= pen.current;
  return cell;
}

Strokes& TextCanvas::strokesAt(Point at) {
  const auto row = static_cast<std::size_t>(at.y - window_.top);
  const auto column = static_cast<std::size_t>(at.x - window_.left);
  return strokes_[row * static_cast<std::size_t>(window_.width) + column];
}

}  // namespace tavrel::drawing
