#include "hands/Tally.h"

#include <algorithm>

namespace tavrel::hands {

void Seen::note(std::uint64_t number, Position where) {
  if (count++ != 0 && deal < number) return;
  deal = number;
  position = where;
}

Seen& Seen::operator+=(const Seen& other) {
  if (other.count == 0) return *this;
  const std::uint64_t sum = count + other.count;
  if (count == 0 || other.deal < deal) *this = other;
  count = sum;
  return *this;
}

void Extent::note(int value) {
  least = std::min(least, value);
  most = std::max(most, value);
}

Extent& Extent::operator+=(const Extent& other) {
  least = std::min(least, other.least);
  most = std::max(most, other.most);
  return *this;
}

void BoxTally::measure(const Evaluation& evaluation) {
  for (std::size_t i = 0; i < measures.size(); ++i) {
    extents[i].note(static_cast<int>(evaluation[measures[i]]));
  }
}

BoxTally& BoxTally::operator+=(const BoxTally& other) {
  reached += other.reached;
  for (const Answer answer : authoring::answers) answers[answer] += other.answers[answer];
  for (std::size_t i = 0; i < calls.size(); ++i) calls[i] += other.calls[i];
  for (std::size_t i = 0; i < falls.size(); ++i) falls[i] += other.falls[i];
  for (std::size_t i = 0; i < extents.size(); ++i) extents[i] += other.extents[i];
  return *this;
}

bool operator==(const BoxTally& a, const BoxTally& b) {
  return a.reached == b.reached && a.answers.yes == b.answers.yes && a.answers.no == b.answers.no &&
         a.calls == b.calls && a.falls == b.falls && a.extents == b.extents;
}

Tally::Tally(const HandChart& chart) : boxes(chart.boxes().size()) {
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const BoxConditions* const conditions = chart.boxes()[i].conditions;
    if (conditions != nullptr) boxes[i].calls.resize(conditions->calls.size());
  }
}

Tally& Tally::operator+=(const Tally& other) {
  deals += other.deals;
  undealt += other.undealt;
  for (std::size_t i = 0; i < boxes.size(); ++i) boxes[i] += other.boxes[i];
  return *this;
}

bool operator==(const Tally& a, const Tally& b) {
  return a.deals == b.deals && a.undealt == b.undealt && a.boxes == b.boxes;
}

}  // namespace tavrel::hands
