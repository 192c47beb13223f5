// A flowchart as a plain reader leaves it: a stream read line by line and number by number,
// lists, and scans from their first entry to their last. Slow, and simple enough to believe.

#ifndef TAVREL_TESTS_REFERENCE_PLAINCHART_H
#define TAVREL_TESTS_REFERENCE_PLAINCHART_H

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "tests/reference/Behaviours.h"

namespace tavrel::reference {

using Lines = std::vector<std::string>;

/// The code of no direction.
constexpr std::int32_t noDirection = 4;

struct PlainElement {
  std::int32_t x = 0, y = 0, xOffset = 0, yOffset = 0;
  bool isOnPath = false, isNode = true;
  std::string link;
  Lines boxText, commentText;
  std::int32_t yes = noDirection, no = noDirection, into = noDirection, outOf = noDirection;
};

class PlainChart {
 public:
  std::vector<PlainElement> elements;
  Lines intro;
  std::int32_t minX = 0, maxX = 0, minY = 0, maxY = 0;
  // For the figures alone:
  bool wasMissing = false;   // an earlier read found no file
  bool hasBeenRead = false;  // an earlier read has found cells, or a whole file without

  /// As every flowchart is before its file is read.
  PlainChart();

  /// Reads the file. Throws what a selection throws.
  void read(std::istream& in, Behaviours& met);

  /// Builds the row index from elements and bounds.
  void index();

  /// The lowest element at a place, by the row index; or -1.
  std::int32_t find(std::int64_t x, std::int64_t y) const;

  /// The elements of a rectangle, by the row index: row by row, in stored order.
  std::vector<std::int32_t> inside(std::int64_t lowX, std::int64_t highX, std::int64_t lowY,
                                   std::int64_t highY) const;

  /// Whether this is the row index: the elements row by row, and where each row starts.
  bool isIndexedAs(const std::vector<std::int32_t>& rowElements,
                   const std::vector<std::int32_t>& rowStarts) const;
  /// Whether the row index describes other elements than these.
  bool isIndexOld() const;

 private:
  struct Placed {
    std::int64_t row;
    std::int32_t element;
  };

  void readCells(std::istream& in, Behaviour& ifCut, Behaviours& met);
  void readBoxes(std::istream& in, const std::vector<PlainElement>& nodes, Behaviour& ifCut,
                 Behaviours& met);
  void widen(const PlainElement& cell);
  void layOut(Behaviours& met);
  void noteCells(Behaviours& met) const;
  bool areBoundsWider() const;

  // The row index: the elements in order of their rows, and the number of rows. It stays
  // what it was where a read ends in an exception.
  std::vector<Placed> placed_ = {{0, 0}};
  std::int64_t rows_ = 1;
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_PLAINCHART_H
