#include "hands/Ways.h"

#include <algorithm>

namespace tavrel::hands {
namespace {

// Goes back from a box, answer by answer, wherever one leads to it.
class WayFinder {
 public:
  explicit WayFinder(const HandChart& chart) : entries_(chart.boxes().size()) {
    for (BoxIndex box = 0; box < entries_.size(); ++box) {
      if (chart[box].isEnd()) continue;
      for (const Answer answer : authoring::answers) {
        const BoxIndex next = chart[box].exits[answer];
        if (next != noBox) entries_[next].push_back({box, answer});
      }
    }
  }

  void find(BoxIndex box) {
    if (!found_.areAll || ++steps_ > mostSteps || found_.ways.size() == mostWays) {
      found_.areAll = false;
      return;
    }
    if (box == 0) found_.ways.emplace_back(back_.rbegin(), back_.rend());
    for (const Step entry : entries_[box]) {
      if (hasPassed(entry.box)) continue;
      back_.push_back(entry);
      find(entry.box);
      back_.pop_back();
    }
  }

  Ways found() const { return found_; }

 private:
  static constexpr std::size_t mostSteps = 20'000;  // one within another, at worst

  bool hasPassed(BoxIndex box) const {
    return std::any_of(back_.begin(), back_.end(),
                       [box](const Step& step) { return step.box == box; });
  }

  std::vector<std::vector<Step>> entries_;
  std::vector<Step> back_;  // from the box to where the search is
  Ways found_;
  std::size_t steps_ = 0;
};

}  // namespace

Ways waysTo(const Subject& subject, BoxIndex box) {
  WayFinder finder(subject.chart());
  for (BoxIndex each = 0; each < subject.chart().boxes().size(); ++each) {
    if (subject.firstOf(each) == box) finder.find(each);
  }
  return finder.found();
}

}  // namespace tavrel::hands
