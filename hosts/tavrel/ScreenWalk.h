// A walk on the terminal's screen: what the keys do.

#ifndef TAVREL_HOSTS_TAVREL_SCREENWALK_H
#define TAVREL_HOSTS_TAVREL_SCREENWALK_H

#include <cstddef>
#include <string>

#include "hosts/tavrel/HandGuide.h"
#include "hosts/tavrel/SourceCharts.h"
#include "hosts/tavrel/Terminal.h"
#include "hosts/tavrel/Walk.h"
#include "hosts/tavrel/WalkView.h"

namespace tavrel {

class ScreenWalk {
 public:
  /// A walk through the flowcharts of `library` on `terminal`; both must outlive it. So must
  /// `watched`, if it is given: the library's charts, which the walk has compiled and reads
  /// again, in the same place, whenever a source was saved.
  ScreenWalk(const Library& library, Terminal& terminal, Charset charset,
             SourceCharts* watched = nullptr);

  /// Walks from the root of `chart` with the answers (y and n) laid out as its path,
  /// until a key or a signal ends it. Throws Failure if the chart can't be walked.
  void walk(const CatalogueEntry& chart, const std::string& answers);

  /// Walks from where the way of a hand begins; Space takes it a step further, and says why.
  void walk(HandGuide& guide);

  /// Walks from the chart picked from the list, if one is.
  void walkFromList();

 private:
  void run();
  bool obey(const KeyPress& press);
  bool obeyCharacter(char character);
  void take(WalkStep step);
  void move(WalkStep step);
  void takeHandStep();
  void walkHandSteps(std::size_t count);
  void answerForHand(WalkStep step);
  HandGuide::Place place() const;
  void followLink();
  void back();
  bool pickChart();
  void showIntro();
  void showHelp();
  void say(const std::string& refusal);
  void readAgain();

  Walk walk_;
  Terminal& terminal_;
  Charset charset_;
  WalkView view_;
  SourceCharts* watched_;
  HandGuide* guide_ = nullptr;
  std::string answers_;      // laid on the first chart
  std::string message_;      // said once, until the next key
  std::string sourceError_;  // stands until it is mended
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_SCREENWALK_H
