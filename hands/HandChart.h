// A chart that a hand can walk: its boxes and what it asks of hands, found without a search.

#ifndef TAVREL_HANDS_HANDCHART_H
#define TAVREL_HANDS_HANDCHART_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "facade/Tavrel.h"
#include "hands/Conditions.h"

namespace tavrel::hands {

using BoxIndex = std::uint32_t;
inline constexpr BoxIndex noBox = static_cast<BoxIndex>(-1);

/// A box on the grid. Where it has a link, the walk of a chart ends there.
struct HandBox {
  Cell cell;
  std::vector<std::string> text;  ///< what it says, line by line
  std::string link;               ///< the file name of the chart it leads into, or empty
  ByAnswer<BoxIndex> exits = {noBox, noBox};
  const BoxConditions* conditions = nullptr;  ///< nullptr where nothing is said of it

  bool isEnd() const { return !link.empty() || (exits.yes == noBox && exits.no == noBox); }
};

/// Immutable; any number of threads may look at it.
class HandChart {
 public:
  /// Of the elements of a flowchart, in the navigator's order, and of its conditions. What comes
  /// back otherwise is why there can't be one, as a clause: no box at the root, a line that leads
  /// to none, a text that isn't UTF-8, conditions for a cell without a box.
  /// Cost: one pass over the elements.
  static std::variant<HandChart, std::string> of(const std::vector<ScreenElement>& elements,
                                                 Conditions conditions);

  HandChart(HandChart&&) noexcept = default;
  HandChart& operator=(HandChart&&) noexcept = default;

  const std::string& name() const { return conditions_->chart; }
  const Conditions& conditions() const { return *conditions_; }

  /// The root is the first.
  const std::vector<HandBox>& boxes() const { return boxes_; }
  const HandBox& operator[](BoxIndex box) const { return boxes_[box]; }

  /// The box in a cell; noBox if none is there. Cost: the logarithm of the number of boxes.
  BoxIndex at(Cell cell) const;

  /// What messages call a box: its id, or its text in quotation marks.
  std::string nameOf(BoxIndex box) const;

 private:
  HandChart() = default;

  std::unique_ptr<const Conditions> conditions_;  // stays where it is, as boxes point into it
  std::vector<HandBox> boxes_;
  std::vector<std::pair<Cell, BoxIndex>> byCell_;
};

}  // namespace tavrel::hands

#endif  // TAVREL_HANDS_HANDCHART_H
