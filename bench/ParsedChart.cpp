#include "bench/ParsedChart.h"

#include <algorithm>

#include "bench/Checksum.h"
#include "engine/Axis.h"

namespace tavrel::bench {
namespace {

// The least distances of neighbouring columns and rows, in half units.
constexpr std::int64_t columnGap = 15;
constexpr std::int64_t rowGap = 2;

std::vector<engine::Position> positionsOf(const ParsedChart& chart) {
  std::vector<engine::Position> positions;
  positions.reserve(chart.boxes.size() + chart.connectors.size());
  for (const BoxCell& box : chart.boxes) positions.push_back({box.x, box.y});
  for (const ConnectorCell& connector : chart.connectors) {
    positions.push_back({connector.x, connector.y});
  }
  return positions;
}

class Filler {
 public:
  explicit Filler(const ParsedChart& chart)
      : chart_(chart),
        positions_(positionsOf(chart)),
        bounds_(engine::including({0, 0, 0, 0}, positions_)),
        columns_(positions_, &engine::Position::x, bounds_.minX, bounds_.maxX),
        rows_(positions_, &engine::Position::y, bounds_.minY, bounds_.maxY) {}

  FilledChart fill() {
    layOut();
    return {copyOf(chart_.intro), elements(),
            engine::buildRowIndex(positions_, bounds_.minY, bounds_.maxY), bounds_};
  }

 private:
  void layOut() {
    for (const BoxCell& box : chart_.boxes) {
      const LineRange& text = nodeOf(box).text;
      columns_.include(box.x, widestOf(text));
      rows_.include(box.y, text.count);
    }
    columns_.place(columnGap);
    rows_.place(rowGap);
  }

  std::vector<sScreenElement> elements() const {
    std::vector<sScreenElement> elements;
    elements.reserve(positions_.size());
    for (const BoxCell& box : chart_.boxes) fill(placed(elements, box.x, box.y), box);
    for (const ConnectorCell& connector : chart_.connectors) {
      fill(placed(elements, connector.x, connector.y), connector);
    }
    return elements;
  }

  sScreenElement& placed(std::vector<sScreenElement>& elements, std::int32_t x,
                         std::int32_t y) const {
    sScreenElement& element = elements.emplace_back();
    element.m_x = x;
    element.m_y = y;
    element.m_xOffset = columns_.position(x);
    element.m_yOffset = rows_.position(y);
    element.m_yesDir = element.m_noDir = eNoDirection;
    element.m_directionInto = element.m_directionOutOf = eNoDirection;
    return element;
  }

  void fill(sScreenElement& element, const BoxCell& box) const {
    const Node& node = nodeOf(box);
    element.m_isNode = true;
    element.m_newFlowchartName = node.next;
    element.m_boxText = copyOf(node.text);
    element.m_commentText = copyOf(node.commentary);
    element.m_yesDir = box.yes == -1 ? eNoDirection : box.yes;
    element.m_noDir = box.no == -1 ? eNoDirection : box.no;
  }

  void fill(sScreenElement& element, const ConnectorCell& connector) const {
    if (!chart_.boxes.empty()) element.m_newFlowchartName = nodeOf(chart_.boxes.back()).next;
    element.m_directionInto = connector.into;
    element.m_directionOutOf = connector.outOf;
  }

  const Node& nodeOf(const BoxCell& box) const {
    return chart_.nodes[static_cast<std::size_t>(box.node)];
  }

  const std::string_view* begin(const LineRange& range) const {
    return chart_.lines.data() + range.first;
  }

  std::vector<std::string> copyOf(const LineRange& range) const {
    return {begin(range), begin(range) + range.count};
  }

  std::size_t widestOf(const LineRange& range) const {
    std::size_t widest = 0;
    for (std::size_t i = 0; i < range.count; ++i) widest = std::max(widest, begin(range)[i].size());
    return widest;
  }

  const ParsedChart& chart_;
  std::vector<engine::Position> positions_;
  engine::Bounds bounds_;
  engine::Axis columns_;
  engine::Axis rows_;
};

void add(Checksum& sum, const engine::Bounds& bounds) {
  sum.add(bounds.minX).add(bounds.maxX).add(bounds.minY).add(bounds.maxY);
}

}  // namespace

FilledChart filled(const ParsedChart& chart) { return Filler(chart).fill(); }

std::uint64_t checksumOf(const std::vector<FilledChart>& charts) {
  Checksum sum;
  for (const FilledChart& chart : charts) {
    sum.add(chart.intro).add(chart.elements);
    add(sum, chart.bounds);
    for (const std::int32_t element : chart.index.elementIndices) {
      const sScreenElement& record = chart.elements[static_cast<std::size_t>(element)];
      sum.add(record.m_x).add(record.m_y);
    }
  }
  return sum.value();
}

std::uint64_t checksumOf(CTavrel& engine, std::size_t count) {
  Checksum sum;
  for (std::int32_t fc = 0; fc < static_cast<std::int32_t>(count); ++fc) {
    engine.mSetStartLocation(fc);
    sum.add(engine.mGetFlowchartIntro(fc)).add(engine.mGetAllElements());
    const engine::Bounds bounds = {
        engine.mGetCurrentFlowchartMinX(), engine.mGetCurrentFlowchartMaxX(),
        engine.mGetCurrentFlowchartMinY(), engine.mGetCurrentFlowchartMaxY()};
    add(sum, bounds);
    for (const sScreenElement& record :
         engine.mGetElementsInBoundaries(bounds.minX, bounds.maxX, bounds.minY, bounds.maxY)) {
      sum.add(record.m_x).add(record.m_y);
    }
  }
  return sum.value();
}

}  // namespace tavrel::bench
