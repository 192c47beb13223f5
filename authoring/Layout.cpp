#include "authoring/Layout.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "authoring/Plan.h"
#include "authoring/Sketch.h"
#include "authoring/Unfolding.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t leastCellsAllowed = 1000;
constexpr std::size_t mostCellsPerBox = 8;

constexpr std::size_t leastStepsInAll = 2'000'000;  // of all searches together
constexpr std::size_t mostStepsPerBox = 500;        // the same
constexpr int roundsOfFew = 20;                     // before copies are of all that follows
constexpr int roundsOfMany = 5;

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
      : mostCells_(std::max(leastCellsAllowed, mostCellsPerBox * graph.boxes.size())),
        stepsLeft_(std::max(leastStepsInAll, mostStepsPerBox * graph.boxes.size())),
        plan_(bestPlan(graph)) {}

  std::variant<Layout, NoWayBack, TooManyCells> run() {
    Unfolding tree(plan_.graph, plan_.hanging);
    for (int round = 1; tree.nodes().size() <= mostCells_; ++round) {
      Sketch sketch(plan_.graph, tree, stepsLeft_);
      std::vector<LineStart> missing = sketch.drawLines(plan_.first);
      if (missing.empty()) return Layout{sketch.take(), repeatedQuestions(tree, plan_.graph)};
      if (const auto hopeless = firstHopeless(tree, missing)) return *hopeless;
      if (putFirst(tree, missing)) continue;
      if (!repeat(tree, std::move(missing), round)) break;
    }
    return tooManyCells(tree, plan_.graph.boxes.size());
  }

 private:
  bool repeat(Unfolding& tree, std::vector<LineStart> missing, int round) const {
    const bool isSmall = tree.nodes().size() <= fewNodes;
    if (round < (isSmall ? roundsOfFew : roundsOfMany)) {
      return tree.repeat(std::move(missing), mostCells_);
    }
    return tree.repeatWhole(missing, mostCells_);
  }

  // A line back that had no way although it came before all others.
  std::optional<NoWayBack> firstHopeless(const Unfolding& tree,
                                         const std::vector<LineStart>& missing) const {
    const auto found = std::find_if(missing.begin(), missing.end(), [&](const LineStart& line) {
      return line.isLoop && plan_.first.count(tree.exitOf(line)) > 0;
    });
    if (found == missing.end()) return std::nullopt;
    return NoWayBack{tree[found->node].box, tree.targetOf(*found)};
  }

  bool putFirst(const Unfolding& tree, const std::vector<LineStart>& missing) {
    const std::size_t before = plan_.first.size();
    for (const LineStart& line : missing) {
      if (line.isLoop) plan_.first.insert(tree.exitOf(line));
    }
    return plan_.first.size() > before;
  }

  std::size_t mostCells_;
  std::size_t stepsLeft_;
  Plan plan_;
};

}  // namespace

std::variant<Layout, NoWayBack, TooManyCells> layOut(const ChartGraph& graph) {
  return Rounds(graph).run();
}

}  // namespace tavrel::authoring
