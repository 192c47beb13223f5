#include "bench/PlainReader.h"

#include <fstream>
#include <limits>

namespace tavrel::bench {
namespace {

void passRestOfLine(std::istream& file) {
  file.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
}

std::size_t readCount(std::istream& file) {
  std::size_t count = 0;
  file >> count;
  passRestOfLine(file);
  return count;
}

void readCell(std::istream& file, BoxCell& box) {
  std::int32_t ignored = 0;
  file >> box.node >> box.x >> box.y >> ignored >> ignored >> box.yes >> box.no;
}

void readCell(std::istream& file, ConnectorCell& connector) {
  std::int32_t ignored = 0;
  file >> ignored >> ignored >> ignored;
  file >> connector.into >> connector.outOf >> connector.x >> connector.y;
}

template <typename Cell>
std::vector<Cell> readCells(std::istream& file) {
  std::vector<Cell> cells(readCount(file));
  for (Cell& cell : cells) {
    readCell(file, cell);
    passRestOfLine(file);
  }
  return cells;
}

}  // namespace

ParsedChart PlainReader::parse(const std::string& path) {
  texts_.clear();
  ParsedChart chart;
  std::ifstream file(path);
  passRestOfLine(file);
  passRestOfLine(file);
  chart.intro = readLines(file, chart);
  chart.nodes.resize(readCount(file));
  for (Node& node : chart.nodes) {
    node.text = readLines(file, chart);
    node.commentary = readLines(file, chart);
    node.next = readLine(file);
  }
  chart.boxes = readCells<BoxCell>(file);
  chart.connectors = readCells<ConnectorCell>(file);
  return chart;
}

LineRange PlainReader::readLines(std::istream& file, ParsedChart& chart) {
  const std::size_t first = chart.lines.size();
  for (std::size_t count = readCount(file); count > 0; --count) {
    chart.lines.push_back(readLine(file));
  }
  return chart.linesSince(first);
}

std::string_view PlainReader::readLine(std::istream& file) {
  std::string& line = texts_.emplace_back();
  std::getline(file, line);
  return line;
}

}  // namespace tavrel::bench
