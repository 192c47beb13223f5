#include "authoring/Sketch.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <tuple>

#include "authoring/TreeLayout.h"

namespace tavrel::authoring {
namespace {

constexpr Spacing inTrees = {1, 2, 1};
constexpr Spacing withLines = {2, 2, 2};

constexpr std::size_t mostStepsOfFew = 200'000;  // of the search for one line
constexpr std::size_t mostStepsOfMany = 10'000;
constexpr std::size_t mostTargets = 8;

}  // namespace

Sketch::Sketch(const ChartGraph& graph, const Unfolding& tree, std::size_t& stepsLeft)
    : graph_(graph),
      tree_(tree),
      lines_(tree.lines()),
      cells_(treeLayout(tree, graph, lines_.empty() ? inTrees : withLines)),
      router_(tree.nodes().size() <= fewNodes ? mostStepsOfFew : mostStepsOfMany, stepsLeft),
      faces_(lines_.empty() ? 0 : cells_.size()) {
  for (std::size_t node = 0; node < cells_.size(); ++node) {
    chart_.boxes.push_back({tree_.nodes()[node].box, cells_[node], {}});
    chart_.boxes.back().exits = {Direction::none, Direction::none};
  }
  drawTree();
  if (!lines_.empty()) prepareLines();
}

std::vector<LineStart> Sketch::drawLines(const std::set<Exit>& first) {
  std::vector<LineStart> missing;
  for (const LineStart& line : inOrder(first)) {
    if (!draw(line)) missing.push_back(line);
  }
  return missing;
}

std::int64_t Sketch::distance(const LineStart& line, NodeNumber to) const {
  const Cell a = cellOf(line.node), b = cellOf(to);
  return std::int64_t{std::abs(a.x - b.x)} + std::abs(a.y - b.y);
}

// The nodes that a line may lead to, near ones first, and no more of them than may be tried.
std::vector<NodeNumber> Sketch::targetsOf(const LineStart& line) const {
  std::vector<NodeNumber> targets = tree_.nodesOf(tree_.targetOf(line));
  const std::size_t count = std::min(targets.size(), mostTargets);
  const auto rank = [&](NodeNumber node) { return std::make_tuple(distance(line, node), node); };
  std::partial_sort(targets.begin(), targets.begin() + static_cast<std::ptrdiff_t>(count),
                    targets.end(),
                    [&](NodeNumber one, NodeNumber other) { return rank(one) < rank(other); });
  targets.resize(count);
  return targets;
}

// Of all nodes that a line may lead to. REQUIRES: there is one.
std::int64_t Sketch::distanceOfNearest(const LineStart& line) const {
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (const NodeNumber node : tree_.nodesOf(tree_.targetOf(line))) {
    least = std::min(least, distance(line, node));
  }
  return least;
}

bool Sketch::draw(const LineStart& line) {
  for (const NodeNumber to : targetsOf(line)) {
    const Line drawn =
        router_.route(cellOf(line.node), cellOf(to), wantedOf(line), exitsOf(line, to));
    if (drawn.exit == Direction::none) continue;
    put(line, drawn);
    const Direction arrival = drawn.connectors.back().outOf;
    faces_.divide({line.node, drawn.exit}, {to, opposite(arrival)});
    return true;
  }
  return false;
}

Direction Sketch::wantedOf(const LineStart& line) const {
  return directionOf(line.answer, graph_[tree_[line.node].box].turn);
}

// Those from which no line lies between the two boxes.
std::vector<Direction> Sketch::exitsOf(const LineStart& line, NodeNumber to) const {
  std::vector<Direction> exits;
  for (const Direction exit : directions) {
    if (faces_.meet({line.node, exit}, to)) exits.push_back(exit);
  }
  return exits;
}

void Sketch::put(const LineStart& line, const Line& drawn) {
  chart_.boxes[static_cast<std::size_t>(line.node)].exits[line.answer] = drawn.exit;
  chart_.connectors.insert(chart_.connectors.end(), drawn.connectors.begin(),
                           drawn.connectors.end());
}

void Sketch::drawTree() {
  for (NodeNumber node = 0; node < static_cast<NodeNumber>(cells_.size()); ++node) {
    for (const Answer answer : answers) {
      const NodeNumber child = tree_[node].children[answer];
      if (child == noNode) continue;
      const Cell from = cellOf(node), to = cellOf(child);
      const LineStart line = {node, answer, false};
      put(line, straightLine(from, wantedOf(line), to.x - from.x + to.y - from.y));
    }
  }
}

// What stands on the grid already. A tree alone needs nothing of it.
void Sketch::prepareLines() {
  for (const Cell& cell : cells_) router_.take(cell);
  for (const PlacedConnector& connector : chart_.connectors) router_.take(connector.cell);
  for (NodeNumber node = 1; node < static_cast<NodeNumber>(cells_.size()); ++node) {
    const NodeNumber parent = tree_[node].parent;
    const bool isBeside = cellOf(parent).y == cellOf(node).y;
    const Direction side = isBeside ? Direction::right : Direction::down;
    faces_.hang({parent, side}, {node, opposite(side)});
  }
}

std::vector<LineStart> Sketch::inOrder(const std::set<Exit>& first) const {
  using Rank = std::tuple<bool, bool, std::int64_t>;
  std::vector<std::pair<Rank, LineStart>> ranked;
  for (const LineStart& line : lines_) {
    ranked.push_back(
        {{first.count(tree_.exitOf(line)) == 0, !line.isLoop, distanceOfNearest(line)}, line});
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<LineStart> lines;
  for (const auto& [rank, line] : ranked) lines.push_back(line);
  return lines;
}

}  // namespace tavrel::authoring
