#include "drawing/SvgBox.h"

#include <algorithm>
#include <string>

#include "drawing/FontWidths.h"

namespace tavrel::drawing {
namespace {

using namespace svg;

std::int64_t even(std::int64_t length) { return length + length % 2; }

std::int64_t labelWidth(const CellSide& side) { return fontWidth(exitLabel(side), smallFontSize); }

// Beside a line that runs up or down, a label reaches to the right of it.
std::int64_t reachBesideLine(const CellSide& side) {
  return exitLabel(side).empty() ? 0 : labelGap + labelWidth(side) + labelGap;
}

std::int64_t labelLength(const CellSide& side, XYDirection direction) {
  if (exitLabel(side).empty()) return 0;
  return labelGap + (isHorizontal(direction) ? labelWidth(side) : labelHeight) + labelGap;
}

}  // namespace

std::string plainText(const InkedText& line) {
  std::string text;
  for (const InkedGlyph& glyph : line) text += glyph.glyph;
  return text;
}

InkedText inRuns(const InkedText& line) {
  InkedText runs;
  for (const InkedGlyph& glyph : line) {
    if (!runs.empty() && runs.back().ink == glyph.ink) {
      runs.back().glyph += glyph.glyph;
      runs.back().width += glyph.width;
    } else {
      runs.push_back(glyph);
    }
  }
  return runs;
}

SvgBox svgBoxOf(const ScreenElement& element) {
  SvgBox box{textBoxOf(element, Charset::utf8), 0, 0};
  for (const InkedText& line : box.text.lines) {
    box.width = std::max(box.width, fontWidth(plainText(line), fontSize));
  }
  box.height = lineHeight * static_cast<std::int64_t>(box.text.lines.size());
  if (!box.text.link.empty()) {
    box.width = std::max(box.width, fontWidth("→ " + plainText(box.text.link), smallFontSize));
    box.height += lineHeight;
  }
  box.width = even(box.width + 2 * sidePadding);
  box.height = even(box.height + 2 * rowPadding);
  return box;
}

std::int64_t svgLineLength(const ScreenElement& element, const CellSide& side,
                           XYDirection direction) {
  if (!side.leaves && !side.arrives) return boxMargin;
  const std::int64_t head =
      element.isNode() && side.arrives ? headClearance + headLength + leastLine : 0;
  const std::int64_t cross = side.deadEnd ? leastLine + crossSize : 0;
  return std::max<std::int64_t>(head + labelLength(side, direction) + cross, lineMargin);
}

ElementReach svgReach(const ScreenElement& element, const CellSides& sides) {
  ElementReach reach;
  if (element.isNode()) {
    const SvgBox box = svgBoxOf(element);
    reach = {{box.width / 2, box.width / 2}, {box.height / 2, box.height / 2}};
  }
  const auto length = [&](XYDirection direction) {
    return svgLineLength(element, sides[direction], direction);
  };
  return withLines(reach, sides, length, reachBesideLine);
}

}  // namespace tavrel::drawing
