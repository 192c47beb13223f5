// Random graphs of boxes.

#ifndef TAVREL_TESTS_AUTHORING_RANDOMGRAPH_H
#define TAVREL_TESTS_AUTHORING_RANDOMGRAPH_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

#include "authoring/ChartGraph.h"

namespace tavrel::authoring {

/// A tree of `boxes` boxes, and for one in `shareEvery` of them a further exit that leads to a
/// box with a larger number, or with `withLoops` to any; 0 for none. The same seed always gives
/// the same graph.
inline ChartGraph randomGraph(std::size_t boxes, std::size_t shareEvery, bool withLoops,
                              std::uint32_t seed) {
  std::mt19937 random(seed);
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  ChartGraph graph;
  graph.boxes.resize(boxes);
  std::vector<std::pair<std::size_t, Answer>> open;
  const auto takeOne = [&] {
    std::swap(open[below(open.size())], open.back());
    const auto taken = open.back();
    open.pop_back();
    return taken;
  };
  for (std::size_t box = 0; box < boxes; ++box) {
    if (box > 0) {
      const auto [parent, answer] = takeOne();
      graph.boxes[parent].exits[answer] = static_cast<BoxNumber>(box);
    }
    for (const Answer answer : answers) open.emplace_back(box, answer);
  }
  for (std::size_t i = 0; shareEvery > 0 && i < boxes / shareEvery; ++i) {
    const auto [box, answer] = takeOne();
    const std::size_t first = withLoops ? 0 : box + 1;
    if (first < boxes) {
      graph.boxes[box].exits[answer] = static_cast<BoxNumber>(first + below(boxes - first));
    }
  }
  return graph;
}

}  // namespace tavrel::authoring

#endif  // TAVREL_TESTS_AUTHORING_RANDOMGRAPH_H
