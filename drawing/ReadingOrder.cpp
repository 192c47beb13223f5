#include "drawing/ReadingOrder.h"

#include <cstdint>

#include "drawing/CellSides.h"

namespace tavrel::drawing {
namespace {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
constexpr std::size_t notYetKnown = static_cast<std::size_t>(-2);

class Reader {
 public:
  explicit Reader(const ElementGrid& grid)
      : grid_(grid),
        ends_(grid.elements().size(), notYetKnown),
        isRead_(grid.elements().size(), false) {}

  std::vector<ReadBox> read() {
    if (const ScreenElement* root = grid_.at(0, 0)) readFrom(indexOf(*root));
    for (std::size_t i = 0; i < isRead_.size(); ++i) readFrom(i);
    return std::move(order_);
  }

 private:
  std::size_t indexOf(const ScreenElement& element) const {
    return static_cast<std::size_t>(&element - grid_.elements().data());
  }
  const ScreenElement& element(std::size_t index) const { return grid_.elements()[index]; }

  std::size_t neighbour(std::size_t from, std::int64_t direction) const {
    const Step step = stepOf(static_cast<XYDirection>(direction));
    if (step.dx == 0 && step.dy == 0) return nowhere;
    const ScreenElement* next = grid_.at(element(from).x() + step.dx, element(from).y() + step.dy);
    return next == nullptr ? nowhere : indexOf(*next);
  }

  // The box at the end of the line that starts in this cell. What is found holds for every cell
  // of the line; until then they count as a line that leads nowhere, which ends a circle.
  std::size_t endOf(std::size_t cell) {
    std::vector<std::size_t> passed;
    while (cell != nowhere && ends_[cell] == notYetKnown) {
      passed.push_back(cell);
      ends_[cell] = element(cell).isNode() ? cell : nowhere;
      if (!element(cell).isNode()) cell = neighbour(cell, element(cell).outOfDirection());
    }
    const std::size_t end = cell == nowhere ? nowhere : ends_[cell];
    for (const std::size_t each : passed) ends_[each] = end;
    return end;
  }

  std::size_t exit(std::size_t from, std::int64_t direction) {
    return endOf(neighbour(from, direction));
  }

  void readFrom(std::size_t first) {
    std::vector<std::size_t> ahead{first};
    while (!ahead.empty()) {
      const std::size_t cell = ahead.back();
      ahead.pop_back();
      if (cell == nowhere || isRead_[cell] || !element(cell).isNode()) continue;
      isRead_[cell] = true;
      const std::size_t yes = exit(cell, element(cell).yesDirection());
      const std::size_t no = exit(cell, element(cell).noDirection());
      order_.push_back({&element(cell), elementOrNull(yes), elementOrNull(no)});
      ahead.push_back(no);
      ahead.push_back(yes);
    }
  }

  const ScreenElement* elementOrNull(std::size_t index) const {
    return index == nowhere ? nullptr : &element(index);
  }

  const ElementGrid& grid_;
  std::vector<std::size_t> ends_;  // of the lines, by the index of a cell of theirs
  std::vector<bool> isRead_;
  std::vector<ReadBox> order_;
};

}  // namespace

std::vector<ReadBox> readingOrder(const ElementGrid& grid) { return Reader(grid).read(); }

}  // namespace tavrel::drawing
