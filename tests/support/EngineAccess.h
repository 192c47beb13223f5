// The tests' view of an engine: its members, and its state as one line of text.

#ifndef TAVREL_TESTS_SUPPORT_ENGINEACCESS_H
#define TAVREL_TESTS_SUPPORT_ENGINEACCESS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/CTavrel.h"

namespace tavrel {

/// The one friend of CTavrel. One function for each data member, of that name
/// without its prefix; const for a const engine.
class EngineAccess {
 public:
#define TAVREL_MEMBER(name)                                      \
  static auto& name(CTavrel& engine) { return engine.m_##name; } \
  static const auto& name(const CTavrel& engine) { return engine.m_##name; }

  TAVREL_MEMBER(screenElements)
  TAVREL_MEMBER(rowElementIndices)
  TAVREL_MEMBER(rowStarts)
  TAVREL_MEMBER(flowchartFileNames)
  TAVREL_MEMBER(flowchartTitles)
  TAVREL_MEMBER(flowchartIntros)
  TAVREL_MEMBER(currentLocation)
  TAVREL_MEMBER(currentFlowchartIndex)
  TAVREL_MEMBER(currentElementIndex)
  TAVREL_MEMBER(directory)
  TAVREL_MEMBER(path)
  TAVREL_MEMBER(minX)
  TAVREL_MEMBER(maxX)
  TAVREL_MEMBER(minY)
  TAVREL_MEMBER(maxY)
#undef TAVREL_MEMBER
};

/// The values with commas between them: "0,2,5". Of many, the first and their number.
template <typename Values>
std::string joined(const Values& values) {
  constexpr std::size_t many = 50;
  std::string text;
  for (std::size_t i = 0; i < values.size() && i < many; ++i) {
    if (i > 0) text += ',';
    text += std::to_string(values[i]);
  }
  return values.size() > many ? text + ",... (" + std::to_string(values.size()) + ")" : text;
}

/// The lines in brackets: "[one][two]".
inline std::string bracketed(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "[" + line + "]";
  return text;
}

/// The indices of a flowchart's marked elements: "0,2".
inline std::string marks(const CTavrel& engine, std::size_t fc) {
  std::vector<std::size_t> marked;
  const auto& elements = EngineAccess::screenElements(engine).at(fc);
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (elements[i].m_isOnPath) marked.push_back(i);
  }
  return joined(marked);
}

/// The cursor, the answers kept and the marks of the current flowchart:
/// "0 Opening 2,0 #1 path="ny" marks=0,2", where 0 is the flowchart's index and #1
/// the element's. An empty name shows as "-".
inline std::string describe(const CTavrel& engine) {
  using Access = EngineAccess;
  const auto& location = Access::currentLocation(engine);
  const std::int32_t fc = Access::currentFlowchartIndex(engine);
  return std::to_string(fc) + " " + (location.m_name.empty() ? "-" : location.m_name) + " " +
         std::to_string(location.m_x) + "," + std::to_string(location.m_y) + " #" +
         std::to_string(Access::currentElementIndex(engine)) + " path=\"" + Access::path(engine) +
         "\" marks=" + (fc < 0 ? "?" : marks(engine, static_cast<std::size_t>(fc)));
}

/// Everything in one element: "box 0,0 @0,0 [text] (commentary) >link y1 n4 i4 o4 *", or
/// "line ..."; the star is there when it is marked, @ stands before its offsets.
inline std::string describe(const sScreenElement& element) {
  const auto pair = [](std::int32_t a, std::int32_t b) {
    return std::to_string(a) + "," + std::to_string(b);
  };
  return (element.m_isNode ? "box " : "line ") + pair(element.m_x, element.m_y) + " @" +
         pair(element.m_xOffset, element.m_yOffset) + " " + bracketed(element.m_boxText) + " (" +
         bracketed(element.m_commentText) + ") >" + element.m_newFlowchartName + " y" +
         std::to_string(element.m_yesDir) + " n" + std::to_string(element.m_noDir) + " i" +
         std::to_string(element.m_directionInto) + " o" + std::to_string(element.m_directionOutOf) +
         (element.m_isOnPath ? " *" : "");
}

/// What is held of one flowchart, its elements by place alone:
/// "intro=[Hello] x=0..2 y=0..0 cells=0,0 2,0 list=0,1 starts=0,2".
inline std::string describeChart(const CTavrel& engine, std::size_t fc) {
  using Access = EngineAccess;
  std::string cells;
  for (const sScreenElement& element : Access::screenElements(engine).at(fc)) {
    cells += std::to_string(element.m_x) + "," + std::to_string(element.m_y) + " ";
  }
  const auto range = [fc](const auto& low, const auto& high) {
    return std::to_string(low.at(fc)) + ".." + std::to_string(high.at(fc));
  };
  return "intro=" + bracketed(Access::flowchartIntros(engine).at(fc)) +
         " x=" + range(Access::minX(engine), Access::maxX(engine)) +
         " y=" + range(Access::minY(engine), Access::maxY(engine)) + " cells=" + cells +
         "list=" + joined(Access::rowElementIndices(engine).at(fc)) +
         " starts=" + joined(Access::rowStarts(engine).at(fc));
}

/// Everything that can change in an engine, for "nothing has changed". Of a long row index,
/// what `joined` shows.
inline std::string snapshot(const CTavrel& engine) {
  std::string all = describe(engine) + "\n";
  const auto& charts = EngineAccess::screenElements(engine);
  for (std::size_t fc = 0; fc < charts.size(); ++fc) {
    all += std::to_string(fc) + ": " + describeChart(engine, fc) + "\n";
    for (const sScreenElement& element : charts[fc]) all += "  " + describe(element) + "\n";
  }
  return all;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_ENGINEACCESS_H
