#include "drawing/ElementGrid.h"

#include <algorithm>
#include <utility>

namespace tavrel::drawing {
namespace {

using Cell = std::pair<std::int64_t, std::int64_t>;

Cell cellOf(const ScreenElement& element) { return {element.y(), element.x()}; }

}  // namespace

ElementGrid::ElementGrid(std::vector<ScreenElement> elements) : elements_(std::move(elements)) {
  const auto before = [](const ScreenElement& a, const ScreenElement& b) {
    return cellOf(a) < cellOf(b);
  };
  const auto same = [](const ScreenElement& a, const ScreenElement& b) {
    return cellOf(a) == cellOf(b);
  };
  std::stable_sort(elements_.begin(), elements_.end(), before);
  elements_.erase(std::unique(elements_.begin(), elements_.end(), same), elements_.end());
}

const ScreenElement* ElementGrid::at(std::int64_t x, std::int64_t y) const {
  const Cell cell{y, x};
  const auto found = std::lower_bound(
      elements_.begin(), elements_.end(), cell,
      [](const ScreenElement& element, const Cell& wanted) { return cellOf(element) < wanted; });
  return found != elements_.end() && cellOf(*found) == cell ? &*found : nullptr;
}

}  // namespace tavrel::drawing
