#include "tests/failures/Result.h"

#include "tests/support/EngineAccess.h"

namespace tavrel {
namespace {

std::string text(std::monostate) { return ""; }
std::string text(std::int64_t number) { return std::to_string(number); }
std::string text(const std::string& line) { return "\"" + line + "\""; }
std::string text(const std::vector<std::string>& lines) { return bracketed(lines); }
std::string text(const sScreenElement& element) { return describe(element); }

std::string text(const std::tuple<std::string, std::int64_t, std::int64_t>& location) {
  const auto& [name, x, y] = location;
  return text(name) + " " + text(x) + "," + text(y);
}

std::string text(const sFlowchartNameAndCoordinates& location) {
  return text(std::tuple<std::string, std::int64_t, std::int64_t>(location.m_name, location.m_x,
                                                                  location.m_y));
}

template <typename Inner>
std::string text(const std::optional<Inner>& value) {
  return value ? text(*value) : "nothing";
}

std::string text(const ScreenBounds& bounds) {
  return text(bounds.minX) + ".." + text(bounds.maxX) + " " + text(bounds.minY) + ".." +
         text(bounds.maxY);
}

// The record that the element was made of.
std::string text(const ScreenElement& element) {
  const auto narrow = [](std::int64_t number) { return static_cast<std::int32_t>(number); };
  sScreenElement record;
  record.m_x = narrow(element.x());
  record.m_y = narrow(element.y());
  record.m_xOffset = narrow(element.xOffset());
  record.m_yOffset = narrow(element.yOffset());
  record.m_isOnPath = element.isOnPath();
  record.m_isNode = element.isNode();
  record.m_newFlowchartName = element.nameOfNextFlowchart().value_or("");
  record.m_boxText = element.boxText();
  record.m_commentText = element.commentaryText();
  record.m_yesDir = narrow(element.yesDirection());
  record.m_noDir = narrow(element.noDirection());
  record.m_directionInto = narrow(element.intoDirection());
  record.m_directionOutOf = narrow(element.outOfDirection());
  return describe(record);
}

template <typename Element>
std::string textOfList(const std::vector<Element>& elements) {
  std::string all;
  for (const Element& element : elements) all += text(element) + "; ";
  return all;
}

std::string text(const std::vector<sScreenElement>& elements) { return textOfList(elements); }
std::string text(const std::vector<ScreenElement>& elements) { return textOfList(elements); }

}  // namespace

std::string textOf(const Value& value) {
  return std::visit([](const auto& held) { return text(held); }, value);
}

}  // namespace tavrel
