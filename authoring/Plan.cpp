#include "authoring/Plan.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "authoring/Sketch.h"
#include "authoring/TreeLayout.h"

namespace tavrel::authoring {
namespace {

constexpr std::int64_t mostNodesTried = 6'000;     // in all sketches together
constexpr std::size_t mostStepsTried = 1'000'000;  // of their searches

Answer other(Answer answer) { return answer == Answer::yes ? Answer::no : Answer::yes; }

void turn(GraphBox& box) { box.turn = box.turn == Turn::right ? Turn::down : Turn::right; }

// Where a box and the one that hangs from it both lead to a third, which hangs from the second,
// the line from the first has but one bend if the three stand round a corner.
void turnTriangles(Plan& plan) {
  const Unfolding tree(plan.graph, plan.hanging);
  for (const TreeNode& node : tree.nodes()) {
    if (node.parent == noNode || plan.graph[node.box].isTurnFixed) continue;
    const GraphBox& parent = plan.graph[tree[node.parent].box];
    const Answer toNode = plan.hanging.of(node.box).answer;
    const BoxNumber third = parent.exits[other(toNode)];
    if (third == noBox || plan.hanging.of(third).box != node.box) continue;
    GraphBox& box = plan.graph[node.box];
    const Direction onward = directionOf(plan.hanging.of(third).answer, box.turn);
    if (onward == directionOf(toNode, parent.turn)) turn(box);
  }
}

class PlanSearch {
 public:
  explicit PlanSearch(const ChartGraph& graph)
      : best_{graph, Hanging(graph), {}}, missing_(missingOf(best_)) {}

  Plan run() {
    if (missing_.empty()) return std::move(best_);
    Plan turned = best_;
    turnTriangles(turned);
    isBetter(std::move(turned));
    for (std::size_t next = 0; next < missing_.size() && mayGoOn();) {
      next = helps(missing_[next]) ? 0 : next + 1;
    }
    return std::move(best_);
  }

 private:
  bool mayGoOn() const { return nodesLeft_ > 0 && stepsLeft_ > 0; }

  // The exits whose lines have no way.
  std::vector<Exit> missingOf(const Plan& plan) {
    const Unfolding tree(plan.graph, plan.hanging);
    nodesLeft_ -= static_cast<std::int64_t>(tree.nodes().size());
    std::vector<Exit> exits;
    for (const LineStart& line : Sketch(plan.graph, tree, stepsLeft_).drawLines(plan.first)) {
      exits.push_back(tree.exitOf(line));
    }
    return exits;
  }

  bool isBetter(Plan plan) {
    if (!mayGoOn()) return false;
    std::vector<Exit> missing = missingOf(plan);
    if (missing.size() >= missing_.size()) return false;
    missing_ = std::move(missing);
    best_ = std::move(plan);
    return true;
  }

  // Whether fewer lines are missing for something that was done for one of them.
  bool helps(const Exit exit) {
    return helpsToDrawFirst(exit) || helpsToHang(exit) || helpsToTurn(exit);
  }

  bool helpsToDrawFirst(const Exit& exit) {
    Plan plan = best_;
    return plan.first.insert(exit).second && isBetter(std::move(plan));
  }

  bool helpsToHang(const Exit& exit) {
    Plan plan = best_;
    return plan.hanging.hang(plan.graph, exit) && isBetter(std::move(plan));
  }

  // The box of the exit or one that it or its target hangs from. Not the target: what hangs from
  // that may be a tree without lines.
  bool helpsToTurn(const Exit& exit) {
    const BoxNumber target = best_.graph[exit.box].exits[exit.answer];
    const BoxNumber above = hangerOf(target);
    for (const BoxNumber box : {exit.box, above, hangerOf(exit.box), hangerOf(above)}) {
      if (box == noBox || best_.graph[box].isTurnFixed) continue;
      Plan plan = best_;
      turn(plan.graph[box]);
      if (isBetter(std::move(plan))) return true;
    }
    return false;
  }

  BoxNumber hangerOf(BoxNumber box) const {
    return box == noBox ? noBox : best_.hanging.of(box).box;
  }

  std::int64_t nodesLeft_ = mostNodesTried;
  std::size_t stepsLeft_ = mostStepsTried;
  Plan best_;
  std::vector<Exit> missing_;  // with the best plan
};

}  // namespace

Plan bestPlan(const ChartGraph& graph) {
  if (graph.boxes.size() > fewNodes) return {graph, Hanging(graph), {}};
  return PlanSearch(graph).run();
}

}  // namespace tavrel::authoring
