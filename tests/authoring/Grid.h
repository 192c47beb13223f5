// Charts on the grid, for tests: small ones as pictures, any as to whether they hold together.

#ifndef TAVREL_TESTS_AUTHORING_GRID_H
#define TAVREL_TESTS_AUTHORING_GRID_H

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "authoring/Layout.h"

namespace tavrel::authoring {

/// A graph of boxes 0, 1, 2 ... by their yes and no exits, -1 for none; 0 is the root.
inline ChartGraph graphOf(const std::vector<std::pair<BoxNumber, BoxNumber>>& exits) {
  ChartGraph graph;
  for (const auto& [yes, no] : exits) graph.boxes.push_back({{yes, no}, Turn::right});
  return graph;
}

/// The rows from top to bottom, a character for each cell: boxes as 0 to 9 and a, b, c ...,
/// lines as - and |, their bends as +. Without blanks at the ends of rows.
inline std::vector<std::string> pictureOf(const GridChart& chart) {
  std::map<std::pair<int, int>, char> cells;  // by row, then column
  for (const PlacedBox& box : chart.boxes) {
    cells[{box.cell.y, box.cell.x}] =
        static_cast<char>(box.box < 10 ? '0' + box.box : 'a' + box.box - 10);
  }
  for (const PlacedConnector& connector : chart.connectors) {
    const bool isAcross = connector.into == Direction::right || connector.into == Direction::left;
    cells[{connector.cell.y, connector.cell.x}] = connector.into != connector.outOf ? '+'
                                                  : isAcross                        ? '-'
                                                                                    : '|';
  }
  int left = 0, bottom = 0;
  for (const auto& [place, character] : cells) {
    left = std::min(left, place.second);
    bottom = std::max(bottom, place.first);
  }
  std::vector<std::string> rows;
  for (int y = cells.begin()->first.first; y <= bottom; ++y) {
    std::string row;
    for (auto cell = cells.lower_bound({y, left}); cell != cells.end() && cell->first.first == y;
         ++cell) {
      row.resize(static_cast<std::size_t>(cell->first.second - left), ' ');
      row += cell->second;
    }
    rows.push_back(row);
  }
  return rows;
}

/// Finds what is wrong with a chart on the grid: what it says of its graph, and its lines.
class GridCheck {
 public:
  GridCheck(const GridChart& chart, const ChartGraph& graph) : chart_(chart), graph_(graph) {
    for (std::size_t i = 0; i < chart.boxes.size(); ++i) place(chart.boxes[i].cell, i, boxes_);
    for (std::size_t i = 0; i < chart.connectors.size(); ++i) {
      place(chart.connectors[i].cell, i, connectors_);
    }
  }

  /// What is wrong first; empty for nothing.
  std::string fault() {
    if (chart_.boxes.empty() || chart_.boxes[0].cell != Cell{0, 0}) return "no root at 0,0";
    if (chart_.boxes[0].box != graph_.root) return "another root";
    for (const PlacedBox& box : chart_.boxes) {
      for (const Answer answer : answers) follow(box, answer);
    }
    if (fault_.empty() && walked_.size() != chart_.connectors.size()) fault_ = "a loose connector";
    return fault_;
  }

 private:
  using Places = std::map<std::pair<int, int>, std::size_t>;

  void place(Cell cell, std::size_t number, Places& places) {
    const std::pair<int, int> key(cell.x, cell.y);
    if (boxes_.count(key) + connectors_.count(key) > 0) fail("two cells in one place", cell);
    places[key] = number;
  }

  void fail(const std::string& what, Cell cell) {
    if (!fault_.empty()) return;
    fault_ = what + " at " + std::to_string(cell.x) + "," + std::to_string(cell.y);
  }

  // Along the line, cell by cell, to the box that the graph wants there.
  void follow(const PlacedBox& box, Answer answer) {
    const BoxNumber wanted = graph_[box.box].exits[answer];
    Direction direction = box.exits[answer];
    if ((wanted == noBox) != (direction == Direction::none)) return fail("an exit", box.cell);
    if (wanted == noBox) return;
    if (answer == Answer::no && direction == box.exits.yes) return fail("one side", box.cell);
    Cell at = moved(box.cell, direction);
    if (boxes_.count({at.x, at.y}) > 0 && direction != Direction::right) fail("touching", at);
    for (auto found = connectors_.find({at.x, at.y}); found != connectors_.end();
         found = connectors_.find({at.x, at.y})) {
      const PlacedConnector& connector = chart_.connectors[found->second];
      if (connector.into != direction) return fail("into another line", at);
      if (!walked_.insert(found->second).second) return fail("walked twice", at);
      direction = connector.outOf;
      at = moved(at, direction);
    }
    const auto end = boxes_.find({at.x, at.y});
    if (end == boxes_.end()) return fail("into nothing", at);
    if (chart_.boxes[end->second].box != wanted) return fail("another box", at);
    if (!arrivals_.insert({{at.x, at.y}, direction}).second) fail("two lines at one side", at);
    followBack(at, direction, box.cell);
  }

  // From the side at which a line arrives, against its direction, to the box where it starts.
  void followBack(Cell at, Direction direction, Cell start) {
    at = moved(at, opposite(direction));
    for (auto found = connectors_.find({at.x, at.y}); found != connectors_.end();
         found = connectors_.find({at.x, at.y})) {
      const PlacedConnector& connector = chart_.connectors[found->second];
      if (connector.outOf != direction) return fail("another line's way back", at);
      direction = connector.into;
      at = moved(at, opposite(direction));
    }
    if (at != start) fail("back to another box", at);
  }

  const GridChart& chart_;
  const ChartGraph& graph_;
  Places boxes_, connectors_;
  std::set<std::size_t> walked_;
  std::set<std::pair<std::pair<int, int>, Direction>> arrivals_;
  std::string fault_;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_TESTS_AUTHORING_GRID_H
