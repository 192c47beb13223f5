#include "drawing/TextPicture.h"

#include <algorithm>

namespace tavrel {

TextPicture::TextPicture(int width, int height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      cells_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

std::string TextPicture::line(int row) const {
  std::string text;
  for (int column = 0; column < width_; ++column) text += at(row, column).glyph;
  return text.erase(text.find_last_not_of(' ') + 1);
}

}  // namespace tavrel
