// A walk without a screen: commands in, text out, a line at a time.

#ifndef TAVREL_HOSTS_TAVREL_LINEWALK_H
#define TAVREL_HOSTS_TAVREL_LINEWALK_H

#include <istream>
#include <ostream>
#include <string>

#include "hosts/tavrel/HandGuide.h"
#include "hosts/tavrel/Walk.h"
#include "text/Text.h"

namespace tavrel {

/// Output is told in blocks, each with an empty line behind it: "== NAME: TITLE" when
/// the flowchart is another one, a box's lines behind "|", its commentary indented
/// and its choices behind ">", and behind "*" whatever else there is to say.
class LineWalk {
 public:
  /// A walk through the flowcharts of `library`, told to `out`; both must outlive it.
  LineWalk(const Library& library, std::ostream& out, Charset charset);

  /// Walks from the root of `chart` by the commands read from `in`, until q or the
  /// end. Throws Failure for a line that is no command, which names its number.
  void obey(const CatalogueEntry& chart, std::istream& in);

  /// The same with a person at the other end: prompts, and forgives.
  void converse(const CatalogueEntry& chart, std::istream& in);

  /// The same from a flowchart that the person picks from the list of those with a
  /// file.
  void converseFromList(std::istream& in);

  /// Walks the path that the answers (y and n) prepare, across flowcharts, and says
  /// which answers were left over.
  void follow(const CatalogueEntry& chart, const std::string& answers);

  /// Walks the way of a hand, and says the reason of each step.
  void follow(const HandGuide& guide);

 private:
  void tellList();
  void enterFirst(const CatalogueEntry& chart, const std::string& answers);
  std::string walkPath(std::string answers);
  bool takeAlongPath();
  bool isCommand(const std::string& line);
  void take(WalkStep step);
  void followLink();
  void back();
  void enter(const std::string& nameOrTitle);
  void tellChart();
  void tellBox();
  void say(const std::string& clause);

  Walk walk_;
  std::ostream& out_;
  Charset charset_;
  std::string toldChart_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_LINEWALK_H
