#include "hosts/tavrel/Walk.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tavrel {

Walk::Walk(const Library& library) : library_(library), navigator_(library.directory()) {}

Outcome Walk::enter(const CatalogueEntry& chart) {
  return enterOnStretch(chart.index, stretchOn(chart.index));
}

Outcome Walk::enter(const CatalogueEntry& chart, const std::string& answers) {
  if (const Outcome outcome = enter(chart); outcome != Outcome::moved) return outcome;
  try {
    navigator_.startNewPathForFlowchartAtIndexYesNoString(chart.index, answers);
  } catch (const std::out_of_range&) {
    standAgain();
    return Outcome::broken;
  }
  stretches_ = {{chart.index, answers}};
  visits_.back().stretch = 0;
  return Outcome::moved;
}

Outcome Walk::take(WalkStep step) {
  if (step == WalkStep::alongPath) return takeAlongPath();
  const auto before = navigator_.currentLocation();
  try {
    make(step);
    if (navigator_.currentLocation() == before) return Outcome::stayed;
    if (!standsOnBox()) throw std::out_of_range("no box");
  } catch (const std::out_of_range&) {
    standAgain();
    return Outcome::broken;
  }
  note(step);
  return Outcome::moved;
}

Outcome Walk::followLink() {
  const ScreenElement link = box();
  const auto name = link.nameOfNextFlowchart();
  if (!name) return Outcome::noLink;
  const auto index = navigator_.indexOfFlowchart(*name);
  if (!index) return Outcome::noChart;
  return link.isOnPath() ? followPathInto(*index) : enter(library_.entry(*index));
}

Outcome Walk::back() {
  if (!visits_.back().steps.empty()) {
    visits_.back().steps.pop_back();
    visits_.back().answersKept = std::min(visits_.back().answersKept, visits_.back().steps.size());
    standAgain();
    return Outcome::moved;
  }
  if (visits_.size() == 1) return Outcome::stayed;
  visits_.pop_back();
  standAgain();
  return Outcome::moved;
}

std::vector<Walk::Stay> Walk::stays() const {
  std::vector<Stay> stays;
  for (const Visit& visit : visits_) stays.push_back({visit.chart, visit.steps});
  return stays;
}

void Walk::restart() {
  navigator_ = Tavrel(library_.directory());
  visits_.clear();
  stretches_.clear();
}

// Selects a flowchart; if it can't be walked, the walk stands where it stood.
template <typename Select>
Outcome Walk::enterWith(Visit visit, Select select) {
  if (!library_.faultOf(library_.entry(visit.chart)).empty()) return Outcome::noFile;
  Outcome fault = Outcome::noRoot;
  try {
    select();
    if (standsOnBox() && !showsPlaceholder()) {
      visits_.push_back(std::move(visit));
      return Outcome::moved;
    }
  } catch (const std::logic_error&) {  // out of range, or of an impossible size
    fault = Outcome::malformed;
  }
  if (hasEntered()) standAgain();
  return fault;
}

Outcome Walk::enterOnStretch(std::int64_t chart, std::size_t stretch) {
  return enterWith({chart, stretch, {}, 0},
                   [&] { navigator_.resetToStartLocationForFlowchartAtIndex(chart); });
}

// The navigator lays the answers that are left each time it follows a link on the
// path. Only from the path's last stretch are they meant for the flowchart ahead.
Outcome Walk::followPathInto(std::int64_t chart) {
  const std::size_t next = visits_.back().stretch + 1;
  if (next < stretches_.size() && stretches_[next].chart == chart) {
    return enterOnStretch(chart, next);
  }
  if (next != stretches_.size()) return enterOnStretch(chart, stretchOn(chart));
  Stretch ahead = {chart, std::nullopt};
  if (const std::string* answers = answersKept()) {
    ahead.answers = answers->substr(visits_.back().answersKept);
  }
  const Outcome outcome = enterWith({chart, next, {}, 0}, [&] { navigator_.moveAlongPath(); });
  if (outcome == Outcome::moved) stretches_.push_back(std::move(ahead));
  return outcome;
}

Outcome Walk::takeAlongPath() {
  const ScreenElement from = box();
  if (!from.isOnPath()) return Outcome::stayed;
  if (from.nameOfNextFlowchart()) return followLink();
  const std::string* answers = answersKept();
  if (answers == nullptr) return takeAlongMarks();
  const std::size_t next = visits_.back().answersKept;
  if (next == answers->size()) return Outcome::stayed;
  return take((*answers)[next] == 'y' ? WalkStep::yes : WalkStep::no);
}

// Made as a step through an exit, which leads to the same box whenever it is made
// again, while a path may have been laid over itself meanwhile.
Outcome Walk::takeAlongMarks() {
  const ScreenElement from = box();
  if (isMarkedToward(from.yesDirection())) return take(WalkStep::yes);
  if (isMarkedToward(from.noDirection())) return take(WalkStep::no);
  return Outcome::stayed;
}

// The latest stretch that lies on a flowchart.
std::size_t Walk::stretchOn(std::int64_t chart) const {
  const auto found = std::find_if(stretches_.rbegin(), stretches_.rend(),
                                  [&](const Stretch& each) { return each.chart == chart; });
  if (found == stretches_.rend()) return noStretch;
  return static_cast<std::size_t>(stretches_.rend() - found) - 1;
}

// The answers of the stretch that the walk is on, if it has kept to them so far.
const std::string* Walk::answersKept() const {
  const Visit& visit = visits_.back();
  if (visit.stretch >= stretches_.size() || visit.answersKept < visit.steps.size()) return nullptr;
  const std::optional<std::string>& answers = stretches_[visit.stretch].answers;
  return answers ? &*answers : nullptr;
}

void Walk::note(WalkStep step) {
  Visit& visit = visits_.back();
  const std::string* answers = answersKept();
  const std::size_t next = visit.answersKept;
  const bool isKept = answers != nullptr && next < answers->size() &&
                      step == ((*answers)[next] == 'y' ? WalkStep::yes : WalkStep::no);
  visit.steps.push_back(step);
  if (isKept) ++visit.answersKept;
}

bool Walk::isMarkedToward(std::int64_t direction) const {
  auto [name, x, y] = navigator_.currentLocation();
  if (direction == XYDirectionXPlus) ++x;
  if (direction == XYDirectionXMinus) --x;
  if (direction == XYDirectionYPlus) ++y;
  if (direction == XYDirectionYMinus) --y;
  const auto next = navigator_.elementsInBounds({x, x, y, y});
  return direction != XYDirectionNone && !next.empty() && next.front().isOnPath();
}

void Walk::make(WalkStep step) {
  switch (step) {
    case WalkStep::yes:
      return navigator_.moveYes();
    case WalkStep::no:
      return navigator_.moveNo();
    case WalkStep::up:
      return navigator_.moveYMinus();
    case WalkStep::down:
      return navigator_.moveYPlus();
    case WalkStep::left:
      return navigator_.moveXMinus();
    case WalkStep::right:
      return navigator_.moveXPlus();
    case WalkStep::alongPath:
      break;  // is made as a step through the exit it leaves by
    case WalkStep::root:
      return navigator_.moveToRoot();
  }
}

// Goes from the root to where the current visit's steps lead.
void Walk::standAgain() {
  navigator_.resetToStartLocationForFlowchartAtIndex(visits_.back().chart);
  for (const WalkStep step : visits_.back().steps) make(step);
}

bool Walk::standsOnBox() const {
  const auto [name, x, y] = navigator_.currentLocation();
  const auto here = navigator_.elementsInBounds({x, x, y, y});
  return !here.empty() && here.front().isNode();
}

// The library shows one box of this text for a file it could make nothing of.
bool Walk::showsPlaceholder() const try {
  return box().boxText() == std::vector<std::string>{"Flowchart not read"};
} catch (const std::invalid_argument&) {
  return false;
}

}  // namespace tavrel
