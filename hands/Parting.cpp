#include "hands/Parting.h"

#include <algorithm>

namespace tavrel::hands {
namespace {

bool mayMake(const HandBox& box, Call call) {
  if (!box.isEnd() || box.conditions == nullptr) return false;
  const std::vector<CallChoice>& calls = box.conditions->calls;
  return std::any_of(calls.begin(), calls.end(),
                     [call](const CallChoice& choice) { return choice.call == call; });
}

// The nearest end from a box on that may make the call. Boxes seen before lead to none.
BoxIndex endFrom(BoxIndex start, Call call, const HandChart& chart, std::vector<bool>& isSeen) {
  std::vector<BoxIndex> ahead = {start};
  for (std::size_t i = 0; i < ahead.size(); ++i) {
    const BoxIndex box = ahead[i];
    if (box == noBox || isSeen[box]) continue;
    isSeen[box] = true;
    if (mayMake(chart[box], call)) return box;
    if (chart[box].isEnd()) continue;
    for (const Answer answer : authoring::answers) ahead.push_back(chart[box].exits[answer]);
  }
  return noBox;
}

Answer otherThan(Answer answer) { return answer == Answer::yes ? Answer::no : Answer::yes; }

}  // namespace

std::optional<Parting> partingOf(const Walker& walker, Call call) {
  const HandChart& chart = walker.chart();
  const std::vector<Step>& steps = walker.steps();
  if (mayMake(chart[walker.end()], call)) return Parting{steps.size(), walker.end()};
  std::vector<bool> isSeen(chart.boxes().size());
  for (std::size_t i = steps.size(); i-- > 0;) {
    const BoxIndex other = chart[steps[i].box].exits[otherThan(steps[i].answer)];
    const BoxIndex end = endFrom(other, call, chart, isSeen);
    if (end != noBox) return Parting{i, end};
  }
  return std::nullopt;
}

}  // namespace tavrel::hands
