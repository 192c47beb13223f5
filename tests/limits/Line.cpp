#include "tests/limits/Line.h"

#include <algorithm>
#include <random>

#include "tests/support/ChartFile.h"

namespace tavrel {
namespace {

std::int32_t stepX(std::int32_t direction) {
  return direction == xPlus ? 1 : direction == xMinus ? -1 : 0;
}

std::int32_t stepY(std::int32_t direction) {
  return direction == yPlus ? 1 : direction == yMinus ? -1 : 0;
}

struct PlacedCell {
  std::size_t number;  // along the line
  std::int32_t x, y;
};

std::vector<PlacedCell> placed(const Way& way) {
  std::vector<PlacedCell> cells;
  std::int32_t x = 0, y = 0;
  for (const std::int32_t direction : way) {
    cells.push_back({cells.size(), x, y});
    x += stepX(direction);
    y += stepY(direction);
  }
  return cells;
}

// The root stays first. Written out, since the library's shuffle may differ elsewhere.
void shuffle(std::vector<PlacedCell>& cells) {
  std::mt19937 random(4);
  for (std::size_t left = cells.size() - 1; left > 1; --left) {
    std::swap(cells[left], cells[1 + random() % left]);
  }
}

void addNode(ChartFile& file, const PlacedCell& cell, const std::string& next) {
  const std::string name = std::to_string(cell.number);
  file.node({"Question " + name + ":", "15-17 HCP and balanced?"},
            {"The commentary explains why question " + name, "is asked, in a few words."}, next);
}

}  // namespace

Way alongRow(std::size_t cells) { return Way(cells, xPlus); }

Way downColumn(std::size_t cells) { return Way(cells, yPlus); }

Way throughRows(std::size_t cells, std::size_t rowLength) {
  Way way;
  for (std::size_t i = 0; i < cells; ++i) {
    const bool goesBack = i / rowLength % 2 == 1;
    way.push_back(i % rowLength == rowLength - 1 ? yPlus : goesBack ? xMinus : xPlus);
  }
  return way;
}

Way spiral(std::size_t cells) {
  constexpr std::int32_t turns[] = {xPlus, yPlus, xMinus, yMinus};
  Way way;
  for (std::size_t side = 0; way.size() < cells; ++side) {
    const std::size_t length = 2 * (side / 2 + 1);
    way.insert(way.end(), std::min(length, cells - way.size()), turns[side % 4]);
  }
  return way;
}

std::string Line::file(const std::string& next) const {
  std::vector<PlacedCell> cells = placed(way);
  if (order == FileOrder::shuffled) shuffle(cells);
  ChartFile file;
  std::int64_t nodes = 0;
  for (const PlacedCell& cell : cells) {
    const std::int32_t out = way[cell.number];
    const bool isLast = cell.number + 1 == way.size();
    if (cell.number % spacing != 0) {
      file.line(cell.x, cell.y, way[cell.number - 1], out);
    } else {
      addNode(file, cell, isLast ? next : "");
      file.cell(nodes++, cell.x, cell.y, isLast ? noExit : out);
    }
  }
  return file.text();
}

std::int32_t Line::lastX() const { return placed(way).back().x; }
std::int32_t Line::lastY() const { return placed(way).back().y; }

bool isAtEnd(const CTavrel& engine, const Line& line) {
  const sFlowchartNameAndCoordinates location = engine.mCurrentLocation();
  return location.m_x == line.lastX() && location.m_y == line.lastY();
}

}  // namespace tavrel
