// Writes pictures in SVG.

#ifndef TAVREL_DRAWING_SVGWRITER_H
#define TAVREL_DRAWING_SVGWRITER_H

#include <string>
#include <vector>

#include "drawing/ChartGeometry.h"
#include "drawing/ElementGrid.h"
#include "drawing/SvgChart.h"
#include "drawing/Theme.h"

namespace tavrel::drawing {

/// A box of a picture.
struct WrittenBox {
  const ScreenElement* element;  ///< of the grid
  std::string title;             ///< what is read aloud of it
  std::string link;              ///< where it leads when it is clicked; empty for nowhere
  bool isPlace;                  ///< whether it is lit as the place
};

/// All that a picture is made of.
struct SvgScene {
  std::string title;
  Theme theme;
  ElementGrid grid;
  ChartGeometry geometry;
  std::vector<WrittenBox> boxes;  ///< in reading order
};

/// The area of the picture, in the coordinates of the geometry.
std::string written(const SvgScene& scene, const SvgArea& area);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_SVGWRITER_H
