// How a chart unfolds before it is drawn: into a tree of boxes, and lines that join boxes of
// the tree beside it.
//
// An end that several questions lead to is repeated for each: it costs a cell and saves a
// line. Any other box stands once. It hangs from the last of the questions that lead to it,
// in an order in which questions come before what they lead to, so that the lines from the
// others come from above and from the left, where its sides are free. Where a line can't be
// drawn, what it leads to is repeated.

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
  ByAnswer<NodeNumber> children = {noNode, noNode};  ///< what hangs from it
  ByAnswer<NodeNumber> lines = {noNode, noNode};     ///< what a line leads to instead
  bool isRepeated = false;                           ///< an earlier node shows the same box
};

/// The exit of a node from which a line starts.
struct LineStart {
  NodeNumber node;
  Answer answer;
  bool isLoop;  ///< the line leads back to a box that its own hangs from

  friend bool operator<(const LineStart& a, const LineStart& b) {
    return a.node != b.node ? a.node < b.node : a.answer < b.answer;
  }
};

class Unfolding {
 public:
  /// Of what can be reached from the root. The graph must outlive the unfolding.
  explicit Unfolding(const ChartGraph& graph);

  const std::vector<TreeNode>& nodes() const { return nodes_; }
  const TreeNode& operator[](NodeNumber node) const {
    return nodes_[static_cast<std::size_t>(node)];
  }

  /// All lines, in the order of their nodes. Cost: one pass.
  std::vector<LineStart> lines() const;

  /// Puts a copy of what the line leads to, with all that hangs from it, in the line's place.
  /// Lines within the copy stay within it; others lead where they led. The copy stops before
  /// the tree has more than `mostNodes` nodes; false says that it did.
  bool repeat(const LineStart& line, std::size_t mostNodes);

 private:
  TreeNode& at(NodeNumber node) { return nodes_[static_cast<std::size_t>(node)]; }
  NodeNumber add(BoxNumber box, NodeNumber parent);
  void build();

  const ChartGraph& graph_;
  std::vector<TreeNode> nodes_;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_UNFOLDING_H
