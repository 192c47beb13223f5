// From a flowchart's file to its elements, introduction, bounds and row index.
//
// Everything is made beside the engine first and moved in at the end, so that a
// read for which memory doesn't suffice has changed nothing.

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "engine/Axis.h"
#include "engine/CTavrel.h"
#include "engine/ChartFile.h"
#include "engine/CheckedAccess.h"
#include "engine/FileBytes.h"
#include "engine/RowIndex.h"

using namespace tavrel::engine;

namespace tavrel::engine {

struct Bounds {
  std::int32_t minX, maxX, minY, maxY;

  void widen(const Cell& cell) {
    minX = std::min(minX, cell.x);
    maxX = std::max(maxX, cell.x);
    minY = std::min(minY, cell.y);
    maxY = std::max(maxY, cell.y);
  }
};

// What a file makes of a flowchart. A part that the file leaves alone is empty.
struct FlowchartContents {
  std::optional<std::vector<std::string>> intro;
  std::optional<std::vector<sScreenElement>> elements;
  std::optional<RowIndex> rowIndex;
  Bounds bounds;
};

}  // namespace tavrel::engine

namespace {

// The least distances of neighbouring columns and rows, in half units.
constexpr std::int64_t columnGap = 15;
constexpr std::int64_t rowGap = 2;

struct Layout {
  Axis columns;
  Axis rows;
};

Axis axisOf(const ChartFile& chart, std::int32_t Cell::*coordinate) {
  std::vector<std::int32_t> coordinates;
  coordinates.reserve(chart.cells.size() + 1);
  for (const Cell& cell : chart.cells) coordinates.push_back(cell.*coordinate);
  return Axis(std::move(coordinates));
}

Layout layOut(const ChartFile& chart) {
  Layout layout = {axisOf(chart, &Cell::x), axisOf(chart, &Cell::y)};
  for (std::size_t i = 0; i < chart.boxCount; ++i) {
    const Cell& box = chart.cells[i];
    const TextLines& text = chart.nodes[static_cast<std::size_t>(box.node)].m_boxLines;
    layout.columns.include(box.x, text.widest);
    layout.rows.include(box.y, static_cast<std::size_t>(text.count));
  }
  layout.columns.place(columnGap);
  layout.rows.place(rowGap);
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

std::vector<sScreenElement> elementsOf(const ChartFile& chart, const Layout& layout) {
  std::vector<sScreenElement> elements;
  elements.reserve(chart.cells.size());
  std::string_view lastName;  // every connector carries the name of the last box
  for (std::size_t i = 0; i < chart.boxCount; ++i) {
    const sLogicalNode& node = chart.nodes[static_cast<std::size_t>(chart.cells[i].node)];
    appendBox(elements, chart.cells[i], node, layout);
    lastName = node.m_nextFlowchartName;
  }
  for (std::size_t i = chart.boxCount; i < chart.cells.size(); ++i) {
    appendConnector(elements, chart.cells[i], lastName, layout);
  }
  return elements;
}

Bounds widened(Bounds bounds, const ChartFile& chart) {
  for (const Cell& cell : chart.cells) bounds.widen(cell);
  if (chart.ending == Ending::unknownNode) bounds.widen(chart.unknownNodeCell);
  return bounds;
}

// A file at fault in a way that is thrown gets neither layout nor row index.
bool isLaidOut(const ChartFile& chart) {
  return chart.ending == Ending::complete || chart.ending == Ending::cut;
}

// A flowchart that is too large is refused before any element is made.
FlowchartContents contentsOf(const ChartFile& chart, const Bounds& oldBounds) {
  FlowchartContents contents = {};
  contents.bounds = widened(oldBounds, chart);
  if (chart.intro) contents.intro = copyOf(*chart.intro);
  if (chart.ending == Ending::cut && chart.cells.empty()) return contents;
  Layout layout;
  if (isLaidOut(chart)) {
    layout = layOut(chart);
    contents.rowIndex =
        buildRowIndex(chart.cells, &Cell::y, contents.bounds.minY, contents.bounds.maxY);
  }
  contents.elements = elementsOf(chart, layout);
  return contents;
}

}  // namespace

void CTavrel::mReadFVFileIfNotAlready(const std::int32_t& fc) {
  if (at(m_screenElements, fc).size() > 1) return;
  const auto file = FileBytes::read(m_directory + at(m_flowchartFileNames, fc) + ".fv");
  if (!file) return;
  const ChartFile chart = readChartFile(file->view());
  const std::length_error negativeCount("CTavrel: a negative number of box cells");
  const Bounds oldBounds = {at(m_minX, fc), at(m_maxX, fc), at(m_minY, fc), at(m_maxY, fc)};
  takeOver(fc, contentsOf(chart, oldBounds));
  if (chart.ending == Ending::unknownNode) throwOutOfRange();
  if (chart.ending == Ending::negativeCount) throw std::length_error(negativeCount);
}

// All or nothing: only moves, which cannot fail.
void CTavrel::takeOver(std::int32_t fc, FlowchartContents&& contents) noexcept {
  if (contents.intro) at(m_flowchartIntros, fc) = std::move(*contents.intro);
  if (contents.elements) at(m_screenElements, fc) = std::move(*contents.elements);
  if (contents.rowIndex) {
    at(m_rowElementIndices, fc) = std::move(contents.rowIndex->elementIndices);
    at(m_rowStarts, fc) = std::move(contents.rowIndex->rowStarts);
  }
  at(m_minX, fc) = contents.bounds.minX;
  at(m_maxX, fc) = contents.bounds.maxX;
  at(m_minY, fc) = contents.bounds.minY;
  at(m_maxY, fc) = contents.bounds.maxY;
}

std::vector<std::string> CTavrel::mGetFlowchartIntro(const std::int32_t& fc) {
  static const std::vector<std::string> noSuchFlowchartVector = {"No such flowchart"};
  if (!isFlowchart(fc)) return noSuchFlowchartVector;
  mReadFVFileIfNotAlready(fc);
  return at(m_flowchartIntros, fc);
}
