#include "engine/FlowchartContents.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "engine/Axis.h"

namespace tavrel::engine {
namespace {

// The least distances of neighbouring columns and rows, in half units.
constexpr std::int64_t columnGap = 15;
constexpr std::int64_t rowGap = 2;

struct Layout {
  Axis columns;
  Axis rows;
};

std::vector<std::int32_t> coordinatesOf(const ChartFile& file, std::int32_t Cell::*coordinate) {
  std::vector<std::int32_t> coordinates;
  coordinates.reserve(file.cells.size());
  for (const Cell& cell : file.cells) coordinates.push_back(cell.*coordinate);
  return coordinates;
}

// Empty if an offset passes 32 bits.
std::optional<Layout> layOut(const ChartFile& file, const std::vector<std::int32_t>& columns,
                             const std::vector<std::int32_t>& rows) {
  Layout layout = {Axis(columns), Axis(rows)};
  for (std::size_t i = 0; i < file.boxCount; ++i) {
    const Cell& box = file.cells[i];
    const TextLines& text = file.nodes[static_cast<std::size_t>(box.node)].m_boxLines;
    layout.columns.include(box.x, text.widest);
    layout.rows.include(box.y, static_cast<std::size_t>(text.count));
  }
  if (!layout.columns.place(columnGap) || !layout.rows.place(rowGap)) return std::nullopt;
  return layout;
}

// What a box and a connector have in common.
sScreenElement& append(std::vector<sScreenElement>& elements, const Cell& cell,
                       const Layout& layout) {
  sScreenElement& element = elements.emplace_back();
  element.m_x = cell.x;
  element.m_y = cell.y;
  element.m_xOffset = layout.columns.position(cell.x);
  element.m_yOffset = layout.rows.position(cell.y);
  element.m_yesDir = element.m_noDir = eNoDirection;
  element.m_directionInto = element.m_directionOutOf = eNoDirection;
  return element;
}

void appendBox(std::vector<sScreenElement>& elements, const Cell& cell, const sLogicalNode& node,
               const Layout& layout) {
  sScreenElement& box = append(elements, cell, layout);
  box.m_isNode = true;
  box.m_newFlowchartName = node.m_nextFlowchartName;
  box.m_boxText = copyOf(node.m_boxLines);
  box.m_commentText = copyOf(node.m_commentLines);
  box.m_yesDir = cell.yesOrInto;
  box.m_noDir = cell.noOrOutOf;
}

void appendConnector(std::vector<sScreenElement>& elements, const Cell& cell,
                     std::string_view lastName, const Layout& layout) {
  sScreenElement& connector = append(elements, cell, layout);
  connector.m_newFlowchartName = lastName;
  connector.m_directionInto = cell.yesOrInto;
  connector.m_directionOutOf = cell.noOrOutOf;
}

std::vector<sScreenElement> elementsOf(const ChartFile& file, const Layout& layout) {
  std::vector<sScreenElement> elements;
  elements.reserve(file.cells.size());
  std::string_view lastName;  // every connector carries the name of the last box
  for (std::size_t i = 0; i < file.boxCount; ++i) {
    const sLogicalNode& node = file.nodes[static_cast<std::size_t>(file.cells[i].node)];
    appendBox(elements, file.cells[i], node, layout);
    lastName = node.m_nextFlowchartName;
  }
  for (std::size_t i = file.boxCount; i < file.cells.size(); ++i) {
    appendConnector(elements, file.cells[i], lastName, layout);
  }
  return elements;
}

void widen(Bounds& bounds, const Cell& cell) {
  bounds.minX = std::min(bounds.minX, cell.x);
  bounds.maxX = std::max(bounds.maxX, cell.x);
  bounds.minY = std::min(bounds.minY, cell.y);
  bounds.maxY = std::max(bounds.maxY, cell.y);
}

// The cell that ends the reading for its node counts too.
Bounds widened(Bounds bounds, const ChartFile& file) {
  for (const Cell& cell : file.cells) widen(bounds, cell);
  if (file.ending == Ending::unknownNode) widen(bounds, file.unknownNodeCell);
  return bounds;
}

Failure failureOf(Ending ending) {
  switch (ending) {
    case Ending::unknownNode:
      return Failure::outOfRange;
    case Ending::negativeCount:
      return Failure::length;
    default:
      return Failure::none;
  }
}

}  // namespace

FlowchartContents contentsOf(const ChartFile& file, const Bounds& old) {
  FlowchartContents contents = {};
  contents.bounds = widened(old, file);
  contents.failure = failureOf(file.ending);
  if (file.intro) contents.intro = copyOf(*file.intro);
  if (file.ending == Ending::cut && file.cells.empty()) return contents;

  std::optional<Layout> layout = Layout();  // all at 0, where something is thrown for
  if (contents.failure == Failure::none) {
    const auto [minX, maxX, minY, maxY] = contents.bounds;
    const std::vector<std::int32_t> columns = coordinatesOf(file, &Cell::x);
    const std::vector<std::int32_t> rows = coordinatesOf(file, &Cell::y);
    layout = layOut(file, columns, rows);
    if (!layout || !canBeIndexed(minY, maxY, file.cells.size())) {
      return {std::nullopt, std::nullopt, std::nullopt, old, Failure::length};
    }
    contents.rowIndex = buildRowIndex(columns, rows, minY, maxY);
  }
  contents.elements = elementsOf(file, *layout);
  return contents;
}

}  // namespace tavrel::engine
