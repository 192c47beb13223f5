// The panel of a walk: the flowchart's title, the commentary of the current box,
// and where the walk is, or what there is to say.

#ifndef TAVREL_HOSTS_TAVREL_WALKPANEL_H
#define TAVREL_HOSTS_TAVREL_WALKPANEL_H

#include <string>
#include <vector>

#include "hosts/tavrel/Area.h"
#include "hosts/tavrel/Terminal.h"
#include "hosts/tavrel/Walk.h"
#include "text/Text.h"

namespace tavrel {

class WalkPanel {
 public:
  /// `terminal` must outlive the panel.
  WalkPanel(Terminal& terminal, Charset charset);

  /// Draws the panel of a walk that has entered a flowchart. A message takes the
  /// place of where the walk is, a notice stands above it; both take rows of the
  /// commentary if they need them.
  void draw(const Walk& walk, const Area& area, const std::string& message,
            const std::string& notice);

  /// Scrolls the commentary by so many pages, as far as it goes.
  void scrollCommentary(int pages) { commentaryTop_ += pages * commentaryRoom_; }

  /// Back to the commentary's start, when it is another one.
  void placeChanged() { commentaryTop_ = 0; }

 private:
  void drawTitle(const std::string& title);
  void drawCommentary(const std::vector<std::string>& lines);
  void drawStatus(const std::vector<std::string>& lines, bool isMessage);
  void drawHint(int row, int columnsTaken);
  void putLine(int row, const std::string& line, const Style& style = {});
  int textWidth() const;

  Terminal& terminal_;
  Charset charset_;
  Area area_ = {0, 0, 0, 0};
  int commentaryTop_ = 0;   // lines of the commentary scrolled away
  int commentaryRoom_ = 0;  // rows there are for it
  bool isCommentaryCut_ = false;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_WALKPANEL_H
