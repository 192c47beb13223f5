#include "authoring/ConditionCheck.h"

namespace tavrel::authoring {
namespace {

void checkBox(const SourceBox& box, Diagnostics& found) {
  const bool isEnd = box.exits.yes == noBox && box.exits.no == noBox;
  if (isEnd && box.calls.empty() && box.next != Next::self) {
    found.add(Code::endWithoutCall, box.text.place, "the end makes no call",
              "write \"call:\" and a call, such as 2H, P or X");
  } else if (!isEnd && !box.when && !box.asksJudgement) {
    found.add(Code::questionWithoutCondition, box.text.place,
              "no hand can answer the question: it has no condition",
              "write \"when:\" and what is true of a yes, or \"asks: judgement\"");
  }
}

}  // namespace

void checkConditions(const ChartSource& source, Diagnostics& found) {
  if (!source.saysOfHands()) return;
  for (const SourceBox& box : source.boxes) {
    if (box.hasSureExits && box.hasSureHands) checkBox(box, found);
  }
}

}  // namespace tavrel::authoring
