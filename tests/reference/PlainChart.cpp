#include "tests/reference/PlainChart.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "tests/reference/Integers.h"

namespace tavrel::reference {
namespace {

constexpr std::int64_t mostRows = 16777216;

struct CutShort {};  // thrown where a line is missing, or no integer stands

// --- From the stream ------------------------------------------------------------

std::string textLine(std::istream& in, Behaviours& met) {
  std::string line;
  if (!std::getline(in, line)) throw CutShort();
  if (!line.empty() && line.back() == '\r') met.meet(Behaviour::carriageReturn);
  return line;
}

bool isBlank(std::int32_t byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

std::vector<std::int32_t> numberLine(std::istream& in, std::size_t count, Behaviours& met) {
  if (in.peek() == '\n') met.meet(Behaviour::blankBeforeNumber);
  std::vector<std::int32_t> numbers(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0 && !isBlank(in.peek())) throw CutShort();
    if (in >> numbers[i]) continue;
    if (!in.eof()) met.meet(Behaviour::noInteger);
    throw CutShort();
  }
  std::string rest;
  std::getline(in, rest);
  if (!rest.empty()) met.meet(Behaviour::comment);
  return numbers;
}

std::int32_t count(std::istream& in, Behaviours& met) {
  const std::int32_t number = numberLine(in, 1, met)[0];
  if (number < 0) met.meet(Behaviour::negativeCount);
  return number;
}

Lines text(std::istream& in, Behaviours& met) {
  Lines lines;
  for (std::int32_t left = count(in, met); left > 0; --left) lines.push_back(textLine(in, met));
  return lines;
}

std::vector<PlainElement> readNodes(std::istream& in, Behaviours& met) {
  std::vector<PlainElement> nodes;
  for (std::int32_t left = count(in, met); left > 0; --left) {
    PlainElement node;
    node.boxText = text(in, met);
    node.commentText = text(in, met);
    node.link = textLine(in, met);
    nodes.push_back(node);
  }
  return nodes;
}

// --- The layout -----------------------------------------------------------------

/// What the cells of one column or one row take: the largest of them.
struct Size {
  std::int32_t coordinate;
  std::int64_t size;
};

void enlarge(std::vector<Size>& sizes, std::int32_t coordinate, std::size_t size) {
  for (Size& other : sizes) {
    if (other.coordinate != coordinate) continue;
    other.size = std::max(other.size, static_cast<std::int64_t>(size));
    return;
  }
  sizes.push_back({coordinate, static_cast<std::int64_t>(size)});
}

/// Every size between the origin and the coordinate counts twice, and those at both ends once.
std::int32_t offset(const std::vector<Size>& sizes, std::int64_t coordinate, std::int64_t gap,
                    Behaviours& met) {
  if (coordinate == 0) return 0;
  const std::int64_t low = std::min<std::int64_t>(0, coordinate);
  const std::int64_t high = std::max<std::int64_t>(0, coordinate);
  std::int64_t sum = gap * (high - low);
  for (const Size& other : sizes) {
    const std::int64_t place = other.coordinate;
    if (place == low || place == high) sum += other.size;
    if (low < place && place < high) sum += 2 * other.size;
  }
  if (coordinate < 0) sum = -sum;
  if (sum < INT32_MIN || sum > INT32_MAX) {
    met.meet(Behaviour::offsetTooLarge);
    throw std::length_error("offset");
  }
  return static_cast<std::int32_t>(sum);
}

std::size_t widest(const Lines& lines) {
  std::size_t width = 0;
  for (const std::string& line : lines) width = std::max(width, line.size());
  return width;
}

}  // namespace

PlainChart::PlainChart() : elements(1), intro{"Unable to read this flowchart intro."} {
  elements[0].boxText = {"Flowchart not read"};
  elements[0].commentText = {"Unable to read this flowchart."};
}

void PlainChart::read(std::istream& in, Behaviours& met) {
  const PlainChart before = *this;
  elements.clear();
  Behaviour ifCut = Behaviour::cutBeforeIntro;
  try {
    readCells(in, ifCut, met);
    if (elements.empty()) met.meet(Behaviour::noCells);
  } catch (const CutShort&) {
    met.meet(ifCut);
    if (elements.empty()) {
      if (before.hasBeenRead) met.meet(Behaviour::cutKeepsOldElement);
      elements = before.elements;
      return;
    }
  }
  try {
    if (std::int64_t{maxY} - minY >= mostRows) {
      met.meet(Behaviour::tooManyRows);
      throw std::length_error("rows");
    }
    layOut(met);
    index();
  } catch (const std::length_error&) {
    *this = before;
    throw;
  }
  hasBeenRead = true;
  noteCells(met);
}

// `ifCut` follows the reading: what it means when the file ends there.
void PlainChart::readCells(std::istream& in, Behaviour& ifCut, Behaviours& met) {
  textLine(in, met);
  textLine(in, met);
  intro = text(in, met);
  ifCut = Behaviour::cutInNodes;
  const std::vector<PlainElement> nodes = readNodes(in, met);
  ifCut = Behaviour::cutBeforeFirstCell;
  readBoxes(in, nodes, ifCut, met);
  ifCut = elements.empty() ? Behaviour::cutBeforeFirstCell : Behaviour::cutInLines;
  const std::string link = elements.empty() ? "" : elements.back().link;
  for (std::int32_t left = count(in, met); left > 0; --left) {
    const std::vector<std::int32_t> cell = numberLine(in, 7, met);
    PlainElement line;
    line.isNode = false;
    line.link = link;
    line.into = cell[3];
    line.outOf = cell[4];
    line.x = cell[5];
    line.y = cell[6];
    widen(line);
    elements.push_back(line);
  }
}

void PlainChart::readBoxes(std::istream& in, const std::vector<PlainElement>& nodes,
                           Behaviour& ifCut, Behaviours& met) {
  const std::int32_t boxes = numberLine(in, 1, met)[0];
  if (boxes < 0) {
    met.meet(Behaviour::negativeBoxes);
    throw std::length_error("boxes");
  }
  std::vector<std::int32_t> shown;
  for (std::int32_t i = 0; i < boxes; ++i) {
    const std::vector<std::int32_t> cell = numberLine(in, 7, met);
    PlainElement place;
    place.x = cell[1];
    place.y = cell[2];
    widen(place);
    if (cell[0] < 0 || at(cell[0]) >= nodes.size()) met.meet(Behaviour::nodeUnknown);
    PlainElement box = nodes.at(at(cell[0]));
    box.x = cell[1];
    box.y = cell[2];
    box.yes = cell[5] == -1 ? noDirection : cell[5];
    box.no = cell[6] == -1 ? noDirection : cell[6];
    elements.push_back(box);
    ifCut = Behaviour::cutInBoxes;
    if (std::count(shown.begin(), shown.end(), cell[0]) > 0) met.meet(Behaviour::nodeShared);
    shown.push_back(cell[0]);
  }
}

void PlainChart::widen(const PlainElement& cell) {
  minX = std::min(minX, cell.x);
  maxX = std::max(maxX, cell.x);
  minY = std::min(minY, cell.y);
  maxY = std::max(maxY, cell.y);
}

void PlainChart::layOut(Behaviours& met) {
  std::vector<Size> widths, heights;
  for (const PlainElement& element : elements) {
    enlarge(widths, element.x, widest(element.boxText));
    enlarge(heights, element.y, element.boxText.size());
  }
  for (PlainElement& element : elements) {
    element.xOffset = offset(widths, element.x, 15, met);
    element.yOffset = offset(heights, element.y, 2, met);
  }
}

void PlainChart::index() {
  const std::int64_t rows = std::int64_t{maxY} - minY + 1;
  if (rows > mostRows) throw std::length_error("rows");
  std::vector<Placed> placed;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const std::int64_t row = std::int64_t{elements[i].y} - minY;
    if (row < 0 || row >= rows) throw std::out_of_range("row");
    placed.push_back({row, static_cast<std::int32_t>(i)});
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& a, const Placed& b) { return a.row < b.row; });
  placed_ = placed;
  rows_ = rows;
}

std::int32_t PlainChart::find(std::int64_t x, std::int64_t y) const {
  for (const Placed& placed : placed_) {
    if (placed.row == y - minY && elements.at(at(placed.element)).x == x) return placed.element;
  }
  return -1;
}

std::vector<std::int32_t> PlainChart::inside(std::int64_t lowX, std::int64_t highX,
                                             std::int64_t lowY, std::int64_t highY) const {
  std::vector<std::int32_t> found;
  for (const Placed& placed : placed_) {
    if (placed.row < lowY - minY || placed.row > highY - minY) continue;
    const std::int32_t x = elements.at(at(placed.element)).x;
    if (lowX <= x && x <= highX) found.push_back(placed.element);
  }
  return found;
}

bool PlainChart::isIndexedAs(const std::vector<std::int32_t>& rowElements,
                             const std::vector<std::int32_t>& rowStarts) const {
  if (rowElements.size() != placed_.size()) return false;
  if (rowStarts.size() != at(rows_ + 1)) return false;
  std::size_t position = 0;
  for (std::size_t row = 0; row < rowStarts.size(); ++row) {
    if (rowStarts[row] != static_cast<std::int32_t>(position)) return false;
    for (; position < placed_.size() && at(placed_[position].row) == row; ++position) {
      if (rowElements[position] != placed_[position].element) return false;
    }
  }
  return position == placed_.size();
}

bool PlainChart::isIndexOld() const {
  if (placed_.size() != elements.size()) return true;
  for (const Placed& placed : placed_) {
    if (elements[at(placed.element)].y - std::int64_t{minY} != placed.row) return true;
  }
  return false;
}

void PlainChart::noteCells(Behaviours& met) const {
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const PlainElement& cell = elements[i];
    const auto isOdd = [](std::int32_t code) { return code < 0 || code > noDirection; };
    if (isOdd(cell.yes) || isOdd(cell.no)) met.meet(Behaviour::oddExit);
    if (isOdd(cell.into) || isOdd(cell.outOf)) met.meet(Behaviour::oddLine);
    if (!cell.isNode && !cell.link.empty()) met.meet(Behaviour::lineWithLink);
    if (cell.x < 0) met.meet(Behaviour::negativeColumn);
    if (cell.y < 0) met.meet(Behaviour::negativeRow);
    if (find(cell.x, cell.y) != static_cast<std::int32_t>(i)) met.meet(Behaviour::onOnePlace);
    if (i == 0 && (cell.x != 0 || cell.y != 0)) met.meet(Behaviour::rootElsewhere);
  }
  if (areBoundsWider()) met.meet(Behaviour::boundsKept);
}

bool PlainChart::areBoundsWider() const {
  PlainChart other;
  for (const PlainElement& cell : elements) other.widen(cell);
  return other.minX != minX || other.maxX != maxX || other.minY != minY || other.maxY != maxY;
}

}  // namespace tavrel::reference
