// A walk through flowcharts, with a memory: where the navigator only knows where
// it is, a walk knows how it came there and can go back step by step.

#ifndef TAVREL_HOSTS_TAVREL_WALK_H
#define TAVREL_HOSTS_TAVREL_WALK_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "hosts/tavrel/Library.h"

namespace tavrel {

/// A step within one flowchart.
enum class WalkStep { yes, no, up, down, left, right, alongPath, root };

/// What came of a request to move.
enum class Outcome {
  moved,      ///< the place is another one
  stayed,     ///< no way leads there; nothing changed
  noLink,     ///< the box leads into no other flowchart
  noChart,    ///< the box leads into a flowchart that the catalogue doesn't know
  noFile,     ///< the flowchart's file can't be opened
  noRoot,     ///< the flowchart's file holds no box at 0,0, or nothing that can be read
  malformed,  ///< the flowchart's file names a text it doesn't have, or is too large
  broken,     ///< a line ahead leads to no box; the place is the old one
};

class Walk {
 public:
  /// A walk through the flowcharts of `library`, which must outlive it. It is
  /// nowhere until a flowchart has been entered.
  explicit Walk(const Library& library);

  /// Enters a flowchart at its root box. The path marks of all stay.
  Outcome enter(const CatalogueEntry& chart);

  /// Enters a flowchart and lays the answers (y and n) onto it as its path. If a
  /// line that they follow is broken, it has been entered all the same.
  Outcome enter(const CatalogueEntry& chart, const std::string& answers);

  /// Makes a step. Along the path, a box that leads into another flowchart is
  /// followed.
  Outcome take(WalkStep step);

  /// Enters the flowchart that the current box leads into. From a box on the path,
  /// the answers that are left go on there. However often the walk comes this way
  /// again, back or from the list, they are laid once.
  Outcome followLink();

  /// Undoes the last step or entry that changed the place. The path marks stay.
  Outcome back();

  /// The steps made in a flowchart since it was entered; those along the path are answers.
  struct Stay {
    std::int64_t chart;
    std::vector<WalkStep> steps;
  };

  /// All that would have to be done to come here again: one stay after another.
  std::vector<Stay> stays() const;

  /// Forgets everything, what was read of files included, and is nowhere again.
  void restart();

  const Library& library() const noexcept { return library_; }

  /// REQUIRES of all below: a flowchart has been entered.
  const CatalogueEntry& chart() const { return library_.entry(visits_.back().chart); }
  const Tavrel& navigator() const noexcept { return navigator_; }
  ScreenElement box() const { return navigator_.currentElement(); }

  bool hasEntered() const noexcept { return !visits_.empty(); }

 private:
  // A path that crosses flowcharts is laid in stretches, one for each flowchart in
  // the order in which it is entered. Marks alone don't tell which way comes next where a
  // path comes to a box twice: as long as a walk keeps to the answers, these do.
  struct Stretch {
    std::int64_t chart;
    std::optional<std::string> answers;  // unless some of the path was walked in another way
  };
  static constexpr std::size_t noStretch = static_cast<std::size_t>(-1);

  // One stay in a flowchart, since it was entered.
  struct Visit {
    std::int64_t chart;
    std::size_t stretch;  // of the path that lies on the flowchart, or noStretch
    std::vector<WalkStep> steps;
    std::size_t answersKept = 0;  // of the first steps, those that were the stretch's answers
  };

  template <typename Select>
  Outcome enterWith(Visit visit, Select select);
  Outcome enterOnStretch(std::int64_t chart, std::size_t stretch);
  Outcome followPathInto(std::int64_t chart);
  Outcome takeAlongPath();
  Outcome takeAlongMarks();
  const std::string* answersKept() const;
  void note(WalkStep step);
  std::size_t stretchOn(std::int64_t chart) const;
  bool isMarkedToward(std::int64_t direction) const;
  void make(WalkStep step);
  void standAgain();
  bool standsOnBox() const;
  bool showsPlaceholder() const;

  const Library& library_;
  Tavrel navigator_;
  std::vector<Visit> visits_;       // the last one is where the walk is
  std::vector<Stretch> stretches_;  // of the path that was laid last
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_WALK_H
