// A long random conversation with navigators over random charts, well-formed and not. After
// each operation the navigator is compared with a plain reference: linear scans over the
// elements it shows.

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/unit/FacadeTest.h"
#include "tests/unit/Random.h"

namespace tavrel {
namespace {

constexpr int operations = 100000;
constexpr int operationsPerWorld = 250;

// --- Random charts ------------------------------------------------------------

const std::string names[] = {"Opening", "Leben", "Slam", "PGF"};
const std::int64_t indices[] = {0, 7, 24, 44};

std::string randomLink(Random& random) {
  return random.chance(75) ? "" : random.chance(4) ? "Nowhere" : random.from(names);
}

std::int32_t randomCode(Random& random) {
  return random.chance(95) ? random.below(4) : random.from(std::vector<std::int32_t>{-1, -2, 4, 9});
}

std::int32_t randomExit(Random& random) { return random.chance(40) ? noExit : randomCode(random); }

/// Boxes joined by lines that reach them.
ChartFile wellFormedChart(Random& random) {
  ChartFile chart;
  std::set<std::pair<int, int>> taken{{0, 0}};
  std::vector<std::pair<int, int>> open{{0, 0}};
  for (std::size_t i = 0; i < open.size(); ++i) {
    std::int32_t exits[2] = {noExit, noExit};
    for (std::int32_t& exit : exits) {
      if (open.size() > 6 || random.chance(20)) continue;
      const std::int32_t way = random.below(4);
      const int dx = way == xPlus ? 1 : way == xMinus ? -1 : 0;
      const int dy = way == yPlus ? 1 : way == yMinus ? -1 : 0;
      const int length = random.below(4);
      const auto [x, y] = open[i];
      bool isFree = true;
      for (int k = 1; k <= length + 1; ++k) isFree &= taken.count({x + k * dx, y + k * dy}) == 0;
      if (!isFree) continue;
      for (int k = 1; k <= length + 1; ++k) taken.insert({x + k * dx, y + k * dy});
      chart.run(x + dx, y + dy, way, length);
      open.emplace_back(x + (length + 1) * dx, y + (length + 1) * dy);
      exit = way;
    }
    chart.link(open[i].first, open[i].second, "Box", exits[0] == noExit ? randomLink(random) : "",
               exits[0], exits[1]);
  }
  return chart;
}

/// Cells anywhere, several on one place, exits and lines that lead anywhere.
ChartFile carelessChart(Random& random) {
  ChartFile chart;
  const int boxes = random.between(1, 8), lines = random.below(10);
  if (random.chance(80))
    chart.link(0, 0, "Root", randomLink(random), randomExit(random), randomExit(random));
  for (int i = 0; i < boxes; ++i) {
    chart.link(random.between(-2, 2), random.between(-2, 2), "Box", randomLink(random),
               randomExit(random), randomExit(random));
  }
  for (int i = 0; i < lines; ++i) {
    chart.line(random.between(-2, 2), random.between(-2, 2), randomCode(random),
               randomCode(random));
  }
  if (random.chance(5)) chart.cell(random.between(-1, 99), 0, 0);
  return chart;
}

std::string randomFile(Random& random) {
  const std::string chart = (random.chance(50) ? wellFormedChart(random) : carelessChart(random))
                                .intro({"An introduction", "of two lines"})
                                .text();
  switch (random.below(12)) {
    case 0:
      return mutated(random, chart);
    case 1:
      return truncated(random, chart);
    case 2:
      return randomBytes(random);
    case 3:
      return ChartFile().box(random.between(-1, 1), random.between(-1, 1), "One", 1).text();
    case 4:
      return random.chance(50) ? ChartFile().text() : "h\nh\n0\n0\n-1\n";
    default:
      return chart;
  }
}

// --- The reference ------------------------------------------------------------

struct Cursor {
  std::int64_t x = 0, y = 0;
  int element = 0;  // the one that a move starts from; -1 for none
};

/// Where an operation ends. `threw` means std::out_of_range.
struct Outcome {
  Cursor cursor;
  bool threw = false;
};

std::int64_t stepX(std::int64_t direction) { return direction == 1 ? 1 : direction == 3 ? -1 : 0; }
std::int64_t stepY(std::int64_t direction) { return direction == 0 ? 1 : direction == 2 ? -1 : 0; }

class Reference {
 public:
  explicit Reference(std::vector<ScreenElement> elements) : elements_(std::move(elements)) {
    for (const ScreenElement& element : elements_) marks_.push_back(element.isOnPath());
  }

  int find(std::int64_t x, std::int64_t y) const {
    for (std::size_t i = 0; i < elements_.size(); ++i) {
      if (elements_[i].x() == x && elements_[i].y() == y) return static_cast<int>(i);
    }
    return -1;
  }

  bool holds(int element) const {
    return element >= 0 && static_cast<std::size_t>(element) < elements_.size();
  }
  const ScreenElement& at(int element) const {
    return elements_.at(static_cast<std::size_t>(element));
  }
  const std::vector<bool>& marks() const { return marks_; }

  Outcome toRoot() const { return {{0, 0, find(0, 0)}}; }

  Outcome alongExit(Cursor cursor, std::int64_t exit) {
    if (exit == none) return {cursor};
    step(cursor, exit, 1);
    return follow(cursor, 1);
  }

  Outcome yes(const Cursor& cursor) {
    return holds(cursor.element) ? alongExit(cursor, at(cursor.element).yesDirection())
                                 : Outcome{cursor, true};
  }
  Outcome no(const Cursor& cursor) {
    return holds(cursor.element) ? alongExit(cursor, at(cursor.element).noDirection())
                                 : Outcome{cursor, true};
  }

  Outcome onGrid(const Cursor& cursor, std::int64_t direction) {
    if (!holds(cursor.element)) return {cursor, true};
    if (leads(at(cursor.element), direction)) return alongExit(cursor, direction);
    const std::int64_t opposite = reversed(direction);
    Cursor next = cursor;
    step(next, direction, 1);
    if (!holds(next.element)) return {cursor};
    const ScreenElement& neighbour = at(next.element);
    if (neighbour.isNode()) return {leads(neighbour, opposite) ? next : cursor};
    return neighbour.outOfDirection() == opposite ? follow(next, -1) : Outcome{cursor};
  }

  /// On a box without link.
  Outcome alongPath(const Cursor& cursor) {
    for (const std::int64_t exit :
         {at(cursor.element).yesDirection(), at(cursor.element).noDirection()}) {
      if (exit == none) continue;
      const int next = find(cursor.x + stepX(exit), cursor.y + stepY(exit));
      if (!holds(next)) return {cursor, true};
      if (marks_[static_cast<std::size_t>(next)]) return alongExit(cursor, exit);
    }
    return {cursor};
  }

  Outcome back(const Cursor& cursor) {
    for (std::int64_t y = cursor.y - 1; y <= cursor.y + 1; ++y) {
      for (const ScreenElement& box : elements_) {
        if (!box.isNode() || box.y() != y || std::abs(box.x() - cursor.x) > 1) continue;
        for (const std::int64_t exit : {box.yesDirection(), box.noDirection()}) {
          if (exit == none) continue;
          const std::int64_t way = exit < 4 ? exit : std::int64_t{xPlus};
          const std::int64_t x2 = box.x() + stepX(way), y2 = box.y() + stepY(way);
          if (find(x2, y2) < 0) return {cursor, true};
          if (x2 == cursor.x && y2 == cursor.y) return onGrid(cursor, reversed(exit));
        }
      }
    }
    return {cursor};
  }

  /// Lays the answers, leaving those that are kept in `answers`.
  Outcome prepare(std::string& answers) {
    const std::string all = std::exchange(answers, "");
    Cursor cursor;
    if (!holds(0)) return {cursor, true};
    isMarking_ = true;
    marks_[0] = true;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const ScreenElement& box = at(cursor.element);
      const std::int64_t exit = all[i] == 'y' ? box.yesDirection() : box.noDirection();
      if (exit == none) {
        answers = all.substr(i);
        break;
      }
      const Outcome outcome = alongExit(cursor, exit);
      if (outcome.threw) return outcome;
      cursor = outcome.cursor;
    }
    return {};
  }

  void clearMarks() { std::fill(marks_.begin(), marks_.end(), false); }

 private:
  static bool leads(const ScreenElement& box, std::int64_t direction) {
    return box.yesDirection() == direction || box.noDirection() == direction;
  }

  void step(Cursor& cursor, std::int64_t direction, int sign) {
    cursor.x += sign * stepX(direction);
    cursor.y += sign * stepY(direction);
    cursor.element = find(cursor.x, cursor.y);
    if (isMarking_ && cursor.element >= 0) marks_[static_cast<std::size_t>(cursor.element)] = true;
  }

  /// Along the line under the cursor, forward (1) or backward (-1), to a box.
  Outcome follow(Cursor cursor, int sign) {
    for (std::size_t steps = 0;; ++steps) {
      if (!holds(cursor.element)) return {cursor, true};
      const ScreenElement& cell = at(cursor.element);
      if (cell.isNode()) return {cursor};
      if (steps > elements_.size()) return {cursor, true};
      step(cursor, sign > 0 ? cell.outOfDirection() : cell.intoDirection(), sign);
    }
  }

  std::vector<ScreenElement> elements_;
  std::vector<bool> marks_;
  bool isMarking_ = false;
};

// --- The conversation -----------------------------------------------------------

auto key(const ScreenElement& element) {
  return std::make_tuple(element.y(), element.x(), element.isNode(), element.isOnPath(),
                         element.yesDirection(), element.noDirection(), element.intoDirection(),
                         element.outOfDirection(), element.xOffset(), element.yOffset());
}

/// One navigator over four files, and what is known of it.
class World {
 public:
  World(const TemporaryDirectory& directory, Random& random)
      : directory_(directory), random_(random), navigator_(directory.path()) {
    for (const std::string& name : names) writeAnew(name);
    select();
  }

  void operate() {
    const int choice = random_.below(100);
    if (choice < 3) {
      writeAnew(random_.from(names));
    } else if (choice < 5) {
      introduce();
    } else if (choice < 15 || !isSound()) {
      select();
      if (random_.chance(80)) startPath();
    } else if (choice < 40) {
      moveAlongPath();
    } else {
      move();
    }
    if (isSound()) checkQueries();
  }

 private:
  // A flowchart is sound while its row index describes its elements: until a read threw.
  bool isSound() const { return current_ && unsound_.count(*current_) == 0; }

  void writeAnew(const std::string& name) {
    const std::string file = randomFile(random_);
    for (const char byte : file) hasOddBytes_ |= byte == '\0' || byte < 0;
    // Removed first, or the file system takes its time to put one file in the place of another.
    std::filesystem::remove(directory_.chart(name));
    if (!random_.chance(5)) writeFile(directory_.chart(name), file);
  }

  void introduce() {
    const std::int64_t index = random_.from(indices);
    const std::string thrown = typeThrown([&] { navigator_.introForFlowchartAtIndex(index); });
    if (thrown == "out_of_range" || thrown == "length_error") unsound_.insert(index);
    EXPECT_NE(thrown, "bad_alloc");
  }

  void select() {
    current_ = random_.from(indices);
    const std::string thrown =
        typeThrown([this] { navigator_.resetToStartLocationForFlowchartAtIndex(*current_); });
    if (thrown.empty()) {
      cursor_ = Cursor();
      EXPECT_EQ(place(navigator_), name() + " 0,0");
    } else {
      EXPECT_TRUE(thrown == "out_of_range" || thrown == "length_error") << thrown;
      unsound_.insert(*current_);
    }
  }

  /// On the flowchart that was just selected, and so is read.
  void startPath() {
    if (!isSound()) return;
    std::string answers;
    for (int i = random_.below(12); i > 0; --i) answers += random_.from(std::string("yyyynnnY"));
    Reference reference(navigator_.allElements());
    const bool isEmpty = reference.marks().empty();
    if (!isEmpty && reference.marks()[0]) reference.clearMarks();
    const std::string given = answers;
    Outcome expected = reference.prepare(answers);
    if (isEmpty) expected.cursor = cursor_;  // thrown before the answers were stored
    const std::string thrown = typeThrown(
        [&] { navigator_.startNewPathForFlowchartAtIndexYesNoString(*current_, given); });
    if (!isEmpty) kept_ = answers;
    expect(expected, thrown);
    EXPECT_EQ(marks(), reference.marks());
  }

  void move() {
    Reference reference(navigator_.allElements());
    Outcome expected;
    const std::int64_t direction = random_.below(4);
    std::string thrown;
    switch (random_.below(6)) {
      case 0:
        expected = reference.yes(cursor_);
        thrown = typeThrown([this] { navigator_.moveYes(); });
        break;
      case 1:
        expected = reference.no(cursor_);
        thrown = typeThrown([this] { navigator_.moveNo(); });
        break;
      case 2:
        expected = reference.back(cursor_);
        thrown = typeThrown([this] { navigator_.moveBack(); });
        break;
      case 3:
        if (random_.chance(50)) return;
        expected = reference.toRoot();
        thrown = typeThrown([this] { navigator_.moveToRoot(); });
        break;
      default:
        expected = reference.onGrid(cursor_, direction);
        thrown = typeThrown([&] { navigator_.moveWithDirection(direction); });
        break;
    }
    expect(expected, thrown);
    EXPECT_EQ(marks(), reference.marks());
  }

  void moveAlongPath() {
    Reference reference(navigator_.allElements());
    Outcome expected{cursor_, !reference.holds(cursor_.element)};
    if (!expected.threw && reference.at(cursor_.element).isOnPath()) {
      const auto link = reference.at(cursor_.element).nameOfNextFlowchart();
      if (link) return followLink(*link);
      // A link that cannot be shown, not being text, is nevertheless one.
      if (hasOddBytes_) return;
      expected = reference.alongPath(cursor_);
    }
    expect(expected, typeThrown([this] { navigator_.moveAlongPath(); }));
    EXPECT_EQ(marks(), reference.marks());
  }

  void followLink(const std::string& link) {
    if (hasOddBytes_) return;
    const std::string thrown = typeThrown([this] { navigator_.moveAlongPath(); });
    current_ = navigator_.indexOfFlowchart(link);
    if (!current_) {
      EXPECT_EQ(thrown, "out_of_range");
      EXPECT_EQ(typeThrown([this] { navigator_.allElements(); }), "out_of_range");
    } else if (!thrown.empty()) {
      EXPECT_TRUE(thrown == "out_of_range" || thrown == "length_error") << thrown;
      unsound_.insert(*current_);
      kept_.reset();
    } else if (!isSound() || !kept_) {
      kept_.reset();
    } else {
      ++linksFollowed;
      Reference reference(navigator_.allElements());
      EXPECT_FALSE(reference.prepare(*kept_).threw);
      EXPECT_EQ(marks(), reference.marks());  // laying them again marks nothing new
    }
    if (thrown.empty()) {
      cursor_ = Cursor();
      EXPECT_EQ(place(navigator_), name() + " 0,0");
    }
  }

  void expect(const Outcome& expected, const std::string& thrown) {
    EXPECT_EQ(thrown, expected.threw ? "out_of_range" : "");
    const bool moved = cursor_.x != expected.cursor.x || cursor_.y != expected.cursor.y;
    movesMade += moved ? 1 : 0;
    movesThrown += expected.threw ? 1 : 0;
    cursor_ = expected.cursor;
    std::int64_t x = 0, y = 0;
    navigator_.getCurrentLocationWithXY(&x, &y);
    EXPECT_EQ(x, cursor_.x);
    EXPECT_EQ(y, cursor_.y);
  }

  void checkQueries() {
    const std::vector<ScreenElement> all = navigator_.allElements();
    const Reference reference(all);
    const ScreenBounds bounds = navigator_.currentFlowchartBounds();
    std::vector<decltype(key(all[0]))> expected, held;
    for (const ScreenElement& element : all) {
      expected.push_back(key(element));
      const int lowest = reference.find(element.x(), element.y());
      EXPECT_EQ(key(navigator_.elementAtXY(element.x(), element.y())), key(reference.at(lowest)));
      EXPECT_TRUE(bounds.minX <= element.x() && element.x() <= bounds.maxX);
      EXPECT_TRUE(bounds.minY <= element.y() && element.y() <= bounds.maxY);
    }
    EXPECT_TRUE(bounds.minX <= 0 && 0 <= bounds.maxX && bounds.minY <= 0 && 0 <= bounds.maxY);
    for (const ScreenElement& element : navigator_.elementsInBounds(bounds)) {
      held.push_back(key(element));
    }
    // Row by row, and in the stored order within a row.
    std::stable_sort(expected.begin(), expected.end(),
                     [](const auto& a, const auto& b) { return std::get<0>(a) < std::get<0>(b); });
    EXPECT_EQ(held, expected);
    const std::int64_t x = random_.between(-4, 4), y = random_.between(-4, 4);
    if (reference.find(x, y) < 0) {
      EXPECT_EQ(typeThrown([&] { navigator_.elementAtXY(x, y); }), "out_of_range");
      EXPECT_TRUE(navigator_.elementsInBounds({x, x, y, y}).empty());
    }
  }

  std::vector<bool> marks() const { return Reference(navigator_.allElements()).marks(); }

  std::string name() const {
    for (std::size_t i = 0; i < std::size(indices); ++i) {
      if (indices[i] == *current_) return names[i];
    }
    return "";
  }

  const TemporaryDirectory& directory_;
  Random& random_;
  Tavrel navigator_;
  std::optional<std::int64_t> current_;  // none after a link to nowhere
  std::set<std::int64_t> unsound_;
  Cursor cursor_;
  std::optional<std::string> kept_{""};  // answers not laid yet; none where that isn't known
  bool hasOddBytes_ = false;

 public:
  int movesMade = 0, movesThrown = 0, linksFollowed = 0;
};

TEST(RandomOperations, AgreeWithThePlainReference) {
  Random random(20240601);
  const TemporaryDirectory directory;
  int movesMade = 0, movesThrown = 0, linksFollowed = 0;
  for (int done = 0; done < operations; done += operationsPerWorld) {
    SCOPED_TRACE("world " + std::to_string(done / operationsPerWorld));
    World world(directory, random);
    for (int i = 0; i < operationsPerWorld; ++i) {
      world.operate();
      ASSERT_FALSE(testing::Test::HasFailure()) << "operation " << i;
    }
    movesMade += world.movesMade;
    movesThrown += world.movesThrown;
    linksFollowed += world.linksFollowed;
  }
  // The conversation has been about something.
  EXPECT_GT(movesMade, operations / 10);
  EXPECT_GT(movesThrown, operations / 100);
  EXPECT_GT(linksFollowed, operations / 500);
}

}  // namespace
}  // namespace tavrel
