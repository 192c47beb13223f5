#include "hosts/tavrel/ScreenWalk.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "hosts/tavrel/ChoiceList.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/Help.h"
#include "hosts/tavrel/Introduction.h"
#include "hosts/tavrel/KeptPlace.h"
#include "hosts/tavrel/Page.h"
#include "hosts/tavrel/Words.h"

namespace tavrel {
namespace {

const std::string judgementWanted = "this takes your judgement: y or n";

std::optional<WalkStep> stepOf(const KeyPress& press) {
  switch (press.key) {
    case Key::up:
      return WalkStep::up;
    case Key::down:
      return WalkStep::down;
    case Key::left:
      return WalkStep::left;
    case Key::right:
      return WalkStep::right;
    case Key::character:
      break;
    default:
      return std::nullopt;
  }
  switch (press.character) {
    case 'y':
      return WalkStep::yes;
    case 'n':
      return WalkStep::no;
    case 'r':
      return WalkStep::root;
    case ' ':
      return WalkStep::alongPath;
    default:
      return std::nullopt;
  }
}

ChoiceList listOf(const Library& library, std::int64_t current) {
  constexpr std::size_t nameColumns = 10;
  std::vector<Choice> choices;
  for (const CatalogueEntry& entry : library.entries()) {
    const bool hasFile = library.hasFile(entry);
    std::string text = entry.name;
    text.resize(std::max(nameColumns, text.size() + 1), ' ');
    choices.push_back({text + (hasFile ? "" : "(no file) ") + entry.title, hasFile});
  }
  return ChoiceList(std::move(choices), static_cast<int>(current));
}

}  // namespace

ScreenWalk::ScreenWalk(const Library& library, Terminal& terminal, Charset charset,
                       SourceCharts* watched)
    : walk_(library),
      terminal_(terminal),
      charset_(charset),
      view_(terminal, charset),
      watched_(watched) {}

void ScreenWalk::walk(const CatalogueEntry& chart, const std::string& answers) {
  answers_ = answers;
  const Outcome outcome = answers.empty() ? walk_.enter(chart) : walk_.enter(chart, answers);
  if (outcome != Outcome::moved) throw Failure(entryRefusalOf(walk_.library(), chart, outcome));
  run();
}

void ScreenWalk::walk(HandGuide& guide) {
  guide_ = &guide;
  message_ = "Space lets the hand answer: " + guide.handShown();
  walk(guide.chart(), "");
}

void ScreenWalk::walkFromList() {
  if (pickChart()) run();
}

void ScreenWalk::run() {
  do {
    view_.draw(walk_, message_, sourceError_);
    message_.clear();
  } while (obey(terminal_.readKey([this] { return watched_ && watched_->haveChanged(); })));
}

// False at the key that ends the walk.
bool ScreenWalk::obey(const KeyPress& press) {
  if (const auto step = stepOf(press)) {
    take(*step);
    return true;
  }
  switch (press.key) {
    case Key::character:
      return obeyCharacter(press.character);
    case Key::backspace:
      back();
      return true;
    case Key::enter:
      followLink();
      return true;
    case Key::pageUp:
      view_.scrollCommentary(-1);
      return true;
    case Key::pageDown:
      view_.scrollCommentary(1);
      return true;
    case Key::due:
      readAgain();
      return true;
    default:
      return press.key != Key::interrupted;
  }
}

bool ScreenWalk::obeyCharacter(char character) {
  switch (character) {
    case 'b':
      back();
      break;
    case 'i':
      showIntro();
      break;
    case 'l':
      pickChart();
      break;
    case '?':
      showHelp();
      break;
    case 'q':
      return false;
    default:
      message_ = "? shows what the keys do.";
  }
  return true;
}

void ScreenWalk::take(WalkStep step) {
  if (guide_ && step == WalkStep::alongPath) return takeHandStep();
  if (guide_ && (step == WalkStep::yes || step == WalkStep::no)) return answerForHand(step);
  move(step);
}

void ScreenWalk::move(WalkStep step) {
  const std::int64_t before = walk_.chart().index;
  const Outcome outcome = walk_.take(step);
  if (outcome != Outcome::moved) return say(refusalOf(walk_, step, outcome));
  view_.placeChanged();
  if (walk_.chart().index != before) view_.chartChanged();
}

// The path is lit as far as the hand has come, and no further.
void ScreenWalk::takeHandStep() {
  const auto count = guide_->stepsTo(place());
  if (!count) return say("the hand doesn't come here; b goes back");
  if (*count == guide_->steps().size()) {
    return say(guide_->isOpen() ? judgementWanted : guide_->result());
  }
  const std::int64_t before = walk_.chart().index;
  walkHandSteps(*count + 1);
  view_.placeChanged();
  if (walk_.chart().index != before) view_.chartChanged();
  const HandGuide::Step& step = guide_->steps()[*count];
  std::string said =
      step.question.empty() ? sentence(step.reason) : step.question + " " + step.reason;
  if (*count + 1 == guide_->steps().size()) {
    said += "; " + (guide_->isOpen() ? judgementWanted : guide_->result());
  }
  message_ = said;
}

void ScreenWalk::walkHandSteps(std::size_t count) {
  walk_.restart();
  const Outcome outcome = walk_.enter(guide_->chart(), guide_->answers(count));
  if (outcome != Outcome::moved) {
    throw Failure(entryRefusalOf(walk_.library(), guide_->chart(), outcome));
  }
  for (std::size_t made = 0; made < count; ++made) walk_.take(WalkStep::alongPath);
}

// A person's answer: their judgement where that is wanted, and elsewhere to be compared.
void ScreenWalk::answerForHand(WalkStep step) {
  const HandGuide::Place from = place();
  const auto answer = step == WalkStep::yes ? hands::Answer::yes : hands::Answer::no;
  const HandGuide::Step* const own = guide_->stepFrom(from);
  if (own == nullptr && guide_->isOpen() && guide_->stepsTo(from)) {
    guide_->judge(from, answer);
    return takeHandStep();
  }
  move(step);
  if (own == nullptr || !message_.empty()) return;
  message_ = own->question + " " + own->reason;
  if (own->answer != answer) message_ = "The hand answers otherwise. " + message_;
}

HandGuide::Place ScreenWalk::place() const { return walk_.navigator().currentLocation(); }

void ScreenWalk::followLink() {
  const Outcome outcome = walk_.followLink();
  if (outcome != Outcome::moved) return say(linkRefusalOf(walk_, outcome));
  view_.chartChanged();
}

void ScreenWalk::back() {
  const std::int64_t before = walk_.chart().index;
  if (walk_.back() != Outcome::moved) return say("the walk began here");
  view_.placeChanged();
  if (walk_.chart().index != before) view_.chartChanged();
}

// False if the list was left without a choice.
bool ScreenWalk::pickChart() {
  const Library& library = walk_.library();
  ChoiceList list = listOf(library, walk_.hasEntered() ? walk_.chart().index : 0);
  std::string title = "Pick a flowchart: arrows, first letter, Enter; q leaves";
  while (const auto picked = list.pick(terminal_, title)) {
    const CatalogueEntry& chart = library.entry(*picked);
    const Outcome outcome = walk_.enter(chart);
    if (outcome == Outcome::moved) {
      view_.chartChanged();
      return true;
    }
    title = printable(sentence(entryRefusalOf(library, chart, outcome)), charset_);
  }
  return false;
}

void ScreenWalk::showIntro() try {
  const std::vector<std::string> lines = introductionOf(walk_.library(), walk_.chart(), charset_);
  showPage(terminal_, printable(walk_.chart().title, charset_),
           [&](int width) { return flowed(lines, width); });
} catch (const Failure& failure) {
  say(failure.what());
}

void ScreenWalk::showHelp() { showPage(terminal_, "Keys", helpLines); }

// As long as a source has an error, the walk goes on in what it was before, and says so.
void ScreenWalk::readAgain() try {
  const KeptPlace place(walk_, *watched_);
  const bool isFine = watched_->compile();
  sourceError_ = printable(watched_->firstError(), charset_);
  if (!isFine) return;
  place.restore(walk_, *watched_, answers_);
  view_.chartChanged();
  if (sourceError_.empty()) message_ = "The source was saved; this is what it says now.";
} catch (const Failure& failure) {
  say(failure.what());
}

void ScreenWalk::say(const std::string& refusal) { message_ = sentence(refusal); }

}  // namespace tavrel
