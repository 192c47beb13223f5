#include "authoring/ChartSource.h"

#include <algorithm>

#include "authoring/InShort.h"

namespace tavrel::authoring {

std::string ChartSource::nameOf(BoxNumber box) const {
  const SourceBox& named = (*this)[box];
  if (!named.id.empty()) return inShort(named.id);
  std::string text;
  for (const std::string& line : named.text.lines) text += (text.empty() ? "" : " ") + line;
  return "\"" + inShort(text) + "\"";
}

ChartGraph ChartSource::graph() const {
  ChartGraph graph;
  graph.root = start;
  for (const SourceBox& box : boxes) {
    graph.boxes.push_back({box.exits, box.turn, box.isTurnFixed});
  }
  return graph;
}

bool ChartSource::saysOfHands() const {
  return hasApplies || std::any_of(boxes.begin(), boxes.end(), [](const SourceBox& box) {
           return box.when || box.asksJudgement || !box.calls.empty();
         });
}

}  // namespace tavrel::authoring
