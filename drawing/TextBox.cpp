#include "drawing/TextBox.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <stdexcept>

namespace tavrel::drawing {
namespace {

constexpr int frameAndPadding = 4;  // "│ " and " │"
constexpr int frameAroundLink = 7;  // "╰─▶ " and " ─╯"
constexpr int frameAboveAndBelow = 2;
constexpr int lineAroundLabel = 2;    // "─" on both sides of the word
constexpr int blanksAroundLabel = 2;  // beside a line that runs up or down

Ink suitInk(std::string_view glyph, Ink otherwise) {
  const auto is = [glyph](std::string_view suit) { return glyph.substr(0, suit.size()) == suit; };
  if (is("♣")) return Ink::clubs;
  if (is("♦")) return Ink::diamonds;
  if (is("♥")) return Ink::hearts;
  if (is("♠")) return Ink::spades;
  return otherwise;
}

std::vector<std::string> linesOf(const ScreenElement& element) {
  try {
    std::vector<std::string> lines = element.boxText();
    if (lines.empty()) lines.emplace_back();
    return lines;
  } catch (const std::invalid_argument&) {
    return {"(not UTF-8)"};
  }
}

int widthOf(const std::vector<InkedText>& lines) {
  return std::accumulate(lines.begin(), lines.end(), 0, [](int widest, const InkedText& line) {
    return std::max(widest, widthOf(line));
  });
}

bool hasNoExits(const ScreenElement& element) {
  return element.yesDirection() == XYDirectionNone && element.noDirection() == XYDirectionNone;
}

// A frame of even width or height reaches further to the right or down.
Reach reachOf(int length) {
  const int before = (length - 1) / 2;
  return {before, length - before};
}

ElementReach reachOfFrame(const ScreenElement& element, Charset charset) {
  if (!element.isNode()) return {reachOf(1), reachOf(1)};
  const TextBox box = textBoxOf(element, charset);
  return {reachOf(box.width), reachOf(box.height)};
}

// The words beside a line that runs up or down reach to the right of it.
std::int64_t reachBesideLine(const CellSide& side) {
  const auto label = static_cast<std::int64_t>(exitLabel(side).size());
  return label == 0 ? 0 : 1 + label + blanksAroundLabel;
}

}  // namespace

InkedText inked(std::string_view text, Ink ink, Charset charset) {
  InkedText out;
  const std::string shown = printable(text, Charset::utf8);
  for (const Glyph& glyph : glyphs(shown)) {
    const Ink own = suitInk(glyph.bytes, ink);
    if (charset == Charset::utf8) {
      out.push_back({std::string(glyph.bytes), glyph.width, own});
      continue;
    }
    for (const char letter : printable(glyph.bytes, charset)) out.push_back({{letter}, 1, own});
  }
  return out;
}

int widthOf(const InkedText& text) {
  return std::accumulate(text.begin(), text.end(), 0,
                         [](int sum, const InkedGlyph& glyph) { return sum + glyph.width; });
}

TextBox textBoxOf(const ScreenElement& element, Charset charset) {
  TextBox box;
  for (const std::string& line : linesOf(element)) {
    box.lines.push_back(inked(line, Ink::text, charset));
  }
  box.width = widthOf(box.lines) + frameAndPadding;
  if (const auto name = element.nameOfNextFlowchart()) {
    box.link = inked(*name, Ink::link, charset);
    box.width = std::max(box.width, widthOf(box.link) + frameAroundLink);
  }
  box.height = static_cast<int>(box.lines.size()) + frameAboveAndBelow;
  box.isEnd = hasNoExits(element);
  return box;
}

TextWindow frameAround(std::int64_t centreX, std::int64_t centreY, const TextBox& box) {
  return {centreX - reachOf(box.width).before, centreY - reachOf(box.height).before, box.width,
          box.height};
}

std::string_view exitLabel(const CellSide& side) {
  if (side.yes) return side.no ? "yes/no" : "yes";
  return side.no ? "no" : "";
}

int lineLength(const ScreenElement& element, const CellSide& side, XYDirection direction) {
  const int label = static_cast<int>(exitLabel(side).size());
  const int words = label == 0 ? 0 : isHorizontal(direction) ? label + lineAroundLabel : 1;
  const int head = element.isNode() && side.arrives ? 1 : 0;
  const int cross = side.deadEnd ? 1 : 0;
  return head + words + cross;
}

ElementReach textReach(const ScreenElement& element, const CellSides& sides, Charset charset) {
  const auto length = [&](XYDirection direction) {
    return lineLength(element, sides[direction], direction);
  };
  return withLines(reachOfFrame(element, charset), sides, length, reachBesideLine);
}

}  // namespace tavrel::drawing
