#include "engine/FlowchartContents.h"

#include <string>
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

  void place(sScreenElement& element) const {
    element.m_xOffset = columns.position(element.m_x);
    element.m_yOffset = rows.position(element.m_y);
  }
};

// Where the columns and rows lie; empty if one lies beyond 32 bits.
std::optional<Layout> layoutOf(const ChartFile& file) {
  const auto [minX, maxX, minY, maxY] = including({0, 0, 0, 0}, file.positions);
  Layout layout = {Axis(file.positions, &Position::x, minX, maxX),
                   Axis(file.positions, &Position::y, minY, maxY)};
  for (std::size_t i = 0; i < file.boxCount; ++i) {
    const TextSize size = file.nodes.boxSize(static_cast<std::size_t>(file.cells[i].node));
    layout.columns.include(file.positions[i].x, size.widest);
    layout.rows.include(file.positions[i].y, size.lines);
  }
  if (!layout.columns.place(columnGap) || !layout.rows.place(rowGap)) return std::nullopt;
  return layout;
}

// What a box and a connector have in common.
sScreenElement& append(std::vector<sScreenElement>& elements, const Position& position,
                       const Layout& layout) {
  sScreenElement& element = elements.emplace_back();
  element.m_x = position.x;
  element.m_y = position.y;
  layout.place(element);
  element.m_yesDir = element.m_noDir = eNoDirection;
  element.m_directionInto = element.m_directionOutOf = eNoDirection;
  return element;
}

void appendBoxes(std::vector<sScreenElement>& elements, const ChartFile& file,
                 const Layout& layout) {
  for (std::size_t i = 0; i < file.boxCount; ++i) {
    const Cell& cell = file.cells[i];
    sLogicalNode node = file.nodes.read(static_cast<std::size_t>(cell.node));
    sScreenElement& box = append(elements, file.positions[i], layout);
    box.m_isNode = true;
    box.m_newFlowchartName = std::move(node.m_nextFlowchartName);
    box.m_boxText = std::move(node.m_boxLines);
    box.m_commentText = std::move(node.m_commentLines);
    box.m_yesDir = cell.yesOrInto;
    box.m_noDir = cell.noOrOutOf;
  }
}

void appendConnectors(std::vector<sScreenElement>& elements, const ChartFile& file,
                      const Layout& layout) {
  // Every connector carries the name of the last box.
  const std::string lastName = elements.empty() ? "" : elements.back().m_newFlowchartName;
  for (std::size_t i = file.boxCount; i < file.cells.size(); ++i) {
    sScreenElement& connector = append(elements, file.positions[i], layout);
    if (!lastName.empty()) connector.m_newFlowchartName = lastName;
    connector.m_directionInto = file.cells[i].yesOrInto;
    connector.m_directionOutOf = file.cells[i].noOrOutOf;
  }
}

std::vector<sScreenElement> elementsOf(const ChartFile& file, const Layout& layout) {
  std::vector<sScreenElement> elements;
  elements.reserve(file.cells.size());
  appendBoxes(elements, file, layout);
  appendConnectors(elements, file, layout);
  return elements;
}

// Empty if the layout is.
std::optional<std::vector<sScreenElement>> laidOutElementsOf(const ChartFile& file) {
  const std::optional<Layout> layout = layoutOf(file);
  if (!layout) return std::nullopt;
  return elementsOf(file, *layout);
}

// The cell that ends the reading for its node counts too.
Bounds widened(const Bounds& old, const ChartFile& file) {
  const Bounds bounds = including(old, file.positions);
  return file.ending == Ending::unknownNode ? including(bounds, file.unknownNodePosition) : bounds;
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

// A flowchart that is too large replaces nothing.
FlowchartContents tooLarge(const Bounds& old) {
  return {std::nullopt, std::nullopt, std::nullopt, old, Failure::length};
}

}  // namespace

FlowchartContents contentsOf(ChartFile&& file, const Bounds& old) {
  FlowchartContents contents = {};
  contents.bounds = widened(old, file);
  contents.failure = failureOf(file.ending);
  contents.intro = std::move(file.intro);
  if (file.ending == Ending::cut && file.cells.empty()) return contents;

  const bool isWhole = contents.failure == Failure::none;
  const auto [minX, maxX, minY, maxY] = contents.bounds;
  if (isWhole && !canBeIndexed(minY, maxY, file.positions.size())) return tooLarge(old);
  contents.elements = isWhole ? laidOutElementsOf(file) : elementsOf(file, Layout());
  if (!contents.elements) return tooLarge(old);
  file.cells = {};  // what is no longer needed makes room for the row index
  if (isWhole) contents.rowIndex = buildRowIndex(file.positions, minY, maxY);
  return contents;
}

}  // namespace tavrel::engine
