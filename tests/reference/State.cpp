#include "tests/reference/State.h"

#include <cstddef>

#include "tests/support/EngineAccess.h"

namespace tavrel::reference {
namespace {

using Access = EngineAccess;

std::string cursor(const PlainEngine& plain) {
  return std::to_string(plain.current) + " \"" + plain.name + "\" " + std::to_string(plain.x) +
         "," + std::to_string(plain.y) + " #" + std::to_string(plain.element) + " answers \"" +
         plain.path + "\"";
}

std::string cursor(const CTavrel& engine) {
  const auto& location = Access::currentLocation(engine);
  return std::to_string(Access::currentFlowchartIndex(engine)) + " \"" + location.m_name + "\" " +
         std::to_string(location.m_x) + "," + std::to_string(location.m_y) + " #" +
         std::to_string(Access::currentElementIndex(engine)) + " answers \"" +
         Access::path(engine) + "\"";
}

bool isCursorEqual(const PlainEngine& plain, const CTavrel& engine) {
  const auto& location = Access::currentLocation(engine);
  return location.m_x == plain.x && location.m_y == plain.y &&
         Access::currentFlowchartIndex(engine) == plain.current &&
         Access::currentElementIndex(engine) == plain.element && location.m_name == plain.name &&
         Access::path(engine) == plain.path;
}

std::string bounds(std::int32_t minX, std::int32_t maxX, std::int32_t minY, std::int32_t maxY) {
  return "x " + std::to_string(minX) + ".." + std::to_string(maxX) + " y " + std::to_string(minY) +
         ".." + std::to_string(maxY);
}

std::string outline(const PlainChart& chart) {
  std::string text = bounds(chart.minX, chart.maxX, chart.minY, chart.maxY) + " marks ";
  for (const PlainElement& each : chart.elements) text += each.isOnPath ? '*' : '-';
  return text;
}

std::string outline(const CTavrel& engine, std::size_t fc) {
  std::string text = bounds(Access::minX(engine)[fc], Access::maxX(engine)[fc],
                            Access::minY(engine)[fc], Access::maxY(engine)[fc]) +
                     " marks ";
  for (const sScreenElement& each : Access::screenElements(engine)[fc]) {
    text += each.m_isOnPath ? '*' : '-';
  }
  return text;
}

bool isOutlineEqual(const PlainChart& chart, const CTavrel& engine, std::size_t fc) {
  const std::vector<sScreenElement>& elements = Access::screenElements(engine)[fc];
  if (elements.size() != chart.elements.size() || Access::minX(engine)[fc] != chart.minX ||
      Access::maxX(engine)[fc] != chart.maxX || Access::minY(engine)[fc] != chart.minY ||
      Access::maxY(engine)[fc] != chart.maxY) {
    return false;
  }
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (elements[i].m_isOnPath != chart.elements[i].isOnPath) return false;
  }
  return true;
}

}  // namespace

sScreenElement asRecord(const PlainElement& plain) {
  sScreenElement record;
  record.m_x = plain.x;
  record.m_y = plain.y;
  record.m_xOffset = plain.xOffset;
  record.m_yOffset = plain.yOffset;
  record.m_isOnPath = plain.isOnPath;
  record.m_isNode = plain.isNode;
  record.m_newFlowchartName = plain.link;
  record.m_boxText = plain.boxText;
  record.m_commentText = plain.commentText;
  record.m_yesDir = plain.yes;
  record.m_noDir = plain.no;
  record.m_directionInto = plain.into;
  record.m_directionOutOf = plain.outOf;
  return record;
}

bool isEqual(const PlainElement& plain, const sScreenElement& record) {
  return plain.x == record.m_x && plain.y == record.m_y && plain.xOffset == record.m_xOffset &&
         plain.yOffset == record.m_yOffset && plain.isOnPath == record.m_isOnPath &&
         plain.isNode == record.m_isNode && plain.link == record.m_newFlowchartName &&
         plain.yes == record.m_yesDir && plain.no == record.m_noDir &&
         plain.into == record.m_directionInto && plain.outOf == record.m_directionOutOf &&
         plain.boxText == record.m_boxText && plain.commentText == record.m_commentText;
}

std::optional<StateDifference> differenceInChart(const PlainChart& chart, const CTavrel& engine,
                                                 std::size_t fc) {
  const std::string of = "flowchart " + std::to_string(fc) + ": ";
  if (!isOutlineEqual(chart, engine, fc)) {
    return StateDifference{of + "bounds and marks", outline(chart), outline(engine, fc)};
  }
  const Lines& intro = Access::flowchartIntros(engine)[fc];
  if (intro != chart.intro) {
    return StateDifference{of + "introduction", bracketed(chart.intro), bracketed(intro)};
  }
  const std::vector<sScreenElement>& elements = Access::screenElements(engine)[fc];
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (isEqual(chart.elements[i], elements[i])) continue;
    return StateDifference{of + "element " + std::to_string(i),
                           describe(asRecord(chart.elements[i])), describe(elements[i])};
  }
  const auto& list = Access::rowElementIndices(engine)[fc];
  const auto& starts = Access::rowStarts(engine)[fc];
  if (chart.isIndexedAs(list, starts)) return std::nullopt;
  return StateDifference{of + "row index", "another", joined(list) + " / " + joined(starts)};
}

std::optional<StateDifference> differenceAtCursor(const PlainEngine& reference,
                                                  const CTavrel& engine) {
  if (!isCursorEqual(reference, engine)) {
    return StateDifference{"cursor", cursor(reference), cursor(engine)};
  }
  if (reference.current < 0) return std::nullopt;
  const auto fc = static_cast<std::size_t>(reference.current);
  if (isOutlineEqual(reference.charts[fc], engine, fc)) return std::nullopt;
  return StateDifference{"bounds and marks", outline(reference.charts[fc]), outline(engine, fc)};
}

std::optional<StateDifference> differenceAnywhere(const PlainEngine& reference,
                                                  const CTavrel& engine) {
  if (auto difference = differenceAtCursor(reference, engine)) return difference;
  for (std::size_t fc = 0; fc < reference.charts.size(); ++fc) {
    if (auto difference = differenceInChart(reference.charts[fc], engine, fc)) return difference;
  }
  return std::nullopt;
}

}  // namespace tavrel::reference
