#include "hands/QuizDealer.h"

#include <algorithm>

namespace tavrel::hands {
namespace {

constexpr int drawsByChance = 20'000;
constexpr int approaches = 6;
constexpr int stepsOfApproach = 30'000;
constexpr int stepsOfStirring = 200;

std::optional<Answer> judgeNothing(BoxIndex) { return std::nullopt; }

void drawVulnerability(Table& table, Random& random) {
  const std::uint32_t drawn = random.below(4);
  table.isVulnerable = (drawn & 1U) != 0;
  table.areTheyVulnerable = (drawn & 2U) != 0;
}

bool isAsked(const HandBox& box) {
  return box.isEnd() && box.conditions != nullptr && !box.conditions->calls.empty();
}

}  // namespace

QuizDealer::QuizDealer(const HandChart& chart)
    : walker_(chart), ends_(chart.boxes().size(), noEnd) {
  if (chart.conditions().auctions.empty()) return;
  for (BoxIndex box = 0; box < chart.boxes().size(); ++box) {
    if (!isAsked(chart[box])) continue;
    const std::string name = chart.nameOf(box);
    const auto found = std::find(names_.begin(), names_.end(), name);
    ends_[box] = static_cast<std::size_t>(found - names_.begin());
    if (found == names_.end()) names_.push_back(name);
  }
}

BoxIndex QuizDealer::boxOf(std::size_t end) const {
  return static_cast<BoxIndex>(std::find(ends_.begin(), ends_.end(), end) - ends_.begin());
}

// Gives the evaluation the question, and says whether the chart is for it.
bool QuizDealer::sit(const QuizQuestion& question) {
  seated_ = question;
  walker_.evaluation().setTable(seated_.table);
  walker_.evaluation().setHand(seated_.hand);
  return walker_.isForHand();
}

Call QuizDealer::walk(const QuizQuestion& question) {
  sit(question);
  const bool isAtEnd = walker_.walk(judgeNothing) == Ending::end;
  return isAtEnd ? walker_.callAt(walker_.end()) : Call::none;
}

// Of the question that the evaluation has.
bool QuizDealer::makesCallAt(std::size_t end) {
  return walker_.walk(judgeNothing) == Ending::end && ends_[walker_.end()] == end &&
         seated_.table.auction.allows(walker_.callAt(walker_.end()));
}

QuizQuestion QuizDealer::dealAny(Random& random) {
  const std::vector<Auction>& auctions = chart().conditions().auctions;
  const auto drawn = random.below(static_cast<std::uint32_t>(auctions.size()));
  QuizQuestion question = {dealHand(random), {auctions[drawn]}};
  drawVulnerability(question.table, random);
  return question;
}

// With other cards most of the time, at times at another table.
QuizQuestion QuizDealer::changed(const QuizQuestion& question, Random& random) const {
  const std::uint32_t what = random.below(20);
  QuizQuestion other = question;
  if (what == 0) {
    const std::vector<Auction>& auctions = chart().conditions().auctions;
    other.table.auction = auctions[random.below(static_cast<std::uint32_t>(auctions.size()))];
  } else if (what == 1) {
    drawVulnerability(other.table, random);
  } else {
    other.hand = withAnotherCard(other.hand, random);
    if (what < 8) other.hand = withAnotherCard(other.hand, random);
  }
  return other;
}

std::optional<QuizQuestion> QuizDealer::deal(std::size_t end, Random& random) {
  if (auto question = dealByChance(end, random)) return question;
  for (int i = 0; i < approaches; ++i) {
    if (auto question = approach(end, random)) return stirred(std::move(*question), end, random);
  }
  return std::nullopt;
}

std::optional<QuizQuestion> QuizDealer::dealByChance(std::size_t end, Random& random) {
  for (int draw = 0; draw < drawsByChance; ++draw) {
    QuizQuestion question = dealAny(random);
    if (sit(question) && makesCallAt(end)) return question;
  }
  return std::nullopt;
}

// How many answers lead from each box to the end at least; noEnd where none do.
std::vector<std::size_t> QuizDealer::distancesTo(std::size_t end) const {
  std::vector<std::size_t> distances(ends_.size(), noEnd);
  for (std::size_t box = 0; box < ends_.size(); ++box) {
    if (ends_[box] == end) distances[box] = 0;
  }
  for (bool isNew = true; isNew;) {
    isNew = false;
    for (BoxIndex box = 0; box < ends_.size(); ++box) {
      for (const Answer answer : authoring::answers) {
        const BoxIndex next = chart()[box].exits[answer];
        if (chart()[box].isEnd() || next == noBox || distances[next] == noEnd) continue;
        if (distances[next] + 1 >= distances[box]) continue;
        distances[box] = distances[next] + 1;
        isNew = true;
      }
    }
  }
  return distances;
}

// How near the hand's way comes; noEnd if the chart isn't for the hand.
std::size_t QuizDealer::distanceOf(const QuizQuestion& question,
                                   const std::vector<std::size_t>& distances) {
  if (!sit(question)) return noEnd;
  walker_.walk(judgeNothing);
  std::size_t nearest = distances[walker_.end()];
  for (const Step& step : walker_.steps()) nearest = std::min(nearest, distances[step.box]);
  return nearest;
}

// Changes a hand card by card and never goes further away from the end.
std::optional<QuizQuestion> QuizDealer::approach(std::size_t end, Random& random) {
  const std::vector<std::size_t> distances = distancesTo(end);
  QuizQuestion question = dealAny(random);
  std::size_t distance = distanceOf(question, distances);
  for (int step = 0; step < stepsOfApproach; ++step) {
    const QuizQuestion other = distance == noEnd ? dealAny(random) : changed(question, random);
    const std::size_t otherDistance = distanceOf(other, distances);
    if (otherDistance > distance) continue;
    question = other;
    distance = otherDistance;
    if (distance == 0 && makesCallAt(end)) return question;
  }
  return std::nullopt;
}

// The first hand found is the least that will do. Steps that may be taken back as likely as they
// are made lead to all others alike.
QuizQuestion QuizDealer::stirred(QuizQuestion question, std::size_t end, Random& random) {
  for (int step = 0; step < stepsOfStirring; ++step) {
    const QuizQuestion other = changed(question, random);
    if (sit(other) && makesCallAt(end)) question = other;
  }
  return question;
}

}  // namespace tavrel::hands
