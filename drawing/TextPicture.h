// A picture made of characters, as a drawing hands it to whoever shows it.

#ifndef TAVREL_DRAWING_TEXTPICTURE_H
#define TAVREL_DRAWING_TEXTPICTURE_H

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// What a character of a picture stands for. Colours are the host's business.
enum class Ink : std::uint8_t {
  blank,     ///< nothing
  text,      ///< the text of a box
  frame,     ///< a box's frame
  line,      ///< a line between boxes, its arrowhead, or the cross at a dead end
  label,     ///< the words yes and no
  link,      ///< the name of the flowchart that a box leads into
  clubs,     ///< ♣ in a text, or the letter that stands for it; so for the others
  diamonds,  ///< ♦
  hearts,    ///< ♥
  spades     ///< ♠
};

/// One character of a picture.
struct TextCell {
  std::string glyph = " ";  ///< one grapheme cluster; empty for the right half of a wide one
  Ink ink = Ink::blank;
  bool lit = false;      ///< belongs to the prepared path
  bool current = false;  ///< belongs to the element under the cursor
};

/// A rectangle of a drawing, in characters and lines. (0, 0) is the drawing's
/// top left. It may reach beyond the drawing. A width or height below 0 is 0.
struct TextWindow {
  std::int64_t left;
  std::int64_t top;
  int width;
  int height;
};

/// What shows in a window of a drawing. Owns all it holds.
class TextPicture {
 public:
  /// A blank picture.
  TextPicture(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }

  /// REQUIRES: 0 <= row < height(), 0 <= column < width().
  const TextCell& at(int row, int column) const { return cells_[index(row, column)]; }
  TextCell& at(int row, int column) { return cells_[index(row, column)]; }

  /// The row as text, without the blanks at its end.
  std::string line(int row) const;

 private:
  std::size_t index(int row, int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(column);
  }

  int width_;
  int height_;
  std::vector<TextCell> cells_;  // row by row
};

}  // namespace tavrel

#endif  // TAVREL_DRAWING_TEXTPICTURE_H
