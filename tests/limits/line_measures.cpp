// Walks along lines that grow, their marks, and rectangles around them.

#include <functional>

#include "engine/CTavrel.h"
#include "facade/Tavrel.h"
#include "tests/limits/Counted.h"
#include "tests/limits/Line.h"
#include "tests/limits/Measures.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Files.h"
#include "tests/support/GridMoves.h"

namespace tavrel {
namespace {

using Operation = void (*)(CTavrel& engine, const Line& line, const std::string& label);

std::size_t marksOf(const CTavrel& engine) {
  std::size_t marked = 0;
  for (const sScreenElement& element : EngineAccess::screenElements(engine).at(0)) {
    marked += element.m_isOnPath ? 1 : 0;
  }
  return marked;
}

void moveYes(CTavrel& engine, const Line& line, const std::string& label) {
  const std::size_t boxes = line.boxes();
  counted(label, [&] {
    for (std::size_t box = 1; box < boxes; ++box) engine.mMoveYes();
  });
  require(isAtEnd(engine, line), label);
}

// Against the line: each box is entered from the side opposite to its last step.
void moveBackward(CTavrel& engine, const Line& line, const std::string& label) {
  for (std::size_t box = 1; box < line.boxes(); ++box) engine.mMoveYes();
  require(isAtEnd(engine, line), label);
  counted(label, [&] {
    for (std::size_t cell = line.cells() - 1; cell > 0; cell -= line.spacing) {
      moveOnGrid(engine, line.way[cell - 1] ^ 2);
    }
  });
  const sFlowchartNameAndCoordinates location = engine.mCurrentLocation();
  require(location.m_x == 0 && location.m_y == 0, label);
}

void mark(CTavrel& engine, const Line& line, const std::string& label) {
  const std::string answers = line.answers();
  counted(label, [&] { engine.mStartNewPath(0, answers); });
  require(marksOf(engine) == line.cells(), label);
}

void clearMarks(CTavrel& engine, const Line& line, const std::string& label) {
  engine.mStartNewPath(0, line.answers());
  require(marksOf(engine) == line.cells(), label);
  counted(label, [&] { engine.mStartNewPath(0, ""); });
  require(marksOf(engine) == 1, label);
}

void moveOnPath(CTavrel& engine, const Line& line, const std::string& label) {
  engine.mStartNewPath(0, line.answers());
  const std::size_t boxes = line.boxes();
  counted(label, [&] {
    for (std::size_t box = 1; box < boxes; ++box) engine.mMoveOnPath();
  });
  require(isAtEnd(engine, line), label);
}

void wholeRectangle(CTavrel& engine, const Line& line, const std::string& label) {
  std::size_t elements = 0;
  counted(label, [&] {
    elements = engine
                   .mGetElementsInBoundaries(
                       engine.mGetCurrentFlowchartMinX(), engine.mGetCurrentFlowchartMaxX(),
                       engine.mGetCurrentFlowchartMinY(), engine.mGetCurrentFlowchartMaxY())
                   .size();
  });
  require(elements == line.cells(), label);
}

void screenRectangle(CTavrel& engine, const Line&, const std::string& label) {
  std::size_t elements = 0;
  counted(label, [&] { elements = engine.mGetElementsInBoundaries(-40, 39, -12, 11).size(); });
  require(elements > 0 && elements <= std::size_t{80} * 24, label);
}

void allElements(CTavrel& engine, const Line& line, const std::string& label) {
  std::size_t elements = 0;
  counted(label, [&] { elements = engine.mGetAllElements().size(); });
  require(elements == line.cells(), label);
}

void rowIndex(CTavrel& engine, const Line& line, const std::string& label) {
  EngineAccess::rowElementIndices(engine).at(0).clear();
  counted(label, [&] { engine.mBuildFCFindHelper(0); });
  require(EngineAccess::rowElementIndices(engine).at(0).size() == line.cells(), label);
}

// Through the client interface; the box to go back to stands beside the last one.
void moveBack(CTavrel&, const Line& line, const std::string& label) {
  Tavrel navigator("./");
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  for (std::size_t box = 1; box < line.boxes(); ++box) navigator.moveYes();
  counted(label, [&] { navigator.moveBack(); });
  const auto [name, x, y] = navigator.currentLocation();
  require(x != line.lastX() || y != line.lastY(), label);
}

void wrappedRectangle(CTavrel&, const Line& line, const std::string& label) {
  Tavrel navigator("./");
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  std::size_t elements = 0;
  counted(label, [&] {
    elements = navigator.elementsInBounds(navigator.currentFlowchartBounds()).size();
  });
  require(elements == line.cells(), label);
}

struct NamedOperation {
  const char* name;
  Operation count;
  std::size_t spacing;
};

constexpr NamedOperation operations[] = {
    {"moves along yes", moveYes, 5},
    {"moves against the line", moveBackward, 5},
    {"moves along the path", moveOnPath, 5},
    {"marking a path", mark, 5},
    {"clearing the marks", clearMarks, 5},
    {"whole rectangle", wholeRectangle, 5},
    {"rectangle of 80 x 24", screenRectangle, 5},
    {"whole rectangle, client interface", wrappedRectangle, 5},
    {"all elements", allElements, 5},
    {"row index", rowIndex, 5},
    {"a step back", moveBack, 1},
};

Way rowsOfBoxes(std::size_t cells) { return throughRows(cells, 500); }

struct NamedWay {
  const char* name;
  Way (*way)(std::size_t cells);
  FileOrder order;
};

constexpr NamedWay ways[] = {
    {"rows of boxes", rowsOfBoxes, FileOrder::alongTheLine},
    {"rows of boxes, cells in no order", rowsOfBoxes, FileOrder::shuffled},
    {"one long row", alongRow, FileOrder::alongTheLine},
    {"one long column", downColumn, FileOrder::alongTheLine},
    {"a spiral", spiral, FileOrder::alongTheLine},
};

void countOn(const Line& line, Operation operation, const std::string& label) {
  writeFile("Opening.fv", line.file());
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  operation(engine, line, label);
}

}  // namespace

std::vector<Measure> lineMeasures() {
  constexpr std::size_t cells = 4'000;
  std::vector<Measure> measures;
  for (const NamedOperation& operation : operations) {
    for (const NamedWay& way : ways) {
      const auto count = [&operation, &way](std::size_t size, const std::string& label) {
        countOn({way.way(size + 1), operation.spacing, way.order}, operation.count, label);
      };
      measures.push_back({operation.name + std::string(": ") + way.name, cells, count});
    }
  }
  return measures;
}

}  // namespace tavrel
