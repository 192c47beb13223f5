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
    if (box.conditions == nullptr) continue;
    program.when = compiled(box.conditions->when, evaluation_);
    program.shows = compiled(box.conditions->shows, evaluation_);
    for (const CallChoice& choice : box.conditions->calls) {
      program.calls.emplace_back(compiled(choice.when, evaluation_), choice.call);
    }
  }
}

std::optional<Answer> Walker::answerAt(BoxIndex box) const {
  const std::optional<Expression>& when = programs_[box].when;
  if (!when) return std::nullopt;
  return when->isTrue() ? Answer::yes : Answer::no;
}

Call Walker::callAt(BoxIndex end) const {
  for (const auto& [when, call] : programs_[end].calls) {
    if (!when || when->isTrue()) return call;
  }
  return Call::none;
}

bool Walker::isAsShownAt(BoxIndex end) const {
  const std::optional<Expression>& shows = programs_[end].shows;
  return !shows || shows->isTrue();
}

}  // namespace tavrel::hands
