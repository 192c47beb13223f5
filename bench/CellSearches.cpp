#include "bench/CellSearches.h"

#include <algorithm>
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>
#include <numeric>
#include <utility>

namespace tavrel::bench {
namespace {

namespace geometry = boost::geometry;

using Point = geometry::model::point<std::int32_t, 2, geometry::cs::cartesian>;
using Box = geometry::model::box<Point>;
using Entry = std::pair<Point, std::int32_t>;
// Of 4 to 64 entries a node, 8 and 16 answer fastest, about alike.
using Tree = geometry::index::rtree<Entry, geometry::index::quadratic<16>>;

Point pointOf(const sScreenElement& element) { return {element.m_x, element.m_y}; }

// The elements that `order` names, each with its index there.
Tree treeOf(const Elements& elements, const Indices& order) {
  std::vector<Entry> entries;
  for (const std::int32_t element : order) {
    entries.emplace_back(pointOf(elements[static_cast<std::size_t>(element)]),
                         static_cast<std::int32_t>(entries.size()));
  }
  return {entries.begin(), entries.end()};
}

Indices countingUp(std::size_t count) {
  Indices indices(count);
  std::iota(indices.begin(), indices.end(), 0);
  return indices;
}

void query(const Tree& tree, const engine::Bounds& bounds, Indices& found) {
  const Box box({bounds.minX, bounds.minY}, {bounds.maxX, bounds.maxY});
  const auto take = [&](const Entry& entry) { found.push_back(entry.second); };
  tree.query(geometry::index::intersects(box), boost::make_function_output_iterator(take));
}

engine::Bounds boundsOf(const Elements& elements) {
  engine::Bounds bounds = {0, 0, 0, 0};
  for (const sScreenElement& element : elements) {
    bounds = engine::including(bounds, {element.m_x, element.m_y});
  }
  return bounds;
}

}  // namespace

Indices rowOrderOf(const Elements& elements) {
  Indices order = countingUp(elements.size());
  std::stable_sort(order.begin(), order.end(), [&](std::int32_t a, std::int32_t b) {
    return elements[static_cast<std::size_t>(a)].m_y < elements[static_cast<std::size_t>(b)].m_y;
  });
  return order;
}

struct TreeSearch::Trees {
  Tree ofElements;
  Tree ofRanks;
};

TreeSearch::TreeSearch(const Elements& elements) : order_(rowOrderOf(elements)) {
  trees_ = std::make_unique<Trees>(
      Trees{treeOf(elements, countingUp(elements.size())), treeOf(elements, order_)});
}

TreeSearch::~TreeSearch() = default;

void TreeSearch::find(const engine::Bounds& bounds, Indices& found) const {
  query(trees_->ofElements, bounds, found);
}

void TreeSearch::findInOrder(const engine::Bounds& bounds, Indices& found) const {
  query(trees_->ofRanks, bounds, found);
  std::sort(found.begin(), found.end());
  for (std::int32_t& each : found) each = order_[static_cast<std::size_t>(each)];
}

LinearSearch::LinearSearch(const Elements& elements) : order_(rowOrderOf(elements)) {
  for (const std::int32_t index : order_) {
    const sScreenElement& element = elements[static_cast<std::size_t>(index)];
    positions_.push_back({element.m_x, element.m_y});
  }
}

void LinearSearch::findInOrder(const engine::Bounds& bounds, Indices& found) const {
  for (std::size_t rank = 0; rank < positions_.size(); ++rank) {
    const engine::Position& position = positions_[rank];
    if (bounds.minX <= position.x && position.x <= bounds.maxX && bounds.minY <= position.y &&
        position.y <= bounds.maxY) {
      found.push_back(order_[rank]);
    }
  }
}

DenseSearch::DenseSearch(const Elements& elements)
    : bounds_(boundsOf(elements)),
      width_(static_cast<std::size_t>(bounds_.maxX - bounds_.minX + 1)),
      cells_(width_ * static_cast<std::size_t>(bounds_.maxY - bounds_.minY + 1), -1) {
  for (const std::int32_t index : countingUp(elements.size())) {
    const sScreenElement& element = elements[static_cast<std::size_t>(index)];
    cells_[static_cast<std::size_t>(placeOf(element.m_x, element.m_y) - cells_.data())] = index;
  }
}

void DenseSearch::findInOrder(const engine::Bounds& bounds, Indices& found) const {
  const std::int32_t minX = std::max(bounds.minX, bounds_.minX);
  const std::int32_t maxX = std::min(bounds.maxX, bounds_.maxX);
  const std::int32_t maxY = std::min(bounds.maxY, bounds_.maxY);
  for (std::int32_t y = std::max(bounds.minY, bounds_.minY); y <= maxY; ++y) {
    const auto row = static_cast<std::ptrdiff_t>(found.size());
    const std::int32_t* cell = placeOf(minX, y);
    for (std::int32_t x = minX; x <= maxX; ++x, ++cell) {
      if (*cell != -1) found.push_back(*cell);
    }
    std::sort(found.begin() + row, found.end());
  }
}

std::int32_t DenseSearch::find(std::int32_t x, std::int32_t y) const {
  const bool isWithin =
      bounds_.minX <= x && x <= bounds_.maxX && bounds_.minY <= y && y <= bounds_.maxY;
  return isWithin ? *placeOf(x, y) : -1;
}

const std::int32_t* DenseSearch::placeOf(std::int32_t x, std::int32_t y) const {
  return cells_.data() + static_cast<std::size_t>(y - bounds_.minY) * width_ +
         static_cast<std::size_t>(x - bounds_.minX);
}

}  // namespace tavrel::bench
