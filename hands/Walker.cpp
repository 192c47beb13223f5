#include "hands/Walker.h"

namespace tavrel::hands {
namespace {

std::optional<Expression> compiled(const std::optional<std::string>& text, Evaluation& evaluation) {
  if (!text) return std::nullopt;
  return Expression(*text, evaluation);
}

}  // namespace

Walker::Walker(const HandChart& chart)
    : chart_(chart), hand_(compiled(chart.conditions().hand, evaluation_)) {
  for (const HandBox& box : chart.boxes()) {
    Program& program = programs_.emplace_back();
    program.exits = box.exits;
    program.isEnd = box.isEnd();
    if (box.conditions == nullptr) continue;
    program.when = compiled(box.conditions->when, evaluation_);
    program.shows = compiled(box.conditions->shows, evaluation_);
    for (const CallChoice& choice : box.conditions->calls) {
      program.calls.emplace_back(compiled(choice.when, evaluation_), choice.call);
    }
  }
}

std::optional<std::size_t> Walker::choiceAt(BoxIndex end) const {
  const auto& calls = programs_[end].calls;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    if (!calls[i].first || calls[i].first->isTrue()) return i;
  }
  return std::nullopt;
}

Call Walker::callAt(BoxIndex end) const {
  const std::optional<std::size_t> choice = choiceAt(end);
  return choice ? programs_[end].calls[*choice].second : Call::none;
}

bool Walker::isAsShownAt(BoxIndex end) const {
  const std::optional<Expression>& shows = programs_[end].shows;
  return !shows || shows->isTrue();
}

}  // namespace tavrel::hands
