#include "hosts/tavrel/ChoiceList.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace tavrel {
namespace {

constexpr char escape = '\x1B';

bool isLeave(const KeyPress& press) {
  return press.key == Key::interrupted ||
         (press.key == Key::character && (press.character == 'q' || press.character == escape));
}

int lowerCase(char letter) { return std::tolower(static_cast<unsigned char>(letter)); }

}  // namespace

ChoiceList::ChoiceList(std::vector<Choice> choices, int chosen)
    : choices_(std::move(choices)), chosen_(chosen) {}

std::optional<int> ChoiceList::pick(Terminal& terminal, const std::string& title) {
  while (true) {
    const Page page(terminal, title, static_cast<int>(choices_.size()));
    draw(terminal, page);
    const KeyPress press = terminal.readKey();
    if (isLeave(press)) return std::nullopt;
    if (press.key == Key::enter) return chosen_;
    move(press, page.room());
  }
}

void ChoiceList::draw(Terminal& terminal, const Page& page) {
  top_ = page.clamped(std::clamp(top_, chosen_ - page.room() + 1, chosen_));
  page.draw(terminal, top_, [&](int line, int row) {
    const Style style = {Ink::text, false, line == chosen_, !at(line).isAvailable};
    terminal.put(row, 0, ' ' + at(line).text + ' ', style);
  });
}

void ChoiceList::move(const KeyPress& press, int page) {
  if (press.key == Key::character) jumpTo(press.character);
  chosen_ = std::clamp(chosen_ + scrollOf(press, page).value_or(0), 0, last());
}

// To the next choice that starts with this letter, around the end.
void ChoiceList::jumpTo(char letter) {
  const int count = static_cast<int>(choices_.size());
  for (int step = 1; step <= count; ++step) {
    const int candidate = (chosen_ + step) % count;
    if (lowerCase(at(candidate).text.front()) == lowerCase(letter)) {
      chosen_ = candidate;
      return;
    }
  }
}

}  // namespace tavrel
