// Which sides of boxes look into one area.

#include "authoring/Faces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <numeric>
#include <utility>
#include <variant>
#include <vector>

#include "authoring/Layout.h"
#include "tests/authoring/Grid.h"
#include "tests/authoring/RandomGraph.h"

namespace tavrel::authoring {
namespace {

constexpr Direction down = Direction::down, right = Direction::right, up = Direction::up,
                    left = Direction::left;

TEST(Faces, OfATreeMeetAtAllSidesWithoutALine) {
  Faces faces(2);
  faces.hang({0, right}, {1, left});
  for (const Direction side : {down, up, left}) EXPECT_TRUE(faces.meet({0, side}, 1));
  EXPECT_FALSE(faces.meet({0, right}, 1));
}

// 0-1    1 beside 0, 2 below 0, 3 below 1 and between the lines
// | |
// 2 3
Faces corner() {
  Faces faces(4);
  faces.hang({0, right}, {1, left});
  faces.hang({0, down}, {2, up});
  faces.hang({1, down}, {3, up});
  return faces;
}

TEST(Faces, DontMeetAcrossALine) {
  Faces faces = corner();
  faces.divide({1, right}, {2, down});
  for (const Direction side : {down, right, left}) {
    EXPECT_TRUE(faces.meet({3, side}, 2)) << "by the right side of 2";
    EXPECT_FALSE(faces.meet({3, side}, 0));
    EXPECT_FALSE(faces.meet({3, side}, 1));
  }
  EXPECT_TRUE(faces.meet({0, up}, 2)) << "by the left side of 2";
  EXPECT_TRUE(faces.meet({0, up}, 1));
}

TEST(Faces, DontMeetAcrossSeveralLines) {
  Faces faces = corner();
  faces.divide({1, right}, {2, down});
  faces.divide({3, down}, {2, right});
  EXPECT_TRUE(faces.meet({3, right}, 3));
  EXPECT_FALSE(faces.meet({3, right}, 2));
  EXPECT_FALSE(faces.meet({3, left}, 2));
  EXPECT_TRUE(faces.meet({0, left}, 2));
}

TEST(Faces, KeepApartWhatALineOfABoxToItselfEncloses) {
  Faces faces = corner();
  faces.divide({3, left}, {3, right});
  EXPECT_TRUE(faces.meet({3, down}, 3));
  EXPECT_FALSE(faces.meet({3, down}, 2));
  EXPECT_TRUE(faces.meet({2, right}, 1));
}

// A laid out chart, and which free cells hang together.
class Regions {
 public:
  explicit Regions(const GridChart& chart) {
    for (const PlacedBox& box : chart.boxes) take(box.cell);
    for (const PlacedConnector& connector : chart.connectors) take(connector.cell);
    for (int x = least_.x - 1; x <= most_.x + 1; ++x) {
      for (int y = least_.y - 1; y <= most_.y + 1; ++y) flood({x, y});
    }
  }

  /// The region of a cell; 0 for one that is taken.
  int at(Cell cell) const {
    const auto found = regions_.find({cell.x, cell.y});
    return found == regions_.end() ? 0 : found->second;
  }

 private:
  void take(Cell cell) {
    regions_[{cell.x, cell.y}] = 0;
    least_ = {std::min(least_.x, cell.x), std::min(least_.y, cell.y)};
    most_ = {std::max(most_.x, cell.x), std::max(most_.y, cell.y)};
  }

  void flood(Cell start) {
    ++last_;
    std::vector<Cell> open = {start};
    while (!open.empty()) {
      const Cell cell = open.back();
      open.pop_back();
      if (cell.x < least_.x - 1 || cell.y < least_.y - 1 || cell.x > most_.x + 1 ||
          cell.y > most_.y + 1 || !regions_.insert({{cell.x, cell.y}, last_}).second) {
        continue;
      }
      for (const Direction direction : directions) open.push_back(moved(cell, direction));
    }
  }

  std::map<std::pair<int, int>, int> regions_;
  Cell least_, most_;
  int last_ = 0;
};

// The lines of a chart by the sides at which they start and end.
std::vector<std::pair<Side, Side>> linesOf(const GridChart& chart) {
  std::map<std::pair<int, int>, NodeNumber> boxes;
  std::map<std::pair<int, int>, Direction> outOf;
  for (std::size_t i = 0; i < chart.boxes.size(); ++i) {
    boxes[{chart.boxes[i].cell.x, chart.boxes[i].cell.y}] = static_cast<NodeNumber>(i);
  }
  for (const PlacedConnector& each : chart.connectors)
    outOf[{each.cell.x, each.cell.y}] = each.outOf;
  std::vector<std::pair<Side, Side>> lines;
  for (std::size_t i = 0; i < chart.boxes.size(); ++i) {
    for (const Answer answer : answers) {
      const Direction exit = chart.boxes[i].exits[answer];
      if (exit == Direction::none) continue;
      Direction direction = exit;
      Cell at = moved(chart.boxes[i].cell, exit);
      for (; boxes.count({at.x, at.y}) == 0; at = moved(at, direction))
        direction = outOf[{at.x, at.y}];
      lines.push_back(
          {{static_cast<NodeNumber>(i), exit}, {boxes[{at.x, at.y}], opposite(direction)}});
    }
  }
  return lines;
}

// Any lines that join all boxes may stand for the tree.
Faces facesOf(const GridChart& chart) {
  Faces faces(chart.boxes.size());
  std::vector<NodeNumber> charts(chart.boxes.size());
  std::iota(charts.begin(), charts.end(), 0);
  std::vector<std::pair<Side, Side>> further;
  for (const auto& [from, to] : linesOf(chart)) {
    const NodeNumber one = charts[static_cast<std::size_t>(from.node)];
    const NodeNumber other = charts[static_cast<std::size_t>(to.node)];
    if (one == other) {
      further.push_back({from, to});
      continue;
    }
    faces.hang(from, to);
    std::replace(charts.begin(), charts.end(), other, one);
  }
  for (const auto& [from, to] : further) faces.divide(from, to);
  return faces;
}

TEST(Faces, MeetWhereverTheGridHasAWay) {
  std::size_t ways = 0, without = 0, meets = 0;
  for (std::uint32_t seed = 0; seed < 150; ++seed) {
    const ChartGraph graph = randomGraph(5 + seed % 40, 3, false, seed);
    const GridChart chart = std::get<Layout>(layOut(graph)).chart;
    const Faces faces = facesOf(chart);
    const Regions regions(chart);
    for (std::size_t from = 0; from < chart.boxes.size(); ++from) {
      for (const Direction exit : directions) {
        const int region = regions.at(moved(chart.boxes[from].cell, exit));
        if (region == 0) continue;
        for (std::size_t to = 0; to < chart.boxes.size(); ++to) {
          const bool hasWay =
              std::any_of(directions.begin(), directions.end(), [&](Direction side) {
                return regions.at(moved(chart.boxes[to].cell, side)) == region;
              });
          const bool meet =
              faces.meet({static_cast<NodeNumber>(from), exit}, static_cast<NodeNumber>(to));
          ASSERT_TRUE(meet || !hasWay) << "seed " << seed;
          ++(hasWay ? ways : without);
          meets += meet ? 1U : 0U;
        }
      }
    }
  }
  EXPECT_GT(ways, 10'000U);
  EXPECT_LT(meets - ways, without / 4) << "and hardly elsewhere";
}

}  // namespace
}  // namespace tavrel::authoring
