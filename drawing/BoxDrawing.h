// The characters that lines are drawn with. A character of a drawing is crossed
// by strokes from its centre toward its four sides, each of a weight; the
// character that shows them all is chosen last, when every line has been drawn.

#ifndef TAVREL_DRAWING_BOXDRAWING_H
#define TAVREL_DRAWING_BOXDRAWING_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "facade/Tavrel.h"
#include "text/Text.h"

namespace tavrel::drawing {

enum class Weight : std::uint8_t { none, light, heavy };

/// The strokes of one character, none at first.
class Strokes {
 public:
  /// Adds a stroke from the centre. Of two in one direction the heavier stays.
  void add(XYDirection direction, Weight weight);

  /// The stroke toward a side.
  Weight toward(XYDirection direction) const;

  bool empty() const { return weights_ == std::array<Weight, 4>{}; }

 private:
  std::array<Weight, 4> weights_{};  // by direction
};

/// The character for the strokes. In plain, lines are - and |, heavy ones = and
/// #, and wherever a line bends or branches stands a +.
std::string_view lineGlyph(const Strokes& strokes, Charset charset);

/// The head of an arrow that points in the direction. REQUIRES: not XYDirectionNone.
std::string_view arrowhead(XYDirection direction, Charset charset);

/// The cross at the end of a line that leads to nothing.
std::string_view deadEnd(Charset charset);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_BOXDRAWING_H
