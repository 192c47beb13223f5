#include "authoring/RepeatedQuestions.h"

#include <algorithm>
#include <bitset>
#include <utility>

namespace tavrel::authoring {
namespace {

constexpr std::size_t atOnce = 256;                // questions in one pass over the boxes
constexpr std::size_t mostStepsBack = 10'000'000;  // that are taken to name boxes

std::size_t at(BoxNumber box) { return static_cast<std::size_t>(box); }

// A chart in parts: boxes from each of which a walk can come to the others, or one box alone.
// Every part stands behind those that lead to it. Tarjan's search, without recursion.
class Parts {
 public:
  explicit Parts(const ReadChart& chart)
      : chart_(chart),
        partOf_(chart.boxes.size(), none),
        found_(chart.boxes.size(), none),
        lowest_(chart.boxes.size(), none) {
    boxes_.reserve(chart.boxes.size());
    searchFrom(chart.start);
    for (BoxNumber box = 0; at(box) < chart.boxes.size(); ++box) searchFrom(box);
    std::reverse(boxes_.begin(), boxes_.end());
    for (std::uint32_t& part : partOf_) part = count_ - 1 - part;
    findBeginnings();
  }

  std::size_t count() const { return count_; }
  std::uint32_t of(BoxNumber box) const { return partOf_[at(box)]; }

  /// The boxes of a part, in the order in which a walk through the chart first comes to them.
  const BoxNumber* begin(std::size_t part) const { return boxes_.data() + beginnings_[part]; }
  const BoxNumber* end(std::size_t part) const { return boxes_.data() + beginnings_[part + 1]; }

 private:
  static constexpr std::uint32_t none = 0xFFFFFFFF;

  struct Step {
    BoxNumber box;
    std::size_t exitsTried;
  };

  void searchFrom(BoxNumber first) {
    if (found_[at(first)] != none) return;
    enter(first);
    while (!way_.empty()) {
      if (way_.back().exitsTried == answers.size()) {
        leave();
      } else {
        tryExit(chart_[way_.back().box].exits[answers[way_.back().exitsTried++]]);
      }
    }
  }

  void enter(BoxNumber box) {
    found_[at(box)] = lowest_[at(box)] = foundCount_++;
    open_.push_back(box);
    way_.push_back({box, 0});
  }

  void tryExit(BoxNumber next) {
    if (next == noBox) return;
    if (found_[at(next)] == none) {
      enter(next);
    } else if (partOf_[at(next)] == none) {
      lower(way_.back().box, found_[at(next)]);
    }
  }

  void lower(BoxNumber box, std::uint32_t to) { lowest_[at(box)] = std::min(lowest_[at(box)], to); }

  // A box from which no walk goes back to one found before it closes a part.
  void leave() {
    const BoxNumber box = way_.back().box;
    way_.pop_back();
    if (!way_.empty()) lower(way_.back().box, lowest_[at(box)]);
    if (lowest_[at(box)] != found_[at(box)]) return;
    BoxNumber closed = noBox;
    while (closed != box) {
      closed = open_.back();
      open_.pop_back();
      partOf_[at(closed)] = count_;
      boxes_.push_back(closed);
    }
    ++count_;
  }

  void findBeginnings() {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      if (i == 0 || of(boxes_[i]) != of(boxes_[i - 1])) beginnings_.push_back(i);
    }
    beginnings_.push_back(boxes_.size());
  }

  const ReadChart& chart_;
  std::vector<BoxNumber> boxes_;
  std::vector<std::size_t> beginnings_;  // by part, and the end of the last
  std::vector<std::uint32_t> partOf_;
  std::vector<std::uint32_t> found_;   // by box: the how manieth that was found
  std::vector<std::uint32_t> lowest_;  // by box: what was found first of what it leads back to
  std::vector<BoxNumber> open_;        // found, and of no part as yet
  std::vector<Step> way_;
  std::uint32_t foundCount_ = 0;
  std::uint32_t count_ = 0;
};

// The boxes that lead to each box.
class BoxesBefore {
 public:
  explicit BoxesBefore(const ReadChart& chart) : beginnings_(chart.boxes.size() + 1, 0) {
    forEachExit(chart, [this](BoxNumber, BoxNumber exit) { ++beginnings_[at(exit) + 1]; });
    for (std::size_t i = 1; i < beginnings_.size(); ++i) beginnings_[i] += beginnings_[i - 1];
    boxes_.resize(beginnings_.back());
    std::vector<std::uint32_t> next(beginnings_.begin(), beginnings_.end() - 1);
    forEachExit(chart, [&](BoxNumber box, BoxNumber exit) { boxes_[next[at(exit)]++] = box; });
  }

  const BoxNumber* begin(BoxNumber box) const { return boxes_.data() + beginnings_[at(box)]; }
  const BoxNumber* end(BoxNumber box) const { return boxes_.data() + beginnings_[at(box) + 1]; }

 private:
  template <typename Visit>
  static void forEachExit(const ReadChart& chart, const Visit& visit) {
    for (BoxNumber box = 0; at(box) < chart.boxes.size(); ++box) {
      for (const Answer answer : answers) {
        if (chart[box].exits[answer] != noBox) visit(box, chart[box].exits[answer]);
      }
    }
  }

  std::vector<std::uint32_t> beginnings_;  // by box
  std::vector<BoxNumber> boxes_;
};

// Carries along the ways which questions have been asked, some of them at once.
class Search {
 public:
  Search(const ReadChart& chart, const std::vector<QuestionNumber>& questions)
      : chart_(chart), questions_(questions), parts_(chart), before_(chart) {}

  void search(QuestionNumber first) {
    first_ = first;
    asked_.assign(parts_.count(), {});
    for (std::uint32_t part = 0; part < parts_.count(); ++part) {
      for (auto box = parts_.begin(part); box != parts_.end(part); ++box) ask(*box);
      if (asked_[part].none()) continue;
      for (auto box = parts_.begin(part); box != parts_.end(part); ++box) passOn(*box);
    }
  }

  std::vector<RepeatedQuestion> take() { return std::move(found_); }

 private:
  void ask(BoxNumber box) {
    const std::size_t question = std::size_t{questions_[at(box)]} - first_;
    if (questions_[at(box)] < first_ || question >= atOnce) return;
    auto&& isAsked = asked_[parts_.of(box)][question];
    if (isAsked) found_.push_back({box, askedBefore(box)});
    isAsked = true;
  }

  void passOn(BoxNumber box) {
    for (const Answer answer : answers) {
      const BoxNumber next = chart_[box].exits[answer];
      if (next == noBox || parts_.of(next) == parts_.of(box)) continue;
      asked_[parts_.of(next)] |= asked_[parts_.of(box)];
    }
  }

  // Goes back from part to part where the question has been asked already.
  BoxNumber askedBefore(BoxNumber box) {
    const QuestionNumber question = questions_[at(box)];
    BoxNumber from = box;
    while (stepsBack_ < mostStepsBack) {
      const BoxNumber asked = askedIn(parts_.of(from), question, box);
      if (asked != noBox) return asked;
      from = boxBefore(parts_.of(from), question - first_);
    }
    return noBox;
  }

  // The first box of a part that asks a question; noBox if none does but the box itself or those
  // behind it.
  BoxNumber askedIn(std::uint32_t part, QuestionNumber question, BoxNumber box) {
    for (auto each = parts_.begin(part); each != parts_.end(part) && *each != box; ++each) {
      ++stepsBack_;
      if (questions_[at(*each)] == question) return *each;
    }
    return noBox;
  }

  // A box outside a part that leads into it, and comes behind the question. There is one: that is
  // how the part came to know of the question.
  BoxNumber boxBefore(std::uint32_t part, std::size_t question) {
    for (auto box = parts_.begin(part);; ++box) {
      for (auto each = before_.begin(*box); each != before_.end(*box); ++each) {
        ++stepsBack_;
        if (parts_.of(*each) != part && asked_[parts_.of(*each)][question]) return *each;
      }
    }
  }

  const ReadChart& chart_;
  const std::vector<QuestionNumber>& questions_;
  const Parts parts_;
  const BoxesBefore before_;
  QuestionNumber first_ = 0;
  std::vector<std::bitset<atOnce>> asked_;  // by part: in it or before it, of those from first_ on
  std::size_t stepsBack_ = 0;
  std::vector<RepeatedQuestion> found_;
};

}  // namespace

std::vector<RepeatedQuestion> repeatedQuestions(const ReadChart& chart,
                                                const std::vector<QuestionNumber>& questions,
                                                std::size_t questionCount) {
  if (questionCount == 0) return {};
  Search search(chart, questions);
  for (std::size_t first = 0; first < questionCount; first += atOnce) {
    search.search(static_cast<QuestionNumber>(first));
  }
  return search.take();
}

}  // namespace tavrel::authoring
