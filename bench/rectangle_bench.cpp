// How long does it take to get the elements in a rectangle, with their records or by
// their indices alone?

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/CellSearches.h"
#include "bench/Charts.h"
#include "bench/Checksum.h"
#include "bench/Contest.h"
#include "bench/Random.h"
#include "engine/CTavrel.h"
#include "engine/Position.h"
#include "engine/RowIndex.h"
#include "engine/Rows.h"

namespace tavrel::bench {
namespace {

constexpr double seconds = 1.5;
constexpr double fasterThanTheTree = 1.5;  // with the records, at 80x24
constexpr double notSlower = 1;            // by the indices
constexpr std::uint64_t seed = 9;

struct View {
  std::string name;
  std::int32_t width, height;  // 0 for the whole chart
  std::size_t count;           // how many rectangles a round asks for
};

const std::vector<View> views = {
    {"9x5", 9, 5, 128}, {"20x12", 20, 12, 64}, {"80x24", 80, 24, 16}, {"whole", 0, 0, 1}};

// The engine's search, on an index made from the same elements.
class RowSearch {
 public:
  explicit RowSearch(const Elements& elements) : elements_(elements) {
    std::vector<engine::Position> positions;
    for (const sScreenElement& element : elements) positions.push_back({element.m_x, element.m_y});
    const engine::Bounds bounds = engine::including({0, 0, 0, 0}, positions);
    index_ = engine::buildRowIndex(positions, bounds.minY, bounds.maxY);
    minY_ = bounds.minY;
  }

  void findInOrder(const engine::Bounds& bounds, Indices& found) const {
    const engine::Rows rows(elements_, index_.elementIndices, index_.rowStarts, index_.cells,
                            minY_);
    rows.forEachWithin(bounds, [&](std::int32_t element) { found.push_back(element); });
  }

 private:
  const Elements& elements_;
  engine::RowIndex index_;
  std::int32_t minY_;
};

// Everything that a chart is searched with.
struct Searches {
  explicit Searches(const Charts& charts)
      : engine(charts.directory()),
        elements(elementsOf(charts)),
        rows(elements),
        tree(elements),
        linear(elements),
        dense(elements) {
    engine.mSetStartLocation(0);
  }

  CTavrel engine;
  Elements elements;
  RowSearch rows;
  TreeSearch tree;
  LinearSearch linear;
  DenseSearch dense;
};

// As a player sees them: around a box.
std::vector<engine::Bounds> rectangles(const Searches& searches, const View& view) {
  const CTavrel& engine = searches.engine;
  if (view.width == 0) {
    return {{engine.mGetCurrentFlowchartMinX(), engine.mGetCurrentFlowchartMaxX(),
             engine.mGetCurrentFlowchartMinY(), engine.mGetCurrentFlowchartMaxY()}};
  }
  Random random(seed);
  std::vector<engine::Bounds> all;
  while (all.size() < view.count) {
    const sScreenElement& box = searches.elements[random.below(searches.elements.size())];
    if (!box.m_isNode) continue;
    const std::int32_t minX = box.m_x - view.width / 2;
    const std::int32_t minY = box.m_y - view.height / 2;
    all.push_back({minX, minX + view.width - 1, minY, minY + view.height - 1});
  }
  return all;
}

// A contestant that answers each rectangle with something of its own.
template <typename Answer, typename Ask, typename Sum>
Contestant answering(const std::string& name, Rival rival, double bar,
                     const std::vector<engine::Bounds>& bounds, const Ask& ask, const Sum& sum) {
  const auto answers = std::make_shared<std::vector<Answer>>(bounds.size());
  const auto work = [answers, &bounds, ask] {
    for (std::size_t i = 0; i < bounds.size(); ++i) ask(bounds[i], (*answers)[i]);
  };
  const auto checksum = [answers, sum] {
    Checksum all;
    for (const Answer& answer : *answers) sum(answer, all);
    return all.value();
  };
  const auto prepare = [answers] {
    for (Answer& answer : *answers) answer.clear();
  };
  return {name, rival, bar, work, checksum, prepare};
}

// Answers with copies of what a search finds. The list of what is found keeps its memory,
// which favours the peers.
template <typename Search>
auto copying(const Elements& elements, const Search& search) {
  const auto found = std::make_shared<Indices>();
  return [&elements, &search, found](const engine::Bounds& bounds, Elements& answer) {
    found->clear();
    search.findInOrder(bounds, *found);
    Elements records;
    records.reserve(found->size());
    for (const std::int32_t i : *found) {
      records.push_back(elements[static_cast<std::size_t>(i)]);
    }
    answer = std::move(records);
  };
}

void contestOfRecords(Searches& searches, const View& view, const std::string& input, double bar,
                      double time) {
  const std::vector<engine::Bounds> bounds = rectangles(searches, view);
  const auto contestant = [&bounds](const std::string& name, Rival rival, double itsBar,
                                    const auto& ask) {
    return answering<Elements>(name, rival, itsBar, bounds, ask,
                               [](const Elements& answer, Checksum& sum) { sum.add(answer); });
  };
  const Elements& elements = searches.elements;
  const auto byRows = [&searches](const engine::Bounds& b, Elements& answer) {
    answer = searches.engine.mGetElementsInBoundaries(b.minX, b.maxX, b.minY, b.maxY);
  };
  compete({"rectangle, records copied", input, bounds.size()},
          {contestant("Tavrel", Rival::itself, noBar, byRows),
           contestant("boost R-tree, sorted", Rival::peer, bar, copying(elements, searches.tree)),
           contestant("linear scan", Rival::peer, noBar, copying(elements, searches.linear)),
           contestant("dense array", Rival::peer, noBar, copying(elements, searches.dense))},
          time);
}

void contestOfIndices(const Searches& searches, const View& view, const std::string& input,
                      double time) {
  const std::vector<engine::Bounds> bounds = rectangles(searches, view);
  const auto contestant = [&bounds](const std::string& name, Rival rival, double bar,
                                    const auto& ask) {
    return answering<Indices>(name, rival, bar, bounds, ask, [](Indices answer, Checksum& sum) {
      std::sort(answer.begin(), answer.end());  // the tree has an order of its own
      for (const std::int32_t index : answer) sum.add(index);
    });
  };
  const auto by = [](const auto& search) {
    return [&search](const engine::Bounds& b, Indices& found) { search.findInOrder(b, found); };
  };
  const auto unordered = [&searches](const engine::Bounds& b, Indices& found) {
    searches.tree.find(b, found);
  };
  compete({"rectangle, search alone", input, bounds.size()},
          {contestant("Tavrel", Rival::itself, noBar, by(searches.rows)),
           contestant("boost R-tree, in its own order", Rival::peer, noBar, unordered),
           contestant("boost R-tree, sorted", Rival::peer, notSlower, by(searches.tree)),
           contestant("linear scan", Rival::peer, noBar, by(searches.linear)),
           contestant("dense array", Rival::peer, noBar, by(searches.dense))},
          time);
}

void contests(const Charts& charts, double time) {
  Searches searches(charts);
  for (const View& view : views) {
    const std::string input = charts.name() + ", " + view.name;
    const double bar = view.name == "80x24" ? fasterThanTheTree : noBar;
    contestOfRecords(searches, view, input, bar, time);
    contestOfIndices(searches, view, input, time);
  }
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contests(smallChart(), time);
  contests(bigChart(), time);
}
