#include "authoring/Layout.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "authoring/Faces.h"
#include "authoring/Router.h"
#include "authoring/TreeLayout.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {
namespace {

constexpr Spacing inTrees = {1, 2, 1};
constexpr Spacing withLines = {2, 2, 2};

constexpr std::size_t leastCellsAllowed = 1000;
constexpr std::size_t mostCellsPerBox = 8;

constexpr std::size_t fewNodes = 2000;
constexpr std::size_t mostStepsOfFew = 200'000;
constexpr std::size_t mostStepsOfMany = 10'000;
constexpr std::size_t leastStepsInAll = 4'000'000;  // of all searches together
constexpr std::size_t mostStepsPerBox = 500;        // the same
constexpr int mostRounds = 30;

class Drawing {
 public:
  Drawing(const ChartGraph& graph, const Unfolding& tree, std::size_t& stepsLeft)
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

  // Draws the lines, those in `first` before all others. Returns those that have no way.
  std::vector<LineStart> drawLines(const std::set<LineStart>& first) {
    std::vector<LineStart> missing;
    for (const LineStart& line : inOrder(first)) {
      const NodeNumber to = targetOf(line);
      const Line drawn =
          router_.route(cellOf(line.node), cellOf(to), wantedOf(line), exitsOf(line));
      if (drawn.exit == Direction::none) {
        missing.push_back(line);
        continue;
      }
      put(line, drawn);
      const Direction arrival = drawn.connectors.back().outOf;
      faces_.divide({line.node, drawn.exit}, {to, opposite(arrival)});
    }
    return missing;
  }

  GridChart take() { return std::move(chart_); }

 private:
  Cell cellOf(NodeNumber node) const { return cells_[static_cast<std::size_t>(node)]; }

  NodeNumber targetOf(const LineStart& line) const { return tree_[line.node].lines[line.answer]; }

  Direction wantedOf(const LineStart& line) const {
    return directionOf(line.answer, graph_[tree_[line.node].box].turn);
  }

  // Those from which no line lies between the two boxes.
  std::vector<Direction> exitsOf(const LineStart& line) const {
    std::vector<Direction> exits;
    for (const Direction exit : directions) {
      if (faces_.meet({line.node, exit}, targetOf(line))) exits.push_back(exit);
    }
    return exits;
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
        const LineStart line = {node, answer, false};
        put(line, straightLine(from, wantedOf(line), to.x - from.x + to.y - from.y));
      }
    }
  }

  // What stands on the grid already. A tree alone needs nothing of it.
  void prepareLines() {
    for (const Cell& cell : cells_) router_.take(cell);
    for (const PlacedConnector& connector : chart_.connectors) router_.take(connector.cell);
    for (NodeNumber node = 1; node < static_cast<NodeNumber>(cells_.size()); ++node) {
      const NodeNumber parent = tree_[node].parent;
      const bool isBeside = cellOf(parent).y == cellOf(node).y;
      const Direction side = isBeside ? Direction::right : Direction::down;
      faces_.hang({parent, side}, {node, opposite(side)});
    }
  }

  // Lines back come first, since nothing can take their place; then short ones.
  std::vector<LineStart> inOrder(const std::set<LineStart>& first) const {
    using Rank = std::tuple<bool, bool, std::int64_t>;
    std::vector<std::pair<Rank, LineStart>> ranked;
    for (const LineStart& line : lines_) {
      const Cell from = cellOf(line.node), to = cellOf(targetOf(line));
      const auto distance = std::int64_t{std::abs(from.x - to.x)} + std::abs(from.y - to.y);
      ranked.push_back({{first.count(line) == 0, !line.isLoop, distance}, line});
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<LineStart> lines;
    for (const auto& [rank, line] : ranked) lines.push_back(line);
    return lines;
  }

  const ChartGraph& graph_;
  const Unfolding& tree_;
  std::vector<LineStart> lines_;
  std::vector<Cell> cells_;
  Router router_;
  Faces faces_;
  GridChart chart_;
};

TooManyCells tooManyCells(const Unfolding& tree, std::size_t boxes) {
  std::vector<std::size_t> times(boxes, 0);
  for (const TreeNode& node : tree.nodes()) ++times[static_cast<std::size_t>(node.box)];
  const auto most = std::max_element(times.begin(), times.end());
  return {static_cast<BoxNumber>(most - times.begin()), *most};
}

// Those that a line should have led to. What stands within their copies, copied too, follows
// from that.
std::vector<BoxNumber> repeatedQuestions(const Unfolding& tree, const ChartGraph& graph) {
  std::vector<bool> isRepeated(graph.boxes.size(), false);
  for (const TreeNode& node : tree.nodes()) {
    const bool isWithin = node.parent != noNode && tree[node.parent].isRepeated;
    if (node.isRepeated && !isWithin) isRepeated[static_cast<std::size_t>(node.box)] = true;
  }
  std::vector<BoxNumber> boxes;
  for (std::size_t box = 0; box < isRepeated.size(); ++box) {
    const auto number = static_cast<BoxNumber>(box);
    if (isRepeated[box] && !graph[number].isEnd()) boxes.push_back(number);
  }
  return boxes;
}

// Draws a chart again and again: with lines back first that had no way, and with boxes repeated
// that no line leads to.
class Rounds {
 public:
  explicit Rounds(const ChartGraph& graph)
      : graph_(graph),
        mostCells_(std::max(leastCellsAllowed, mostCellsPerBox * graph.boxes.size())),
        stepsLeft_(std::max(leastStepsInAll, mostStepsPerBox * graph.boxes.size())),
        tree_(graph) {}

  std::variant<Layout, NoWayBack, TooManyCells> run() {
    for (int round = 1; tree_.nodes().size() <= mostCells_; ++round) {
      Drawing drawing(graph_, tree_, stepsLeft_);
      std::vector<LineStart> missing = drawing.drawLines(first_);
      if (missing.empty()) return Layout{drawing.take(), repeatedQuestions(tree_, graph_)};
      if (const auto hopeless = firstHopeless(missing)) return *hopeless;
      if (putFirst(missing)) continue;
      if (round >= mostRounds) missing = forwardLines();
      if (!repeatAll(missing)) break;
    }
    return tooManyCells(tree_, graph_.boxes.size());
  }

 private:
  // A line back that had no way although it came before all others.
  std::optional<NoWayBack> firstHopeless(const std::vector<LineStart>& missing) const {
    const auto found = std::find_if(missing.begin(), missing.end(), [this](const LineStart& line) {
      return first_.count(line) > 0;
    });
    if (found == missing.end()) return std::nullopt;
    const TreeNode& from = tree_[found->node];
    return NoWayBack{from.box, tree_[from.lines[found->answer]].box};
  }

  bool putFirst(const std::vector<LineStart>& missing) {
    const std::size_t before = first_.size();
    for (const LineStart& line : missing) {
      if (line.isLoop) first_.insert(line);
    }
    return first_.size() > before;
  }

  std::vector<LineStart> forwardLines() const {
    std::vector<LineStart> lines = tree_.lines();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const LineStart& line) { return line.isLoop; }),
                lines.end());
    return lines;
  }

  bool repeatAll(const std::vector<LineStart>& lines) {
    return std::all_of(lines.begin(), lines.end(),
                       [this](const LineStart& line) { return tree_.repeat(line, mostCells_); });
  }

  const ChartGraph& graph_;
  std::size_t mostCells_;
  std::size_t stepsLeft_;
  Unfolding tree_;
  std::set<LineStart> first_;
};

}  // namespace

std::variant<Layout, NoWayBack, TooManyCells> layOut(const ChartGraph& graph) {
  return Rounds(graph).run();
}

}  // namespace tavrel::authoring
