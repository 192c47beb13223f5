#include "engine/FlowchartContents.h"

#include <algorithm>
#include <string>
#include <utility>

#include "engine/Axis.h"

namespace tavrel::engine {
namespace {

// The least distances of neighbouring columns and rows, in half units.
constexpr std::int64_t columnGap = 15;
constexpr std::int64_t rowGap = 2;

// What a box and a connector have in common.
sScreenElement& append(std::vector<sScreenElement>& elements, const Position& position) {
  sScreenElement& element = elements.emplace_back();
  element.m_x = position.x;
  element.m_y = position.y;
  element.m_yesDir = element.m_noDir = eNoDirection;
  element.m_directionInto = element.m_directionOutOf = eNoDirection;
  return element;
}

void appendBoxes(std::vector<sScreenElement>& elements, const ChartFile& file) {
  for (std::size_t i = 0; i < file.boxCount; ++i) {
    const Cell& cell = file.cells[i];
    sLogicalNode node = file.nodes.read(static_cast<std::size_t>(cell.node));
    sScreenElement& box = append(elements, file.positions[i]);
    box.m_isNode = true;
    box.m_newFlowchartName = std::move(node.m_nextFlowchartName);
    box.m_boxText = std::move(node.m_boxLines);
    box.m_commentText = std::move(node.m_commentLines);
    box.m_yesDir = cell.yesOrInto;
    box.m_noDir = cell.noOrOutOf;
  }
}

struct Layout {
  Axis columns;
  Axis rows;

  void place(sScreenElement& element) const {
    element.m_xOffset = columns.position(element.m_x);
    element.m_yOffset = rows.position(element.m_y);
  }
};

std::size_t widestOf(const std::vector<std::string>& lines) noexcept {
  std::size_t widest = 0;
  for (const std::string& line : lines) widest = std::max(widest, line.size());
  return widest;
}

// Where the columns and rows lie; empty if one lies beyond 32 bits.
std::optional<Layout> layoutOf(const std::vector<sScreenElement>& boxes,
                               const std::vector<Position>& positions) {
  const auto [minX, maxX, minY, maxY] = including({0, 0, 0, 0}, positions);
  Layout layout = {Axis(positions, &Position::x, minX, maxX),
                   Axis(positions, &Position::y, minY, maxY)};
  for (const sScreenElement& box : boxes) {
    layout.columns.include(box.m_x, widestOf(box.m_boxText));
    layout.rows.include(box.m_y, box.m_boxText.size());
  }
  if (!layout.columns.place(columnGap) || !layout.rows.place(rowGap)) return std::nullopt;
  return layout;
}

void appendConnectors(std::vector<sScreenElement>& elements, const ChartFile& file,
                      const Layout& layout) {
  // Every connector carries the name of the last box.
  const std::string lastName = elements.empty() ? "" : elements.back().m_newFlowchartName;
  for (std::size_t i = file.boxCount; i < file.cells.size(); ++i) {
    sScreenElement& connector = append(elements, file.positions[i]);
    if (!lastName.empty()) connector.m_newFlowchartName = lastName;
    connector.m_directionInto = file.cells[i].yesOrInto;
    connector.m_directionOutOf = file.cells[i].noOrOutOf;
    layout.place(connector);
  }
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
  if (isWhole && !canBeIndexed(minY, maxY, file.cells.size())) return tooLarge(old);
  std::vector<sScreenElement> elements;
  elements.reserve(file.cells.size());
  appendBoxes(elements, file);
  if (isWhole) {
    const std::optional<Layout> layout = layoutOf(elements, file.positions);
    if (!layout) return tooLarge(old);
    for (sScreenElement& box : elements) layout->place(box);
    appendConnectors(elements, file, *layout);
    contents.rowIndex = buildRowIndex(file.positions, minY, maxY);
  }
  contents.elements = std::move(elements);
  return contents;
}

}  // namespace tavrel::engine
