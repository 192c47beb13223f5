// Counts what operations cost on three fixed flowcharts: small, big, and winding.
//
//     budgeted --charts        writes the flowcharts into the working directory
//     budgeted --list          the measures, a name on each line
//     budgeted NAME            counts this one, under callgrind
//
// The flowcharts are written by another process, so that an operation meets a heap like
// that of a host, in which nothing was freed.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "engine/CTavrel.h"
#include "facade/Tavrel.h"
#include "tests/limits/Counted.h"
#include "tests/limits/Line.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

const Line small = {throughRows(60 * 6 - 5, 24), 6};  // 60 boxes, 295 connectors
const Line big = {throughRows(10'000 * 5 - 4, 500)};  // 10,000 boxes, 39,996 connectors
const Line turns = {spiral(10'001)};                  // gaps in all rows

// The name that callgrind writes: "reading, small|15000|byte".
template <typename Work>
void countPer(std::size_t units, const std::string& name, const std::string& unit, Work&& work) {
  counted(name + "|" + std::to_string(units) + "|" + unit, work);
}

// The directory of the line's flowchart, the file of "Opening".
std::string directoryOf(const Line& line) {
  return &line == &small ? "small/" : &line == &big ? "big/" : "turns/";
}

void writeCharts() {
  for (const Line* line : {&small, &big, &turns}) {
    std::filesystem::create_directory(directoryOf(*line));
    writeFile(directoryOf(*line) + "Opening.fv", line->file());
  }
}

std::size_t elementsOf(const CTavrel& engine) {
  return EngineAccess::screenElements(engine).at(0).size();
}

// An engine that has read the line as its flowchart 0.
class EngineOn {
 public:
  explicit EngineOn(const Line& line) : engine_(directoryOf(line)) {
    engine_.mSetStartLocation(0);
    require(elementsOf(engine_) == line.cells(), "all cells read");
  }
  CTavrel* operator->() { return &engine_; }
  const CTavrel& operator*() const { return engine_; }

 private:
  CTavrel engine_;
};

void countReading(const Line& line, const std::string& name) {
  const std::size_t bytes = std::filesystem::file_size(directoryOf(line) + "Opening.fv");
  CTavrel engine(directoryOf(line));
  countPer(bytes, name, "byte", [&] { engine.mReadFVFileIfNotAlready(0); });
  require(elementsOf(engine) == line.cells(), name);
}

struct Place {
  std::int32_t x, y;
};

void countFinds(const EngineOn& engine, const std::vector<Place>& places, bool areHits,
                const std::string& name) {
  std::size_t hits = 0;
  countPer(places.size(), name, "find", [&] {
    for (const Place& place : places) hits += (*engine).mFind(0, place.x, place.y) >= 0 ? 1 : 0;
  });
  require(hits == (areHits ? places.size() : 0), name);
}

// The places in the bounds of the line's cells that hold one, or those that don't, row
// by row.
std::vector<Place> placesOf(const EngineOn& engine, bool areHeld) {
  std::vector<Place> places;
  for (std::int32_t y = (*engine).mGetCurrentFlowchartMinY();
       y <= (*engine).mGetCurrentFlowchartMaxY(); ++y) {
    for (std::int32_t x = (*engine).mGetCurrentFlowchartMinX();
         x <= (*engine).mGetCurrentFlowchartMaxX(); ++x) {
      if (((*engine).mFind(0, x, y) >= 0) == areHeld) places.push_back({x, y});
    }
  }
  return places;
}

void countHits(const std::string& name) {
  const EngineOn engine(big);
  countFinds(engine, placesOf(engine, true), true, name);
}

void countHitsBesideGaps(const std::string& name) {
  const EngineOn engine(turns);
  countFinds(engine, placesOf(engine, true), true, name);
}

void countMisses(const std::string& name) {
  const EngineOn engine(turns);
  countFinds(engine, placesOf(engine, false), false, name);
}

void countAlongTheLine(const std::string& name) {
  const EngineOn engine(turns);
  std::vector<Place> places;
  for (const sScreenElement& element : EngineAccess::screenElements(*engine).at(0)) {
    if (!element.m_isNode) places.push_back({element.m_x, element.m_y});
  }
  countFinds(engine, places, true, name);
}

void countMoves(const Line& line, const std::string& name) {
  EngineOn engine(line);
  const std::size_t boxes = line.boxes();
  countPer(line.cells() - 1, name, "cell", [&] {
    for (std::size_t box = 1; box < boxes; ++box) engine->mMoveYes();
  });
  require(isAtEnd(*engine, line), name);
}

void countMovesOnPath(const std::string& name) {
  EngineOn engine(big);
  engine->mStartNewPath(0, big.answers());
  const std::size_t boxes = big.boxes();
  countPer(big.cells() - 1, name, "cell", [&] {
    for (std::size_t box = 1; box < boxes; ++box) engine->mMoveOnPath();
  });
  require(isAtEnd(*engine, big), name);
}

void countMarking(const std::string& name) {
  EngineOn engine(big);
  const std::string answers = big.answers();
  countPer(big.cells(), name, "cell", [&] { engine->mStartNewPath(0, answers); });
  require(EngineAccess::screenElements(*engine).at(0).back().m_isOnPath, name);
}

void countClearing(const std::string& name) {
  EngineOn engine(big);
  engine->mStartNewPath(0, big.answers());
  countPer(big.cells(), name, "element", [&] { engine->mStartNewPath(0, ""); });
  require(!EngineAccess::screenElements(*engine).at(0).back().m_isOnPath, name);
}

// The second time: the first one's memory is there again.
template <typename Work>
void countAgainPer(std::size_t units, const std::string& name, Work&& work) {
  work();
  countPer(units, name, "element", work);
}

// Ten of them, one below the other.
void countRectangles(std::int32_t width, std::int32_t height, const std::string& name) {
  const EngineOn engine(big);
  constexpr std::int32_t left = 200, top = 20, times = 10;
  const auto elements = static_cast<std::size_t>(width * height * times);
  std::size_t got = 0;
  countAgainPer(elements, name, [&] {
    got = 0;
    for (std::int32_t y = top; y < top + times; ++y) {
      got += (*engine).mGetElementsInBoundaries(left, left + width - 1, y, y + height - 1).size();
    }
  });
  require(got == elements, name);
}

void countWholeRectangle(const std::string& name) {
  const EngineOn engine(big);
  std::size_t got = 0;
  countAgainPer(big.cells(), name,
                [&] { got = (*engine).mGetElementsInBoundaries(0, 499, 0, 99).size(); });
  require(got == big.cells(), name);
}

void countRedraw(const std::string& name) {
  Tavrel navigator(directoryOf(big));
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  std::size_t lines = 0;
  countAgainPer(std::size_t{80} * 24, name, [&] {
    lines = 0;
    for (const ScreenElement& element : navigator.elementsInBounds({200, 279, 20, 43})) {
      lines += element.boxText().size() + element.commentaryText().size();
    }
  });
  require(lines == std::size_t{4} * 16 * 24, name);
}

void countStart(const std::string& name) {
  std::size_t titles = 0;
  countPer(1, name, "start", [&] { titles = Tavrel("small/").flowchartTitles().size(); });
  require(titles == 45, name);
}

struct Budgeted {
  const char* name;
  std::function<void(const std::string& name)> count;
};

const std::vector<Budgeted>& allBudgeted() {
  using Name = const std::string&;
  static const std::vector<Budgeted> all = {
      {"reading-small", [](Name name) { countReading(small, name); }},
      {"reading-big", [](Name name) { countReading(big, name); }},
      {"find-hit", countHits},
      {"find-hit-beside-gaps", countHitsBesideGaps},
      {"find-miss", countMisses},
      {"find-along-line", countAlongTheLine},
      {"move-yes", [](Name name) { countMoves(big, name); }},
      {"move-yes-beside-gaps", [](Name name) { countMoves(turns, name); }},
      {"move-on-path", countMovesOnPath},
      {"marking", countMarking},
      {"clearing", countClearing},
      {"rectangle-9x5", [](Name name) { countRectangles(9, 5, name); }},
      {"rectangle-20x12", [](Name name) { countRectangles(20, 12, name); }},
      {"rectangle-80x24", [](Name name) { countRectangles(80, 24, name); }},
      {"rectangle-whole", countWholeRectangle},
      {"redraw-80x24", countRedraw},
      {"start", countStart},
  };
  return all;
}

void list() {
  for (const Budgeted& budgeted : allBudgeted()) std::cout << budgeted.name << '\n';
}

void count(const std::string& name) {
  const auto isNamed = [&](const Budgeted& budgeted) { return budgeted.name == name; };
  const auto found = std::find_if(allBudgeted().begin(), allBudgeted().end(), isNamed);
  require(found != allBudgeted().end(), "no measure " + name);
  found->count(name);
}

}  // namespace
}  // namespace tavrel

int main(int argc, char** argv) {
  const std::string argument = argc == 2 ? argv[1] : "";
  try {
    if (argument == "--charts") {
      tavrel::writeCharts();
    } else if (argument == "--list") {
      tavrel::list();
    } else {
      tavrel::count(argument);
    }
  } catch (const std::exception& exception) {
    std::cerr << argv[0] << ": " << exception.what() << '\n';
    return 1;
  }
}
