#include <algorithm>

#include "tests/support/ChartFile.h"
#include "tests/worlds/Worlds.h"

namespace tavrel::worlds {
namespace {

using reference::What;

constexpr int exits = 5;       // none, or one of the four directions
constexpr int lineCodes = 16;  // into and out of
constexpr int noCell = 8;      // no connector cell

struct Place {
  int x, y;
};

// The cells around the middle; the other box's first two, of which one stands for the four
// sides and one for the four corners.
constexpr Place cells[] = {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}};

/// A connector cell: where it is, by the list above, and its two directions.
struct Line {
  int cell = noCell, into = 0, outOf = 0;

  int code() const { return cell * lineCodes + into * 4 + outOf; }
};

struct Chart {
  int otherBox = 0;
  std::array<int, 4> exitsOfBoxes{};  // yes and no of the middle, yes and no of the other; 4: none
  std::array<Line, 2> lines;          // by cell
};

// --- Symmetries: first the reflection that swaps x and y, then turns, all about the middle.

constexpr int symmetryCount = 8;
constexpr int swapped[] = {1, 0, 3, 2, 4};  // of directions

Place moved(Place place, int symmetry) {
  if (symmetry >= 4) place = {place.y, place.x};
  for (int turn = 0; turn < symmetry % 4; ++turn) place = {-place.y, place.x};
  return place;
}

/// A turn takes (1, 0) to (0, 1): larger x to larger y, that to smaller x.
int turned(int direction) {
  static constexpr int after[] = {3, 0, 1, 2, 4};
  return after[direction];
}

int moved(int direction, int symmetry) {
  if (symmetry >= 4) direction = swapped[direction];
  for (int turn = 0; turn < symmetry % 4; ++turn) direction = turned(direction);
  return direction;
}

int cellAt(Place place) {
  for (int i = 0; i < 8; ++i) {
    if (cells[i].x == place.x && cells[i].y == place.y) return i;
  }
  return noCell;
}

Line moved(const Line& line, int symmetry) {
  if (line.cell == noCell) return line;
  return {cellAt(moved(cells[line.cell], symmetry)), moved(line.into, symmetry),
          moved(line.outOf, symmetry)};
}

Chart moved(const Chart& chart, int symmetry) {
  Chart other;
  other.otherBox = cellAt(moved(cells[chart.otherBox], symmetry));
  for (std::size_t i = 0; i < 4; ++i) {
    other.exitsOfBoxes[i] = moved(chart.exitsOfBoxes[i], symmetry);
  }
  other.lines = {moved(chart.lines[0], symmetry), moved(chart.lines[1], symmetry)};
  if (other.lines[0].cell > other.lines[1].cell) std::swap(other.lines[0], other.lines[1]);
  return other;
}

// --- Codes: a chart as a number ---------------------------------------------------------

constexpr std::uint64_t lineRoom = (noCell + 1) * lineCodes;

std::uint64_t codeOf(const Chart& chart) {
  auto code = static_cast<std::uint64_t>(chart.otherBox);
  for (const int exit : chart.exitsOfBoxes) code = code * exits + static_cast<unsigned>(exit);
  for (const Line& line : chart.lines) {
    code = code * lineRoom + static_cast<unsigned>(line.code());
  }
  return code;
}

Chart chartOf(std::uint64_t code) {
  Chart chart;
  for (std::size_t i = 2; i-- > 0; code /= lineRoom) {
    const int line = static_cast<int>(code % lineRoom);
    chart.lines[i] = {line / lineCodes, line / 4 % 4, line % 4};
  }
  for (std::size_t i = 4; i-- > 0; code /= exits) {
    chart.exitsOfBoxes[i] = static_cast<int>(code % exits);
  }
  chart.otherBox = static_cast<int>(code);
  return chart;
}

/// Whether this is the chart that stands for all that are symmetric to it: the one with the
/// smallest code.
bool standsForAll(const Chart& chart) {
  const std::uint64_t code = codeOf(chart);
  for (int symmetry = 1; symmetry < symmetryCount; ++symmetry) {
    const Place box = moved(cells[chart.otherBox], symmetry);
    if (cellAt(box) < chart.otherBox) return false;
    if (cellAt(box) == chart.otherBox && codeOf(moved(chart, symmetry)) < code) return false;
  }
  return true;
}

/// The choices of up to two connector cells: none, one, or two, the lower cell first.
std::vector<std::array<Line, 2>> linesBeside(int otherBox) {
  std::vector<Line> single{Line()};
  for (int cell = 0; cell < noCell; ++cell) {
    for (int code = 0; code < lineCodes && cell != otherBox; ++code) {
      single.push_back({cell, code / 4, code % 4});
    }
  }
  std::vector<std::array<Line, 2>> all;
  for (const Line& one : single) {
    for (const Line& other : single) {
      const bool isNone = one.cell == noCell && other.cell == noCell;
      if (isNone || one.cell < other.cell) all.push_back({one, other});
    }
  }
  return all;
}

std::int64_t inFile(int exit) { return exit == 4 ? noExit : exit; }

// --- What is tried ------------------------------------------------------------------------

constexpr What moves[] = {What::moveXPlus, What::moveXMinus, What::moveYPlus,  What::moveYMinus,
                          What::moveYes,   What::moveNo,     What::moveToRoot, What::moveBack};

void tryMoves(Sheet& sheet) {
  const std::size_t elements = sheet.plain().currentChart().elements.size();
  for (std::size_t element = 0; element < elements; ++element) {
    for (const What move : moves) {
      sheet.putCursorOn(element);
      sheet.ask({move});
    }
  }
}

void tryPath(std::size_t index, const char* answers, Sheet& sheet) {
  sheet.ask(reference::startRequest(static_cast<std::int64_t>(index), answers));
  for (int step = 0; step < 3; ++step) sheet.ask({What::moveAlongPath});
}

}  // namespace

LinesBetween::LinesBetween() {
  for (int otherBox = 0; otherBox < 2; ++otherBox) {
    const auto lines = linesBeside(otherBox);
    for (int i = 0; i < exits * exits * exits * exits; ++i) {
      for (const auto& each : lines) {
        const Chart chart{otherBox,
                          {i % exits, i / exits % exits, i / (exits * exits) % exits,
                           i / (exits * exits * exits)},
                          each};
        if (standsForAll(chart)) codes_.push_back(codeOf(chart));
      }
    }
  }
}

std::string LinesBetween::file(std::size_t number) const {
  const Chart chart = moved(chartOf(codes_[number]), static_cast<int>(number % symmetryCount));
  const auto& [yes, no, otherYes, otherNo] = chart.exitsOfBoxes;
  ChartFile file;
  file.node({}).cell(0, 0, 0, inFile(yes), inFile(no));
  file.cell(0, cells[chart.otherBox].x, cells[chart.otherBox].y, inFile(otherYes), inFile(otherNo));
  for (const Line& line : chart.lines) {
    if (line.cell == noCell) continue;
    file.line(cells[line.cell].x, cells[line.cell].y, line.into, line.outOf);
  }
  return file.text();
}

void LinesBetween::tryChart(std::size_t index, Sheet& sheet) const {
  sheet.ask(reference::resetRequest(static_cast<std::int64_t>(index)));
  sheet.compareChart(index);
  tryMoves(sheet);
  for (const char* answers : {"yy", "yn", "ny", "nn"}) tryPath(index, answers, sheet);
  sheet.compareChart(index);
}

}  // namespace tavrel::worlds
