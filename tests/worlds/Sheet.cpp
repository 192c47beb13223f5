#include <utility>

#include "tests/reference/Notation.h"
#include "tests/reference/State.h"
#include "tests/support/EngineAccess.h"
#include "tests/unit/Catalogue.h"
#include "tests/worlds/World.h"

namespace tavrel::worlds {
namespace {

std::string oneText(const Answer& answer) {
  std::string text;
  for (const std::string& line : answer) text += "\n    " + line;
  return text;
}

}  // namespace

Sheet::Sheet() = default;

void Sheet::lay(const std::vector<std::string>& files) {
  files_ = files;
  directory_.clear();
  for (std::size_t i = 0; i < files.size(); ++i) directory_.write(catalogue[i].fileName, files[i]);
  plain_ = std::make_unique<reference::PlainNavigator>(directory_.directory(), directory_, met_);
  navigator_ = std::make_unique<reference::FacadeRespondent>(directory_.directory());
}

void Sheet::ask(const reference::Request& request) {
  ++requests_;
  const reference::Reply expected = plain_->ask(request);
  const reference::Reply got = navigator_->ask(request);
  const auto asked = [&] { return reference::lineOf(request, reference::Front::facade); };
  if (!(expected == got)) {
    fail(asked(), oneText(answerOf(request, expected)), oneText(answerOf(request, got)));
  }
  if (const auto difference = differenceAtCursor(plain_->engine, navigator_->engine())) {
    fail(asked() + ": " + difference->what, difference->reference, difference->navigator);
  }
}

void Sheet::compareChart(std::size_t index) {
  const auto difference =
      differenceInChart(plain_->engine.charts[index], navigator_->engine(), index);
  if (difference) fail(difference->what, difference->reference, difference->navigator);
}

void Sheet::compareEverything() {
  const auto difference = differenceAnywhere(plain_->engine, navigator_->engine());
  if (difference) fail(difference->what, difference->reference, difference->navigator);
}

void Sheet::putCursorOn(std::size_t element) {
  reference::PlainEngine& plain = plain_->engine;
  const reference::PlainElement& place = plain.currentChart().elements.at(element);
  plain.x = place.x;
  plain.y = place.y;
  plain.element = static_cast<std::int32_t>(element);
  EngineAccess::currentLocation(engine()).m_x = place.x;
  EngineAccess::currentLocation(engine()).m_y = place.y;
  EngineAccess::currentElementIndex(engine()) = plain.element;
}

void Sheet::fail(const std::string& what, const std::string& reference,
                 const std::string& navigator) const {
  // Beyond the sheet where no flowchart is current, or a link led to one without a file.
  const auto current = static_cast<std::size_t>(plain_->engine.current);
  throw Differs(what + "\n  reference: " + reference + "\n  navigator: " + navigator +
                "\n  chart:\n" + (current < files_.size() ? files_[current] : ""));
}

}  // namespace tavrel::worlds
