#include "authoring/Unfolding.h"

#include <algorithm>
#include <unordered_map>
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

  bool isBefore(BoxNumber box, BoxNumber other) const { return rankOf(box) < rankOf(other); }

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
  int rankOf(BoxNumber box) const { return ranks_[static_cast<std::size_t>(box)]; }

  static constexpr int seen = -1;
  const ChartGraph& graph_;
  std::vector<int> ranks_;
  std::vector<BoxNumber> order_;
};

// An exit by its box.
struct Exit {
  BoxNumber box = noBox;
  Answer answer = Answer::yes;
};

// For every box the exit that it hangs from: the last one that leads to it.
std::vector<Exit> hangers(const ChartGraph& graph, const QuestionOrder& order) {
  std::vector<Exit> all(graph.boxes.size());
  for (const BoxNumber box : order.boxes()) {
    for (const Answer answer : answers) {
      const BoxNumber next = graph[box].exits[answer];
      if (next == noBox || !order.isBefore(box, next)) continue;
      Exit& hanger = all[static_cast<std::size_t>(next)];
      if (hanger.box != box) hanger = {box, answer};
    }
  }
  return all;
}

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

  bool hangsFrom(NodeNumber node, NodeNumber ancestor) const {
    const std::size_t first = at(places_, ancestor);
    return at(places_, node) >= first && at(places_, node) < first + at(sizes_, ancestor);
  }

 private:
  std::vector<std::size_t> places_, sizes_;
};

}  // namespace

Unfolding::Unfolding(const ChartGraph& graph) : graph_(graph) { build(); }

NodeNumber Unfolding::add(BoxNumber box, NodeNumber parent) {
  nodes_.push_back({});
  nodes_.back().box = box;
  nodes_.back().parent = parent;
  return static_cast<NodeNumber>(nodes_.size() - 1);
}

void Unfolding::build() {
  const QuestionOrder order(graph_);
  const std::vector<Exit> hanging = hangers(graph_, order);
  std::vector<NodeNumber> nodeOf(graph_.boxes.size(), noNode);
  std::vector<LineStart> lines;
  const auto nodeOfBox = [&](BoxNumber box) -> NodeNumber& {
    return nodeOf[static_cast<std::size_t>(box)];
  };
  nodeOfBox(graph_.root) = add(graph_.root, noNode);
  for (NodeNumber node = 0; node < static_cast<NodeNumber>(nodes_.size()); ++node) {
    const BoxNumber box = (*this)[node].box;
    for (const Answer answer : answers) {
      const BoxNumber next = graph_[box].exits[answer];
      if (next == noBox) continue;
      const Exit& hanger = hanging[static_cast<std::size_t>(next)];
      const bool hangsHere = hanger.box == box && hanger.answer == answer;
      if (!hangsHere && !graph_[next].isEnd()) {
        lines.push_back({node, answer, false});
        continue;
      }
      const NodeNumber child = add(next, node);
      at(node).children[answer] = child;
      at(child).isRepeated = nodeOfBox(next) != noNode;
      if (!at(child).isRepeated) nodeOfBox(next) = child;
    }
  }
  for (const LineStart& line : lines) {
    const BoxNumber next = graph_[(*this)[line.node].box].exits[line.answer];
    at(line.node).lines[line.answer] = nodeOfBox(next);
  }
}

std::vector<LineStart> Unfolding::lines() const {
  const Ancestry ancestry(nodes_);
  std::vector<LineStart> all;
  for (NodeNumber node = 0; node < static_cast<NodeNumber>(nodes_.size()); ++node) {
    for (const Answer answer : answers) {
      const NodeNumber target = (*this)[node].lines[answer];
      if (target != noNode) all.push_back({node, answer, ancestry.hangsFrom(node, target)});
    }
  }
  return all;
}

bool Unfolding::repeat(const LineStart& line, std::size_t mostNodes) {
  if (nodes_.size() >= mostNodes) return false;
  const NodeNumber original = std::exchange(at(line.node).lines[line.answer], noNode);
  const auto first = static_cast<NodeNumber>(nodes_.size());
  std::unordered_map<NodeNumber, NodeNumber> copyOf;
  std::vector<NodeNumber> originals = {original};
  at(line.node).children[line.answer] = copyOf[original] = add((*this)[original].box, line.node);
  for (std::size_t done = 0; done < originals.size(); ++done) {
    const NodeNumber copy = first + static_cast<NodeNumber>(done);
    at(copy).isRepeated = true;
    for (const Answer answer : answers) {
      at(copy).lines[answer] = (*this)[originals[done]].lines[answer];
      const NodeNumber child = (*this)[originals[done]].children[answer];
      if (child == noNode || child >= first) continue;
      if (nodes_.size() >= mostNodes) return false;
      originals.push_back(child);
      at(copy).children[answer] = copyOf[child] = add((*this)[child].box, copy);
    }
  }
  for (auto copy = static_cast<std::size_t>(first); copy < nodes_.size(); ++copy) {
    for (const Answer answer : answers) {
      const auto found = copyOf.find(nodes_[copy].lines[answer]);
      if (found != copyOf.end()) nodes_[copy].lines[answer] = found->second;
    }
  }
  return true;
}

}  // namespace tavrel::authoring
