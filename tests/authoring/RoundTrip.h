// A source, compiled, written and walked through the client interface.

#ifndef TAVREL_TESTS_AUTHORING_ROUNDTRIP_H
#define TAVREL_TESTS_AUTHORING_ROUNDTRIP_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "authoring/ChartSource.h"
#include "facade/Tavrel.h"

namespace tavrel::authoring {

/// Walks every exit of every box of a navigator's chart and compares what it meets with the
/// source. What differs first; empty for nothing.
class RoundTrip {
 public:
  RoundTrip(Tavrel& navigator, const ChartSource& source)
      : navigator_(navigator), source_(source) {}

  std::string difference() {
    navigator_.moveToRoot();
    visit("", source_.start);
    while (!open_.empty() && difference_.empty()) {
      const auto [way, box] = open_.back();
      open_.pop_back();
      for (const Answer answer : answers) follow(way, box, answer);
    }
    return difference_;
  }

 private:
  // On the navigator's box, reached by some answers.
  void visit(const std::string& way, BoxNumber box) {
    const auto [name, x, y] = navigator_.currentLocation();
    const auto [known, isNew] = seen_.insert({{x, y}, box});
    if (known->second != box) difference_ = "two boxes in one cell, by " + way;
    if (!isNew) return;
    compare(way, source_[box]);
    open_.push_back({way, box});
  }

  void compare(const std::string& way, const SourceBox& box) {
    const ScreenElement element = navigator_.currentElement();
    const auto differs = [&](const char* what) { difference_ = std::string(what) + " by " + way; };
    if (!element.isNode()) return differs("no box");
    if (element.boxText() != box.text.lines) return differs("another text");
    if (element.commentaryText() != box.comment.lines) return differs("another comment");
    const std::string link = box.link ? box.link->chart : "";
    if (element.nameOfNextFlowchart().value_or("") != link) return differs("another link");
  }

  void follow(const std::string& way, BoxNumber box, Answer answer) {
    navigator_.moveToRoot();
    for (const char each : way) each == 'y' ? navigator_.moveYes() : navigator_.moveNo();
    const BoxNumber next = source_[box].exits[answer];
    const ScreenElement element = navigator_.currentElement();
    const std::int64_t exit =
        answer == Answer::yes ? element.yesDirection() : element.noDirection();
    if ((exit == 4) != (next == noBox)) difference_ = "another exit by " + way;
    if (next == noBox || !difference_.empty()) return;
    answer == Answer::yes ? navigator_.moveYes() : navigator_.moveNo();
    visit(way + (answer == Answer::yes ? 'y' : 'n'), next);
  }

  Tavrel& navigator_;
  const ChartSource& source_;
  std::map<std::pair<std::int64_t, std::int64_t>, BoxNumber> seen_;
  std::vector<std::pair<std::string, BoxNumber>> open_;
  std::string difference_;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_TESTS_AUTHORING_ROUNDTRIP_H
