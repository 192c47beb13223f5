#include "hosts/tavrel/Page.h"

#include <algorithm>

#include "hosts/tavrel/MoreMarks.h"
#include "text/Text.h"

namespace tavrel {
namespace {

// Further than any page is long.
constexpr int allTheWay = 1 << 28;

int textWidth(const Terminal& terminal) { return std::max(1, terminal.width() - 2); }

}  // namespace

Page::Page(const Terminal& terminal, const std::string& title, int lineCount)
    : title_(wrapped({title}, textWidth(terminal))), lineCount_(lineCount) {
  const int titleRows = static_cast<int>(title_.size()) + 1;
  if (titleRows + 1 > terminal.height()) title_.clear();
  room_ = std::max(1, terminal.height() - (title_.empty() ? 0 : titleRows));
}

int Page::clamped(int top) const { return std::clamp(top, 0, std::max(0, lineCount_ - room_)); }

void Page::draw(Terminal& terminal, int top,
                const std::function<void(int line, int row)>& putLine) const {
  terminal.clear();
  int row = 0;
  for (const std::string& line : title_) terminal.put(row++, 1, line, {Ink::text, true});
  if (!title_.empty()) ++row;
  const int shown = std::min(room_, lineCount_ - top);
  for (int line = 0; line < shown; ++line) putLine(top + line, row + line);
  putMoreMarks(terminal, {row, terminal.width() - 1, room_}, top, lineCount_);
  terminal.show();
}

std::optional<int> scrollOf(const KeyPress& press, int page) {
  switch (press.key) {
    case Key::up:
      return -1;
    case Key::down:
      return 1;
    case Key::pageUp:
      return -page;
    case Key::pageDown:
      return page;
    case Key::home:
      return -allTheWay;
    case Key::end:
      return allTheWay;
    case Key::resized:
      return 0;
    default:
      return std::nullopt;
  }
}

void showPage(Terminal& terminal, const std::string& title, const LinesForWidth& lines) {
  int top = 0;
  while (true) {
    const std::vector<std::string> text = lines(textWidth(terminal));
    const Page page(terminal, title, static_cast<int>(text.size()));
    top = page.clamped(top);
    page.draw(terminal, top, [&](int line, int row) {
      terminal.put(row, 1, text[static_cast<std::size_t>(line)]);
    });
    const auto scroll = scrollOf(terminal.readKey(), page.room());
    if (!scroll) return;
    top += *scroll;
  }
}

}  // namespace tavrel
