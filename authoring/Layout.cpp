#include "authoring/Layout.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <utility>

#include "authoring/Router.h"
#include "authoring/TreeLayout.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {
namespace {

constexpr Spacing inTrees = {1, 2, 1};
constexpr Spacing withLines = {2, 2, 2};

constexpr std::size_t leastCellsAllowed = 1000;
constexpr std::size_t mostCellsPerBox = 8;

constexpr std::size_t fewBoxes = 1000;
constexpr std::size_t mostStepsOfFew = 200'000;
constexpr std::size_t mostStepsOfMany = 10'000;

bool isSame(const LineStart& a, const LineStart& b) {
  return a.node == b.node && a.answer == b.answer;
}

class Drawing {
 public:
  Drawing(const ChartGraph& graph, const Unfolding& tree)
      : graph_(graph),
        tree_(tree),
        cells_(treeLayout(tree, graph, tree.lines().empty() ? inTrees : withLines)),
        router_(tree.nodes().size() <= fewBoxes ? mostStepsOfFew : mostStepsOfMany) {
    for (const Cell& cell : cells_) router_.addBox(cell);
    for (std::size_t node = 0; node < cells_.size(); ++node) {
      chart_.boxes.push_back({tree_.nodes()[node].box, cells_[node], {}});
      chart_.boxes.back().exits = {Direction::none, Direction::none};
    }
    drawTree();
  }

  // Draws the lines, those in `first` before all others. Returns those that have no way.
  std::vector<LineStart> drawLines(const std::vector<LineStart>& first) {
    std::vector<LineStart> missing;
    for (const LineStart& line : inOrder(first)) {
      const Cell from = cellOf(line.node);
      const Cell to = cellOf(tree_[line.node].lines[line.answer]);
      const Line drawn = router_.route(from, to, wantedOf(line));
      if (drawn.exit == Direction::none) {
        missing.push_back(line);
      } else {
        put(line, drawn);
      }
    }
    return missing;
  }

  GridChart take() { return std::move(chart_); }

 private:
  Cell cellOf(NodeNumber node) const { return cells_[static_cast<std::size_t>(node)]; }

  Direction wantedOf(const LineStart& line) const {
    return directionOf(line.answer, graph_[tree_[line.node].box].turn);
  }

  void put(const LineStart& line, const Line& drawn) {
    chart_.boxes[static_cast<std::size_t>(line.node)].exits[line.answer] = drawn.exit;
    chart_.connectors.insert(chart_.connectors.end(), drawn.connectors.begin(),
                             drawn.connectors.end());
  }

  void drawTree() {
    for (NodeNumber node = 0; node < static_cast<NodeNumber>(cells_.size()); ++node) {
      for (const Answer answer : answers) {
        const NodeNumber child = tree_[node].children[answer];
        if (child == noNode) continue;
        const Cell from = cellOf(node), to = cellOf(child);
        const LineStart line = {node, answer};
        put(line, router_.straight(from, wantedOf(line), to.x - from.x + to.y - from.y));
      }
    }
  }

  // Lines back come first, since nothing can take their place; then short ones.
  std::vector<LineStart> inOrder(const std::vector<LineStart>& first) const {
    using Rank = std::tuple<bool, bool, std::int64_t>;
    std::vector<std::pair<Rank, LineStart>> ranked;
    for (const LineStart& line : tree_.lines()) {
      const Cell from = cellOf(line.node), to = cellOf(tree_[line.node].lines[line.answer]);
      const bool isFirst = std::any_of(first.begin(), first.end(),
                                       [&](const LineStart& each) { return isSame(each, line); });
      const auto distance = std::int64_t{std::abs(from.x - to.x)} + std::abs(from.y - to.y);
      ranked.push_back({{!isFirst, !tree_.isLoop(line), distance}, line});
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<LineStart> lines;
    for (const auto& [rank, line] : ranked) lines.push_back(line);
    return lines;
  }

  const ChartGraph& graph_;
  const Unfolding& tree_;
  std::vector<Cell> cells_;
  Router router_;
  GridChart chart_;
};

TooManyCells tooManyCells(const Unfolding& tree, std::size_t boxes) {
  std::vector<std::size_t> times(boxes, 0);
  for (const TreeNode& node : tree.nodes()) ++times[static_cast<std::size_t>(node.box)];
  const auto most = std::max_element(times.begin(), times.end());
  return {static_cast<BoxNumber>(most - times.begin()), *most};
}

std::vector<BoxNumber> repeatedQuestions(const Unfolding& tree, const ChartGraph& graph) {
  std::vector<bool> isRepeated(graph.boxes.size(), false);
  for (const TreeNode& node : tree.nodes()) {
    if (node.isRepeated) isRepeated[static_cast<std::size_t>(node.box)] = true;
  }
  std::vector<BoxNumber> boxes;
  for (std::size_t box = 0; box < isRepeated.size(); ++box) {
    const auto number = static_cast<BoxNumber>(box);
    if (isRepeated[box] && !graph[number].isEnd()) boxes.push_back(number);
  }
  return boxes;
}

}  // namespace

std::variant<Layout, NoWayBack, TooManyCells> layOut(const ChartGraph& graph) {
  const std::size_t mostCells = std::max(leastCellsAllowed, mostCellsPerBox * graph.boxes.size());
  Unfolding tree(graph);
  std::vector<LineStart> first;  // lines back for which there was no way in an earlier turn
  while (true) {
    if (tree.nodes().size() > mostCells) return tooManyCells(tree, graph.boxes.size());
    Drawing drawing(graph, tree);
    const std::vector<LineStart> missing = drawing.drawLines(first);
    if (missing.empty()) return Layout{drawing.take(), repeatedQuestions(tree, graph)};
    bool isNew = false;
    for (const LineStart& line : missing) {
      if (!tree.isLoop(line)) continue;
      const bool wasFirst = std::any_of(first.begin(), first.end(),
                                        [&](const LineStart& each) { return isSame(each, line); });
      if (wasFirst)
        return NoWayBack{tree[line.node].box, tree[tree[line.node].lines[line.answer]].box};
      first.push_back(line);
      isNew = true;
    }
    if (isNew) continue;
    for (const LineStart& line : missing) {
      if (!tree.repeat(line, mostCells)) return tooManyCells(tree, graph.boxes.size());
    }
  }
}

}  // namespace tavrel::authoring
