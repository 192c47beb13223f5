// A flowchart as a plain reader leaves it: a stream read line by line and number by
// number, widths kept in a map, rows in buckets. Slow, and simple enough to believe.

#ifndef TAVREL_TESTS_UNIT_NAIVEREADER_H
#define TAVREL_TESTS_UNIT_NAIVEREADER_H

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <istream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/CTavrel.h"

namespace tavrel {

namespace naive {

struct CutShort {};  // thrown where a line is missing, or no integer stands

inline std::string textLine(std::istream& in) {
  std::string line;
  if (!std::getline(in, line)) throw CutShort();
  return line;
}

inline std::vector<std::int32_t> numberLine(std::istream& in, std::size_t count) {
  std::vector<std::int32_t> numbers(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0 && std::string(" \t\n\v\f\r").find(static_cast<char>(in.peek())) == std::string::npos)
      throw CutShort();
    if (!(in >> numbers[i])) throw CutShort();
  }
  std::string rest;
  std::getline(in, rest);
  return numbers;
}

inline std::int32_t number(std::istream& in) { return numberLine(in, 1)[0]; }

inline std::vector<std::string> text(std::istream& in) {
  std::vector<std::string> lines;
  for (std::int32_t count = number(in); count > 0; --count) lines.push_back(textLine(in));
  return lines;
}

/// The offsets along one axis of cells with these sizes, by coordinate.
using Sizes = std::map<std::int32_t, std::int64_t>;
inline std::int32_t offset(const Sizes& sizes, std::int32_t coordinate, std::int64_t gap) {
  if (coordinate == 0) return 0;
  const std::int64_t distance = std::abs(std::int64_t{coordinate});
  std::int64_t sum = gap * distance;
  for (const auto& [other, size] : sizes) {
    const bool isEnd = other == 0 || other == coordinate;
    const bool isBetween =
        (other < 0) == (coordinate < 0) && std::abs(std::int64_t{other}) < distance;
    sum += isEnd ? size : isBetween ? 2 * size : 0;
  }
  if (coordinate < 0) sum = -sum;
  if (sum < INT32_MIN || sum > INT32_MAX) throw std::length_error("offset");
  return static_cast<std::int32_t>(sum);
}

}  // namespace naive

struct NaiveChart {
  std::vector<std::string> intro = {"Unable to read this flowchart intro."};
  std::vector<sScreenElement> elements = {emptyElement(true)};
  std::int64_t minX = 0, maxX = 0, minY = 0, maxY = 0;
  std::vector<std::int32_t> list = {0}, starts = {0, 1};

  NaiveChart() {
    elements[0].m_boxText = {"Flowchart not read"};
    elements[0].m_commentText = {"Unable to read this flowchart."};
  }

  /// Reads the file as a selection does. Throws what a selection throws.
  void select(const std::string& file) {
    if (elements.size() > 1) return;
    const NaiveChart before = *this;
    std::istringstream in(file);
    elements.clear();
    try {
      read(in);
    } catch (const naive::CutShort&) {
      if (elements.empty()) {
        elements = before.elements;
        return;
      }
    }
    try {
      if (maxY - minY >= 16777216) throw std::length_error("rows");
      layOut();
      indexRows();
    } catch (const std::length_error&) {
      *this = before;
      throw;
    }
  }

 private:
  static sScreenElement emptyElement(bool isNode) {
    sScreenElement element;
    element.m_isNode = isNode;
    element.m_yesDir = element.m_noDir = element.m_directionInto = element.m_directionOutOf = 4;
    return element;
  }

  void read(std::istream& in) {
    naive::textLine(in);
    naive::textLine(in);
    intro = naive::text(in);
    std::vector<sScreenElement> nodes;
    for (std::int32_t count = naive::number(in); count > 0; --count) {
      sScreenElement& node = nodes.emplace_back(emptyElement(true));
      node.m_boxText = naive::text(in);
      node.m_commentText = naive::text(in);
      node.m_newFlowchartName = naive::textLine(in);
    }
    const std::int32_t boxes = naive::number(in);
    if (boxes < 0) throw std::length_error("boxes");
    for (std::int32_t i = 0; i < boxes; ++i) {
      const std::vector<std::int32_t> cell = naive::numberLine(in, 7);
      widen(cell[1], cell[2]);
      sScreenElement box = nodes.at(static_cast<std::size_t>(cell[0]));
      box.m_x = cell[1];
      box.m_y = cell[2];
      box.m_yesDir = cell[5] == -1 ? 4 : cell[5];
      box.m_noDir = cell[6] == -1 ? 4 : cell[6];
      elements.push_back(box);
    }
    const std::string lastName = elements.empty() ? "" : elements.back().m_newFlowchartName;
    for (std::int32_t count = naive::number(in); count > 0; --count) {
      const std::vector<std::int32_t> cell = naive::numberLine(in, 7);
      sScreenElement line = emptyElement(false);
      line.m_newFlowchartName = lastName;
      line.m_directionInto = cell[3];
      line.m_directionOutOf = cell[4];
      line.m_x = cell[5];
      line.m_y = cell[6];
      widen(line.m_x, line.m_y);
      elements.push_back(line);
    }
  }

  void layOut() {
    naive::Sizes widths, heights;
    for (const sScreenElement& element : elements) {
      std::int64_t& width = widths[element.m_x];
      for (const std::string& line : element.m_boxText) {
        width = std::max(width, static_cast<std::int64_t>(line.size()));
      }
      std::int64_t& height = heights[element.m_y];
      height = std::max(height, static_cast<std::int64_t>(element.m_boxText.size()));
    }
    for (sScreenElement& element : elements) {
      element.m_xOffset = naive::offset(widths, element.m_x, 15);
      element.m_yOffset = naive::offset(heights, element.m_y, 2);
    }
  }

  void indexRows() {
    std::vector<std::vector<std::int32_t>> rows(static_cast<std::size_t>(maxY - minY + 1));
    for (std::size_t i = 0; i < elements.size(); ++i) {
      rows[static_cast<std::size_t>(elements[i].m_y - minY)].push_back(
          static_cast<std::int32_t>(i));
    }
    list.clear();
    starts = {0};
    for (const std::vector<std::int32_t>& row : rows) {
      list.insert(list.end(), row.begin(), row.end());
      starts.push_back(static_cast<std::int32_t>(list.size()));
    }
  }

  void widen(std::int64_t x, std::int64_t y) {
    minX = std::min(minX, x);
    maxX = std::max(maxX, x);
    minY = std::min(minY, y);
    maxY = std::max(maxY, y);
  }
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_UNIT_NAIVEREADER_H
