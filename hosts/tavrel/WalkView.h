// What a walk shows on the screen: the chart with the place and the path lit, and
// the panel.

#ifndef TAVREL_HOSTS_TAVREL_WALKVIEW_H
#define TAVREL_HOSTS_TAVREL_WALKVIEW_H

#include <optional>
#include <string>

#include "drawing/TextChart.h"
#include "hosts/tavrel/Area.h"
#include "hosts/tavrel/Terminal.h"
#include "hosts/tavrel/Walk.h"
#include "hosts/tavrel/WalkPanel.h"

namespace tavrel {

class WalkView {
 public:
  /// `terminal` must outlive the view.
  WalkView(Terminal& terminal, Charset charset);

  /// Draws a walk that has entered a flowchart, scrolled so that the place is in
  /// view, and a message and a notice if there are any.
  void draw(const Walk& walk, const std::string& message, const std::string& notice);

  /// To be called after each move within a flowchart, and after each move into
  /// one: it may be another, or read anew.
  void placeChanged() { panel_.placeChanged(); }
  void chartChanged();

  void scrollCommentary(int pages) { panel_.scrollCommentary(pages); }

 private:
  void layOut();
  void scrollTo(const TextWindow& frame);
  void drawChart(const Walk& walk);
  void drawRule();

  Terminal& terminal_;
  Charset charset_;
  WalkPanel panel_;
  std::optional<TextChart> chart_;  // the drawing of the chart that is walked, once needed
  TextWindow window_ = {0, 0, 0, 0};
  Area chartArea_ = {0, 0, 0, 0};
  Area panelArea_ = {0, 0, 0, 0};
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_WALKVIEW_H
