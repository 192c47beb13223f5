#include "authoring/WalkCheck.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>

#include "authoring/CellIndex.h"
#include "authoring/NumberLine.h"

namespace tavrel::authoring {
namespace {

using Number = std::int32_t;  // of a cell: boxes first, then connectors
constexpr Number noCell = CellIndex::none;

const char* nameOf(Direction direction) {
  switch (direction) {
    case Direction::down:
      return "down";
    case Direction::right:
      return "right";
    case Direction::up:
      return "up";
    default:
      return "left";
  }
}

const char* nameOf(Answer answer) { return answer == Answer::yes ? "yes" : "no"; }

std::string nameOf(const Cell& cell) {
  return "(" + std::to_string(cell.x) + ", " + std::to_string(cell.y) + ")";
}

// Beyond the last column or row stands nothing.
bool hasNeighbour(const Cell& cell, Direction direction) {
  using Limits = std::numeric_limits<std::int32_t>;
  switch (direction) {
    case Direction::down:
      return cell.y != Limits::max();
    case Direction::right:
      return cell.x != Limits::max();
    case Direction::up:
      return cell.y != Limits::min();
    default:
      return cell.x != Limits::min();
  }
}

class WalkCheck {
 public:
  WalkCheck(const FvFile& file, const SourceFile& source, Diagnostics& found)
      : file_(file), source_(source), found_(found) {
    for (const FvBox& box : file.boxes) index_.add(box.cell);
    for (const FvConnector& connector : file.connectors) index_.add(connector.cell);
    index_.finish();
  }

  std::vector<ByAnswer<BoxNumber>> check() {
    checkPlaces();
    checkSteps();
    checkEntries();
    findEnds();
    std::vector<ByAnswer<BoxNumber>> exits;
    exits.reserve(file_.boxes.size());
    for (const FvBox& box : file_.boxes) {
      exits.push_back({endFrom(box.cell, box.exits.yes), endFrom(box.cell, box.exits.no)});
    }
    return exits;
  }

 private:
  // --- cells by their numbers -----------------------------------------------------

  std::size_t boxCount() const { return file_.boxes.size(); }
  Number cellCount() const { return static_cast<Number>(boxCount() + file_.connectors.size()); }
  bool isBox(Number cell) const { return static_cast<std::size_t>(cell) < boxCount(); }
  const FvBox& box(Number cell) const { return file_.boxes[static_cast<std::size_t>(cell)]; }
  const FvConnector& connector(Number cell) const {
    return file_.connectors[static_cast<std::size_t>(cell) - boxCount()];
  }
  Cell cellOf(Number cell) const { return isBox(cell) ? box(cell).cell : connector(cell).cell; }
  std::size_t lineOf(Number cell) const {
    return isBox(cell) ? box(cell).line : connector(cell).line;
  }
  Place placeOf(Number cell, std::size_t column) const {
    return placeOfNumber(source_, lineOf(cell), column);
  }
  Place cornerOf(Number cell) const {
    return placeOf(cell, isBox(cell) ? boxXColumn : connectorXColumn);
  }

  // Very many cells may stand in one place and lead into one cell, whose line may be very long.
  const Place& intoOf(Number cell) {
    const auto [place, isNew] = intoPlaces_.try_emplace(cell);
    if (isNew) place->second = placeOf(cell, intoColumn);
    return place->second;
  }

  Number neighbour(const Cell& cell, Direction direction) const {
    return hasNeighbour(cell, direction) ? index_.find(moved(cell, direction)) : noCell;
  }

  // Whether a walk from this cell can go on in this direction.
  bool leads(Number cell, Direction direction) const {
    if (!isBox(cell)) return connector(cell).outOf == direction;
    return box(cell).exits.yes == direction || box(cell).exits.no == direction;
  }

  // --- places ---------------------------------------------------------------------

  void checkPlaces() {
    const Cell root = file_.boxes.front().cell;
    if (root != Cell{0, 0}) {
      found_.add(Code::rootElsewhere, cornerOf(0), "the root box stands at " + nameOf(root),
                 "put the first box of the file at (0, 0)");
    }
    for (Number cell = 0; cell < cellCount(); ++cell) {
      const Number first = index_.find(cellOf(cell));
      if (first == cell) continue;
      found_.add(
          Code::doubleCell, cornerOf(cell),
          "the cell " + nameOf(cellOf(cell)) + " is taken on line " + std::to_string(lineOf(first)),
          "put one of the two elsewhere");
    }
  }

  // --- steps forward --------------------------------------------------------------

  void checkSteps() {
    for (Number cell = 0; cell < cellCount(); ++cell) {
      if (!isBox(cell)) {
        checkStep(cell, connector(cell).outOf, outOfColumn, "the line");
        continue;
      }
      for (const Answer answer : answers) {
        const Direction exit = box(cell).exits[answer];
        if (exit == Direction::none) continue;
        checkStep(cell, exit, answer == Answer::yes ? yesColumn : noColumn,
                  std::string("the ") + nameOf(answer) + " exit");
      }
    }
  }

  void checkStep(Number cell, Direction direction, std::size_t column, const std::string& what) {
    const Number next = neighbour(cellOf(cell), direction);
    const std::string way = what + " leads " + nameOf(direction);
    if (next == noCell) {
      found_.add(Code::leadsNowhere, placeOf(cell, column), way + ", where no cell stands",
                 "put a box or a connector cell there, or turn the line");
      return;
    }
    if (isBox(next) || connector(next).into == direction) return;
    const Direction into = connector(next).into;
    const Number before = neighbour(cellOf(next), opposite(into));
    if (before != noCell && leads(before, into)) {
      found_.add(Code::intoAnotherLine, placeOf(cell, column),
                 way + " into the line that comes from " + nameOf(cellOf(before)),
                 "lead it round that line, or repeat the box");
      return;
    }
    found_.add(
        Code::noStepBack, intoOf(next),
        "the line comes from " + nameOf(cellOf(cell)) + ", going " + nameOf(direction) +
            ", and can't be walked back",
        "write " + std::to_string(static_cast<int>(direction)) + " for the way into the cell");
  }

  // --- steps back -----------------------------------------------------------------

  void checkEntries() {
    std::vector<bool> isEntered(static_cast<std::size_t>(cellCount()), false);
    for (Number cell = 0; cell < cellCount(); ++cell) {
      if (!isBox(cell)) {
        enter(cell, connector(cell).outOf, isEntered);
        continue;
      }
      for (const Answer answer : answers) enter(cell, box(cell).exits[answer], isEntered);
    }
    for (Number cell = 1; cell < cellCount(); ++cell) {
      if (isEntered[static_cast<std::size_t>(cell)] || index_.find(cellOf(cell)) != cell) continue;
      found_.add(Code::nothingLeadsHere, cornerOf(cell),
                 "nothing leads to the cell " + nameOf(cellOf(cell)),
                 isBox(cell) ? "lead an exit to the box, or take it away"
                             : "lead the line from a box, or take it away");
    }
  }

  void enter(Number cell, Direction direction, std::vector<bool>& isEntered) const {
    if (direction == Direction::none) return;
    const Number next = neighbour(cellOf(cell), direction);
    if (next != noCell) isEntered[static_cast<std::size_t>(next)] = true;
  }

  // --- lines ----------------------------------------------------------------------

  // The box that each connector cell leads to in the end. Every cell is passed once; what has
  // been passed on the same way is a loop.
  void findEnds() {
    constexpr BoxNumber unknown = -2, onTheWay = -3;
    ends_.assign(file_.connectors.size(), unknown);
    std::vector<Number> way;
    for (auto first = static_cast<Number>(boxCount()); first < cellCount(); ++first) {
      Number cell = first;
      while (cell != noCell && !isBox(cell) && endOf(cell) == unknown) {
        endOf(cell) = onTheWay;
        way.push_back(cell);
        cell = neighbour(cellOf(cell), connector(cell).outOf);
      }
      const bool isLoop = cell != noCell && !isBox(cell) && endOf(cell) == onTheWay;
      if (isLoop) reportLoop(cell);
      const BoxNumber end = cell == noCell || isLoop ? noBox : isBox(cell) ? cell : endOf(cell);
      for (const Number passed : way) endOf(passed) = end;
      way.clear();
    }
  }

  void reportLoop(Number cell) {
    found_.add(Code::lineInALoop, cornerOf(cell),
               "the line goes round in a loop, and comes back to " + nameOf(cellOf(cell)),
               "lead it to a box");
  }

  BoxNumber& endOf(Number cell) { return ends_[static_cast<std::size_t>(cell) - boxCount()]; }

  BoxNumber endFrom(const Cell& cell, Direction exit) {
    if (exit == Direction::none) return noBox;
    const Number next = neighbour(cell, exit);
    if (next == noCell || isBox(next)) return next;
    return endOf(next);
  }

  const FvFile& file_;
  const SourceFile& source_;
  Diagnostics& found_;
  CellIndex index_;
  std::unordered_map<Number, Place> intoPlaces_;  // of connector cells that were asked for
  std::vector<BoxNumber> ends_;                   // by connector
};

}  // namespace

std::vector<ByAnswer<BoxNumber>> checkWalk(const FvFile& file, const SourceFile& source,
                                           Diagnostics& found) {
  return WalkCheck(file, source, found).check();
}

}  // namespace tavrel::authoring
