#include "hosts/tavrel/MoreMarks.h"

#include "hosts/tavrel/Words.h"

namespace tavrel {

void putMoreMarks(Terminal& terminal, const Margin& margin, int top, int lineCount) {
  if (margin.height < 1) return;
  const bool utf8 = localeCharset() == Charset::utf8;
  const Style style = {Ink::line, true};
  if (top > 0) terminal.put(margin.row, margin.column, utf8 ? "▲" : "^", style);
  if (top + margin.height < lineCount) {
    terminal.put(margin.row + margin.height - 1, margin.column, utf8 ? "▼" : "v", style);
  }
}

}  // namespace tavrel
