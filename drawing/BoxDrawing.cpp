#include "drawing/BoxDrawing.h"

#include <algorithm>

namespace tavrel::drawing {
namespace {

// By the weights of the strokes up, down, left and right, the last one changing fastest.
constexpr std::array<std::string_view, 81> boxDrawing = {
    " ", "╶", "╺", "╴", "─", "╼", "╸", "╾", "━",  // up none, down none
    "╷", "┌", "┍", "┐", "┬", "┮", "┑", "┭", "┯",  // up none, down light
    "╻", "┎", "┏", "┒", "┰", "┲", "┓", "┱", "┳",  // up none, down heavy
    "╵", "└", "┕", "┘", "┴", "┶", "┙", "┵", "┷",  // up light, down none
    "│", "├", "┝", "┤", "┼", "┾", "┥", "┽", "┿",  // up light, down light
    "╽", "┟", "┢", "┧", "╁", "╆", "┪", "╅", "╈",  // up light, down heavy
    "╹", "┖", "┗", "┚", "┸", "┺", "┛", "┹", "┻",  // up heavy, down none
    "╿", "┞", "┡", "┦", "╀", "╄", "┩", "╃", "╇",  // up heavy, down light
    "┃", "┠", "┣", "┨", "╂", "╊", "┫", "╉", "╋",  // up heavy, down heavy
};

std::string_view boxDrawingGlyph(const Strokes& strokes) {
  std::size_t index = 0;
  for (const XYDirection direction :
       {XYDirectionYMinus, XYDirectionYPlus, XYDirectionXMinus, XYDirectionXPlus}) {
    index = index * 3 + static_cast<std::size_t>(strokes.toward(direction));
  }
  return boxDrawing[index];
}

std::string_view asciiGlyph(const Strokes& strokes) {
  const Weight vertical =
      std::max(strokes.toward(XYDirectionYMinus), strokes.toward(XYDirectionYPlus));
  const Weight horizontal =
      std::max(strokes.toward(XYDirectionXMinus), strokes.toward(XYDirectionXPlus));
  if (strokes.empty()) return " ";
  if (vertical == Weight::none) return horizontal == Weight::heavy ? "=" : "-";
  if (horizontal == Weight::none) return vertical == Weight::heavy ? "#" : "|";
  return "+";
}

}  // namespace

void Strokes::add(XYDirection direction, Weight weight) {
  Weight& present = weights_[static_cast<std::size_t>(direction)];
  present = std::max(present, weight);
}

Weight Strokes::toward(XYDirection direction) const {
  return weights_[static_cast<std::size_t>(direction)];
}

std::string_view lineGlyph(const Strokes& strokes, Charset charset) {
  return charset == Charset::utf8 ? boxDrawingGlyph(strokes) : asciiGlyph(strokes);
}

std::string_view arrowhead(XYDirection direction, Charset charset) {
  constexpr std::array<std::string_view, 4> heads = {"▼", "▶", "▲", "◀"};
  constexpr std::array<std::string_view, 4> plainHeads = {"v", ">", "^", "<"};
  const auto number = static_cast<std::size_t>(direction);
  return charset == Charset::utf8 ? heads[number] : plainHeads[number];
}

std::string_view deadEnd(Charset charset) { return charset == Charset::utf8 ? "✗" : "x"; }

}  // namespace tavrel::drawing
