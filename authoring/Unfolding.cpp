#include "authoring/Unfolding.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tavrel::authoring {
namespace {

// The boxes that can be reached, questions before what they lead to. Exits that lead back to a
// box on the way to their own are no part of that order.
class QuestionOrder {
 public:
  explicit QuestionOrder(const ChartGraph& graph) : graph_(graph), ranks_(graph.boxes.size(), 0) {
    visitFrom(graph.root);
    std::reverse(order_.begin(), order_.end());
    for (std::size_t i = 0; i < order_.size(); ++i) rank(order_[i]) = static_cast<int>(i) + 1;
  }

  const std::vector<BoxNumber>& boxes() const { return order_; }

  std::vector<int> takeRanks() { return std::move(ranks_); }

 private:
  struct Step {
    BoxNumber box;
    int exitsSeen;
  };

  // Depth first, no before yes: reversed, yes comes first.
  void visitFrom(BoxNumber root) {
    std::vector<Step> way = {{root, 0}};
    rank(root) = seen;
    while (!way.empty()) {
      Step& step = way.back();
      if (step.exitsSeen == 2) {
        order_.push_back(step.box);
        way.pop_back();
        continue;
      }
      const Answer answer = step.exitsSeen++ == 0 ? Answer::no : Answer::yes;
      const BoxNumber next = graph_[step.box].exits[answer];
      if (next == noBox || rank(next) == seen) continue;
      rank(next) = seen;
      way.push_back({next, 0});
    }
  }

  int& rank(BoxNumber box) { return ranks_[static_cast<std::size_t>(box)]; }

  static constexpr int seen = -1;
  const ChartGraph& graph_;
  std::vector<int> ranks_;
  std::vector<BoxNumber> order_;
};

template <typename List, typename Number>
auto& at(List& list, Number node) {
  return list[static_cast<std::size_t>(node)];
}

// Which nodes hang from which, asked as often as wanted: each node has a place in the order of
// a walk through the tree, and all that hangs from it has the places right behind.
class Ancestry {
 public:
  explicit Ancestry(const std::vector<TreeNode>& nodes)
      : places_(nodes.size(), 0), sizes_(nodes.size(), 1) {
    for (std::size_t node = nodes.size(); node-- > 1;)
      at(sizes_, nodes[node].parent) += at(sizes_, node);
    for (std::size_t node = 0; node < nodes.size(); ++node) {
      std::size_t next = places_[node] + 1;
      for (const Answer answer : answers) {
        const NodeNumber child = nodes[node].children[answer];
        if (child == noNode) continue;
        at(places_, child) = next;
        next += at(sizes_, child);
      }
    }
  }

  // Of a walk that takes yes before no: nodes next to each other are mostly near on the grid.
  std::size_t placeOf(NodeNumber node) const { return at(places_, node); }

  bool hangsFrom(NodeNumber node, NodeNumber ancestor) const {
    const std::size_t first = at(places_, ancestor);
    return at(places_, node) >= first && at(places_, node) < first + at(sizes_, ancestor);
  }

 private:
  std::vector<std::size_t> places_, sizes_;
};

// How many lines a box has sides for, beside what it hangs from and its exits.
int sidesForLines(const GraphBox& box) {
  return 3 - (box.exits.yes != noBox ? 1 : 0) - (box.exits.no != noBox ? 1 : 0);
}

}  // namespace

Hanging::Hanging(const ChartGraph& graph) : exits_(graph.boxes.size()) {
  QuestionOrder order(graph);
  ranks_ = order.takeRanks();
  for (const BoxNumber box : order.boxes()) {
    for (const Answer answer : answers) {
      const BoxNumber next = graph[box].exits[answer];
      if (next != noBox && of(next).box != box) hang(graph, {box, answer});
    }
  }
}

bool Hanging::hang(const ChartGraph& graph, const Exit& exit) {
  const BoxNumber next = graph[exit.box].exits[exit.answer];
  if (at(ranks_, exit.box) >= at(ranks_, next)) return false;
  at(exits_, next) = exit;
  return true;
}

Unfolding::Unfolding(const ChartGraph& graph, const Hanging& hanging)
    : graph_(graph), nodesOf_(graph.boxes.size()) {
  build(hanging);
}

NodeNumber Unfolding::hang(BoxNumber box, NodeNumber parent, Answer answer) {
  const auto node = static_cast<NodeNumber>(nodes_.size());
  std::vector<NodeNumber>& shown = nodesOf_[static_cast<std::size_t>(box)];
  nodes_.push_back({});
  at(node).box = box;
  at(node).parent = parent;
  at(node).isRepeated = !shown.empty();
  shown.push_back(node);
  if (parent != noNode) at(parent).children[answer] = node;
  return node;
}

void Unfolding::build(const Hanging& hanging) {
  hang(graph_.root, noNode, Answer::yes);
  for (NodeNumber node = 0; node < static_cast<NodeNumber>(nodes_.size()); ++node) {
    const BoxNumber box = (*this)[node].box;
    for (const Answer answer : answers) {
      const BoxNumber next = graph_[box].exits[answer];
      if (next == noBox) continue;
      const bool hangsHere = hanging.of(next) == Exit{box, answer};
      if (hangsHere || graph_[next].isEnd()) hang(next, node, answer);
    }
  }
}

std::vector<LineStart> Unfolding::lines() const {
  const Ancestry ancestry(nodes_);
  std::vector<LineStart> all;
  for (NodeNumber node = 0; node < static_cast<NodeNumber>(nodes_.size()); ++node) {
    for (const Answer answer : answers) {
      const LineStart line = {node, answer, false};
      if (targetOf(line) == noBox || (*this)[node].children[answer] != noNode) continue;
      all.push_back(line);
      const std::vector<NodeNumber>& targets = nodesOf(targetOf(line));
      all.back().isLoop = std::any_of(targets.begin(), targets.end(), [&](NodeNumber target) {
        return ancestry.hangsFrom(node, target);
      });
    }
  }
  return all;
}

bool Unfolding::repeat(std::vector<LineStart> lines, std::size_t mostNodes) {
  const Ancestry ancestry(nodes_);
  const auto rank = [&](const LineStart& line) {
    return std::make_tuple(targetOf(line), ancestry.placeOf(line.node), line.answer);
  };
  std::sort(lines.begin(), lines.end(),
            [&](const LineStart& one, const LineStart& other) { return rank(one) < rank(other); });
  for (auto first = lines.begin(); first != lines.end();) {
    const BoxNumber box = targetOf(*first);
    auto last = first;
    for (int sides = sidesForLines(graph_[box]);
         sides > 0 && last + 1 != lines.end() && targetOf(*(last + 1)) == box; --sides) {
      ++last;
    }
    if (!repeatOne(*last, mostNodes)) return false;
    first = last + 1;
  }
  return true;
}

bool Unfolding::repeatOne(const LineStart& line, std::size_t mostNodes) {
  if (nodes_.size() >= mostNodes) return false;
  const BoxNumber box = targetOf(line);
  const NodeNumber copy = hang(box, line.node, line.answer);
  for (const Answer answer : answers) {
    const BoxNumber next = graph_[box].exits[answer];
    if (next == noBox || !graph_[next].isEnd()) continue;
    if (nodes_.size() >= mostNodes) return false;
    hang(next, copy, answer);
  }
  return true;
}

bool Unfolding::repeatWhole(const std::vector<LineStart>& lines, std::size_t mostNodes) {
  return std::all_of(lines.begin(), lines.end(),
                     [&](const LineStart& line) { return repeatWhole(line, mostNodes); });
}

bool Unfolding::repeatWhole(const LineStart& line, std::size_t mostNodes) {
  if (nodes_.size() >= mostNodes) return false;
  std::vector<NodeNumber> originals = {nodesOf(targetOf(line)).front()};
  const NodeNumber first = hang(targetOf(line), line.node, line.answer);
  for (std::size_t done = 0; done < originals.size(); ++done) {
    for (const Answer answer : answers) {
      const NodeNumber child = (*this)[originals[done]].children[answer];
      if (child == noNode || child >= first) continue;
      if (nodes_.size() >= mostNodes) return false;
      originals.push_back(child);
      hang((*this)[child].box, first + static_cast<NodeNumber>(done), answer);
    }
  }
  return true;
}

}  // namespace tavrel::authoring
