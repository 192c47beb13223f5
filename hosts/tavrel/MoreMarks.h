// The marks that say that a text goes on beyond what shows of it.

#ifndef TAVREL_HOSTS_TAVREL_MOREMARKS_H
#define TAVREL_HOSTS_TAVREL_MOREMARKS_H

#include "hosts/tavrel/Terminal.h"

namespace tavrel {

/// The column beside a text, `height` rows of it from `row` on.
struct Margin {
  int row;
  int column;
  int height;
};

/// Puts an arrowhead at the margin's top if the first line that shows, `top`, is
/// not the first of the text's `lineCount`, and one at its bottom if the last line
/// that shows is not the last.
void putMoreMarks(Terminal& terminal, const Margin& margin, int top, int lineCount);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_MOREMARKS_H
