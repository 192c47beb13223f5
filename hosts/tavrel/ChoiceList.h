// A list on the whole screen, to pick one of its entries.

#ifndef TAVREL_HOSTS_TAVREL_CHOICELIST_H
#define TAVREL_HOSTS_TAVREL_CHOICELIST_H

#include <optional>
#include <string>
#include <vector>

#include "hosts/tavrel/Page.h"
#include "hosts/tavrel/Terminal.h"

namespace tavrel {

struct Choice {
  std::string text;  ///< not empty
  bool isAvailable;  ///< shown dim if not; the text says so too
};

/// Remembers which choice was picked last, for the next time.
class ChoiceList {
 public:
  /// `chosen` is the choice to start from. REQUIRES: choices has that one.
  ChoiceList(std::vector<Choice> choices, int chosen);

  /// Lets one be picked with the arrows, the first letter of a text and Enter.
  /// Returns its place in the list, or nothing if the list was left with q or
  /// Escape or the program is to end.
  std::optional<int> pick(Terminal& terminal, const std::string& title);

 private:
  int last() const { return static_cast<int>(choices_.size()) - 1; }
  const Choice& at(int place) const { return choices_[static_cast<std::size_t>(place)]; }
  void draw(Terminal& terminal, const Page& page);
  void move(const KeyPress& press, int page);
  void jumpTo(char letter);

  std::vector<Choice> choices_;
  int chosen_;
  int top_ = 0;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_CHOICELIST_H
