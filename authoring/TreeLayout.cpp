#include "authoring/TreeLayout.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tavrel::authoring {
namespace {

// The highest and the lowest row that a subtree takes in each of its columns, counted from
// its root. The root's own column stands last, so that a column before it is added at the
// end, and all rows stand in their lists less `shift`, so that a subtree is moved for nothing.
struct Outline {
  std::vector<std::int32_t> top;
  std::vector<std::int32_t> bottom;
  std::int32_t shift = 0;

  std::size_t width() const { return top.size(); }
  std::int32_t topOf(std::size_t column) const { return top[width() - 1 - column] + shift; }
  std::int32_t bottomOf(std::size_t column) const { return bottom[width() - 1 - column] + shift; }
  void setTop(std::size_t column, std::int32_t row) { top[width() - 1 - column] = row - shift; }
  void setBottom(std::size_t column, std::int32_t row) {
    bottom[width() - 1 - column] = row - shift;
  }

  void addOwnColumn() {
    top.push_back(-shift);
    bottom.push_back(-shift);
  }
};

// How far below its box a subtree hangs, for the one beside the box to stay clear of it.
std::int32_t distanceBelow(const Outline& beside, const Outline& below, const Spacing& spacing) {
  std::int32_t distance = spacing.below;
  for (std::size_t column = 0; column < beside.width() && column + 1 < below.width(); ++column) {
    distance =
        std::max(distance, beside.bottomOf(column) - below.topOf(column + 1) + spacing.apart);
  }
  return distance;
}

// Both take from the narrower outline what shows of it and keep the wider one, so that all
// of them together cost no more than n log n.

Outline besideWidened(Outline beside, const Outline& below) {
  beside.addOwnColumn();
  for (std::size_t column = 0; column < below.width(); ++column) {
    beside.setBottom(column, below.bottomOf(column));
  }
  return beside;
}

Outline belowWidened(Outline below, const Outline& beside) {
  below.setTop(0, 0);
  for (std::size_t column = 0; column < beside.width(); ++column) {
    below.setTop(column + 1, beside.topOf(column));
  }
  return below;
}

class Packer {
 public:
  Packer(const Unfolding& tree, const ChartGraph& graph, const Spacing& spacing)
      : tree_(tree), graph_(graph), spacing_(spacing), distances_(tree.nodes().size(), 0) {}

  std::vector<Cell> pack() {
    std::vector<Outline> outlines(tree_.nodes().size());
    for (std::size_t node = outlines.size(); node-- > 0;) packOne(outlines, node);
    std::vector<Cell> cells(outlines.size());
    for (std::size_t node = 1; node < cells.size(); ++node) cells[node] = cellOf(cells, node);
    return cells;
  }

 private:
  Direction sideOf(const TreeNode& node, Answer answer) const {
    return directionOf(answer, graph_[node.box].turn);
  }

  NodeNumber childToThe(Direction side, const TreeNode& node) const {
    return node.children[sideOf(node, Answer::yes) == side ? Answer::yes : Answer::no];
  }

  // Children come behind their parents, so theirs are packed already.
  void packOne(std::vector<Outline>& outlines, std::size_t number) {
    const TreeNode& node = tree_.nodes()[number];
    const auto take = [&](NodeNumber child) {
      return child == noNode ? Outline() : std::move(outlines[static_cast<std::size_t>(child)]);
    };
    const NodeNumber childBelow = childToThe(Direction::down, node);
    Outline beside = take(childToThe(Direction::right, node));
    Outline below = take(childBelow);
    if (childBelow != noNode) {
      const std::int32_t distance = distanceBelow(beside, below, spacing_);
      distances_[static_cast<std::size_t>(childBelow)] = distance;
      below.shift += distance;
    }
    outlines[number] = beside.width() < below.width() ? belowWidened(std::move(below), beside)
                                                      : besideWidened(std::move(beside), below);
  }

  Cell cellOf(const std::vector<Cell>& cells, std::size_t number) const {
    const NodeNumber parent = tree_.nodes()[number].parent;
    const Cell from = cells[static_cast<std::size_t>(parent)];
    const std::int32_t below = distances_[number];
    return below > 0 ? moved(from, Direction::down, below)
                     : moved(from, Direction::right, spacing_.beside);
  }

  const Unfolding& tree_;
  const ChartGraph& graph_;
  Spacing spacing_;
  std::vector<std::int32_t> distances_;  // of nodes below their parents; 0 for those beside
};

}  // namespace

Direction directionOf(Answer answer, Turn turn) {
  const bool goesRight = (answer == Answer::yes) == (turn == Turn::right);
  return goesRight ? Direction::right : Direction::down;
}

std::vector<Cell> treeLayout(const Unfolding& tree, const ChartGraph& graph,
                             const Spacing& spacing) {
  return Packer(tree, graph, spacing).pack();
}

}  // namespace tavrel::authoring
