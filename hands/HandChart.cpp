#include "hands/HandChart.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "authoring/InShort.h"

namespace tavrel::hands {
namespace {

std::string shown(Cell cell) { return std::to_string(cell.x) + "," + std::to_string(cell.y); }

Cell cellOf(const ScreenElement& element) { return {element.x(), element.y()}; }

Cell beside(Cell cell, std::int64_t direction) {
  switch (direction) {
    case XYDirectionYPlus:
      return {cell.x, cell.y + 1};
    case XYDirectionXPlus:
      return {cell.x + 1, cell.y};
    case XYDirectionYMinus:
      return {cell.x, cell.y - 1};
    default:
      return {cell.x - 1, cell.y};
  }
}

// Where the cells of a chart lead. Of two elements in one cell the first counts, as it does for
// the navigator.
class Lines {
 public:
  explicit Lines(const std::vector<ScreenElement>& elements) : most_(elements.size()) {
    for (const ScreenElement& element : elements) elements_.emplace(cellOf(element), &element);
  }

  // The cell of the box at the other end of a line; a line in a loop has none.
  std::optional<Cell> endOf(Cell from, std::int64_t direction) const {
    for (std::size_t steps = 0; steps < most_; ++steps) {
      from = beside(from, direction);
      const auto next = elements_.find(from);
      if (next == elements_.end()) return std::nullopt;
      if (next->second->isNode()) return from;
      direction = next->second->outOfDirection();
    }
    return std::nullopt;
  }

 private:
  std::map<Cell, const ScreenElement*> elements_;
  std::size_t most_;
};

using CellList = std::vector<std::pair<Cell, BoxIndex>>;

BoxIndex find(const CellList& cells, Cell wanted) {
  const auto found =
      std::lower_bound(cells.begin(), cells.end(), wanted,
                       [](const auto& each, Cell cell) { return each.first < cell; });
  return found == cells.end() || !(found->first == wanted) ? noBox : found->second;
}

class Builder {
 public:
  Builder(const std::vector<ScreenElement>& elements, std::vector<HandBox>& boxes, CellList& byCell)
      : elements_(elements), lines_(elements), boxes_(boxes), byCell_(byCell) {}

  // Throws Fault.
  void build() {
    addBoxes();
    if (boxes_.empty() || !(boxes_[0].cell == Cell{})) throw Fault{"there is no box at 0,0"};
    std::size_t box = 0;
    for (const ScreenElement& element : elements_) {
      if (!element.isNode() || indexOf(cellOf(element)) != box) continue;
      boxes_[box].exits = {exitOf(element, element.yesDirection()),
                           exitOf(element, element.noDirection())};
      ++box;
    }
  }

  void give(const Conditions& conditions) {
    for (const BoxConditions& each : conditions.boxes) {
      for (const Cell cell : each.cells) {
        const BoxIndex box = indexOf(cell);
        if (box == noBox) throw Fault{"it has conditions for " + shown(cell) + ", where no box is"};
        boxes_[box].conditions = &each;
      }
    }
  }

  struct Fault {
    std::string text;
  };

 private:
  void addBoxes() {
    std::map<Cell, BoxIndex> indices;
    for (const ScreenElement& element : elements_) {
      const auto index = static_cast<BoxIndex>(boxes_.size());
      if (!element.isNode() || !indices.emplace(cellOf(element), index).second) continue;
      boxes_.push_back({cellOf(element),
                        textOf(element),
                        element.nameOfNextFlowchart().value_or(""),
                        {noBox, noBox},
                        nullptr});
    }
    byCell_.assign(indices.begin(), indices.end());
  }

  static std::vector<std::string> textOf(const ScreenElement& element) try {
    return element.boxText();
  } catch (const std::invalid_argument&) {
    throw Fault{"the text of the box at " + shown(cellOf(element)) + " is not UTF-8"};
  }

  BoxIndex exitOf(const ScreenElement& element, std::int64_t direction) const {
    if (direction < XYDirectionYPlus || direction > XYDirectionXMinus) return noBox;
    const auto end = lines_.endOf(cellOf(element), direction);
    if (!end) throw Fault{"a line from " + shown(cellOf(element)) + " leads to no box"};
    return indexOf(*end);
  }

  BoxIndex indexOf(Cell cell) const { return find(byCell_, cell); }

  const std::vector<ScreenElement>& elements_;
  const Lines lines_;
  std::vector<HandBox>& boxes_;
  CellList& byCell_;
};

}  // namespace

std::variant<HandChart, std::string> HandChart::of(const std::vector<ScreenElement>& elements,
                                                   Conditions conditions) try {
  HandChart chart;
  chart.conditions_ = std::make_unique<const Conditions>(std::move(conditions));
  Builder builder(elements, chart.boxes_, chart.byCell_);
  builder.build();
  builder.give(*chart.conditions_);
  return chart;
} catch (const Builder::Fault& fault) {
  return fault.text;
}

BoxIndex HandChart::at(Cell cell) const { return find(byCell_, cell); }

std::string HandChart::nameOf(BoxIndex box) const {
  const HandBox& named = boxes_[box];
  if (named.conditions != nullptr && !named.conditions->id.empty()) return named.conditions->id;
  std::string text;
  for (const std::string& line : named.text) text += (text.empty() ? "" : " ") + line;
  return "\"" + authoring::inShort(text) + "\"";
}

}  // namespace tavrel::hands
