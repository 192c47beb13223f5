// Lines for people to read, one below the other, with the suits in their colours.

#ifndef TAVREL_HOSTS_TAVREL_INKEDLINES_H
#define TAVREL_HOSTS_TAVREL_INKEDLINES_H

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "text/Text.h"

namespace tavrel {

/// On a terminal, suits have the colours of the screen's charts, unless NO_COLOR is set or the
/// terminal has none, and lines break at blanks. Elsewhere a line stays as it is. Text is made
/// printable in any case.
class InkedLines {
 public:
  /// `out` is standard output, or what is to be written there; it must outlive this.
  InkedLines(std::ostream& out, Charset charset);

  /// Whether somebody sits there.
  bool isTerminal() const { return isTerminal_; }

  void line(std::string_view text = "");
  void block(const std::vector<std::string>& all);

  /// Without a line feed, and at once.
  void prompt(std::string_view text);

  /// Takes away what was on the screen. Where nothing can, an empty line stands between.
  void newPage();

 private:
  std::string inked(std::string_view text) const;
  int width() const;

  std::ostream& out_;
  const Charset charset_;
  bool isTerminal_ = false;
  int colours_ = 0;    // 0: none are used
  std::string clear_;  // what clears the screen; may be empty
  bool isEmpty_ = true;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_INKEDLINES_H
