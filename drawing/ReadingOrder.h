// A chart as it is read aloud: box after box along the exits, each once.

#ifndef TAVREL_DRAWING_READINGORDER_H
#define TAVREL_DRAWING_READINGORDER_H

#include <cstddef>
#include <vector>

#include "drawing/ElementGrid.h"
#include "facade/Tavrel.h"

namespace tavrel::drawing {

/// A box with the boxes that its exits lead to. The pointers are into the grid;
/// nullptr where there is no exit, or where its line leads to no box.
struct ReadBox {
  const ScreenElement* box;
  const ScreenElement* yes;
  const ScreenElement* no;
};

/// All boxes of a grid that holds a whole flowchart. First the one at (0, 0) and
/// what it leads to: behind a box comes what its yes exit leads to, with all that
/// follows from there, then what its no exit leads to. Boxes that nothing leads to
/// come last, row by row, each with what follows from it. Cost: that of finding each
/// element's neighbours once, also where lines run in circles.
std::vector<ReadBox> readingOrder(const ElementGrid& grid);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_READINGORDER_H
