// Pages over the whole screen: text to scroll through, and a list to pick from.

#ifndef TAVREL_HOSTS_TAVREL_PAGE_H
#define TAVREL_HOSTS_TAVREL_PAGE_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "hosts/tavrel/Terminal.h"

namespace tavrel {

/// Lines, each no wider than the columns it is asked for where that can be.
using LinesForWidth = std::function<std::vector<std::string>(int width)>;

/// A page's title over its lines, of which as many show as there is room for.
class Page {
 public:
  /// Lays the title out over `lineCount` lines, for the terminal's present size.
  /// On a terminal too low for both, the title is left out.
  Page(const Terminal& terminal, const std::string& title, int lineCount);

  /// How many lines show at once, at least 1.
  int room() const { return room_; }

  /// The first line to show when `top` was asked for.
  int clamped(int top) const;

  /// Draws the title, the lines from `top` on, and marks where there are more of
  /// them. `putLine` puts line number `line` into a row.
  void draw(Terminal& terminal, int top,
            const std::function<void(int line, int row)>& putLine) const;

 private:
  std::vector<std::string> title_;
  int lineCount_;
  int room_;
};

/// By how many lines a key scrolls, 0 for a terminal resized; nothing for a key
/// that doesn't scroll.
std::optional<int> scrollOf(const KeyPress& press, int page);

/// Shows lines under a title until a key other than those that scroll is pressed.
void showPage(Terminal& terminal, const std::string& title, const LinesForWidth& lines);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_PAGE_H
