// The place of a walk, kept while its charts are compiled again.

#ifndef TAVREL_HOSTS_TAVREL_KEPTPLACE_H
#define TAVREL_HOSTS_TAVREL_KEPTPLACE_H

#include <string>
#include <vector>

#include "hosts/tavrel/SourceCharts.h"
#include "hosts/tavrel/Walk.h"

namespace tavrel {

/// The way of a walk by the ids of its boxes, or else by their texts, from chart to chart. Cells
/// are another matter each time a chart is laid out.
class KeptPlace {
 public:
  /// REQUIRES: the walk has entered a flowchart, and `charts` are as they were then.
  KeptPlace(const Walk& walk, const SourceCharts& charts);

  /// Starts the walk anew and leads it to the box where it stood, or to the last one on its way
  /// that is still there. `path`, the answers that were laid on the first chart, is laid again.
  void restore(Walk& walk, const SourceCharts& charts, const std::string& path) const;

 private:
  // What is known of a box whose cell, and whose number, may have changed.
  struct Box {
    std::string id;
    std::vector<std::string> lines;
  };

  struct Stay {
    Walk::Stay made;
    std::vector<Box> boxes;  // from the root to the place; none in a chart without a source
  };

  static Box boxUnder(const Walk& walk, const authoring::CompiledChart& chart);
  static std::vector<Box> boxesOn(const Walk::Stay& stay, const Library& library,
                                  const authoring::CompiledChart& chart);
  static std::vector<WalkStep> stepsAlong(const Stay& stay, const authoring::ChartSource& source);
  static authoring::BoxNumber numberOf(const Box& box, const authoring::ChartSource& source);

  std::vector<Stay> stays_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_KEPTPLACE_H
