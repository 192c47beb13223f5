// How a chart unfolds before it is drawn: into a tree of boxes, and lines that join boxes of
// the tree beside it.
//
// An end that several questions lead to is repeated for each: it costs a cell and saves a
// line. Any other box stands once. It hangs from the last of the questions that lead to it,
// in an order in which questions come before what they lead to, so that the lines from the
// others come from above and from the left, where its sides are free. Where lines can't be
// drawn, the box that they lead to is repeated, and the copy has lines to what follows it.

#ifndef TAVREL_AUTHORING_UNFOLDING_H
#define TAVREL_AUTHORING_UNFOLDING_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "authoring/ChartGraph.h"

namespace tavrel::authoring {

/// A box of the tree by its number there; parents come before their children.
using NodeNumber = std::int32_t;
constexpr NodeNumber noNode = -1;

struct TreeNode {
  BoxNumber box = noBox;
  NodeNumber parent = noNode;
  /// What hangs from it. An exit from which nothing hangs has a line instead.
  ByAnswer<NodeNumber> children = {noNode, noNode};
  bool isRepeated = false;  ///< an earlier node shows the same box
};

/// The exit of a node from which a line starts.
struct LineStart {
  NodeNumber node;
  Answer answer;
  bool isLoop;  ///< the line leads back to a box that its own hangs from
};

/// The exit that each box hangs from.
class Hanging {
 public:
  /// From the last of those that lead to it.
  explicit Hanging(const ChartGraph& graph);

  const Exit& of(BoxNumber box) const { return exits_[static_cast<std::size_t>(box)]; }

  /// Hangs what an exit leads to from there; false where its box already comes behind that.
  bool hang(const ChartGraph& graph, const Exit& exit);

 private:
  std::vector<Exit> exits_;  // by box
  std::vector<int> ranks_;   // by box: its place among questions before what they lead to
};

class Unfolding {
 public:
  /// Of what can be reached from the root. The graph must outlive the unfolding.
  Unfolding(const ChartGraph& graph, const Hanging& hanging);

  const std::vector<TreeNode>& nodes() const { return nodes_; }
  const TreeNode& operator[](NodeNumber node) const {
    return nodes_[static_cast<std::size_t>(node)];
  }

  /// All nodes that show a box, the original first. A line to the box may end at any of them.
  const std::vector<NodeNumber>& nodesOf(BoxNumber box) const {
    return nodesOf_[static_cast<std::size_t>(box)];
  }

  Exit exitOf(const LineStart& line) const { return {(*this)[line.node].box, line.answer}; }

  /// The box that a line leads to.
  BoxNumber targetOf(const LineStart& line) const {
    return graph_[(*this)[line.node].box].exits[line.answer];
  }

  /// All lines, in the order of their nodes. Cost: one pass.
  std::vector<LineStart> lines() const;

  /// Repeats the boxes that these lines lead to. A copy hangs in the place of one of them, and
  /// is meant for as many of the others as it has sides for; they remain lines. Ends hang from
  /// the copy, all else that follows has lines from it. Stops before the tree has more than
  /// `mostNodes` nodes; false says that it did.
  bool repeat(std::vector<LineStart> lines, std::size_t mostNodes);

  /// Puts a copy of what each line leads to, with all that hangs from it, in the line's place.
  /// Stops like `repeat`.
  bool repeatWhole(const std::vector<LineStart>& lines, std::size_t mostNodes);

 private:
  TreeNode& at(NodeNumber node) { return nodes_[static_cast<std::size_t>(node)]; }
  NodeNumber hang(BoxNumber box, NodeNumber parent, Answer answer);
  void build(const Hanging& hanging);
  bool repeatOne(const LineStart& line, std::size_t mostNodes);
  bool repeatWhole(const LineStart& line, std::size_t mostNodes);

  const ChartGraph& graph_;
  std::vector<TreeNode> nodes_;
  std::vector<std::vector<NodeNumber>> nodesOf_;  // by box
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_UNFOLDING_H
