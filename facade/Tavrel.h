// The client interface of Tavrel: a navigator over contract-bridge bidding
// flowcharts. This header is all that a host needs.
//
//     Tavrel navigator("charts");
//     navigator.startNewPathForFlowchartAtIndexYesNoString(0, "nny");
//     for (const ScreenElement& element : navigator.allElements()) draw(element);
//     navigator.moveAlongPath();
//
// Conventions, true of every function below:
//
//  1. A flowchart's identity is its index in the fixed catalogue, 0 to 44. Its
//     file name ("Opening") is what links and look-ups use; its title
//     ("Deciding on an Opening Bid") is for display only.
//  2. A flowchart is an integer grid. Every occupied cell is an element: a box,
//     with text, commentary and up to two exits (yes and no), or a connector
//     cell, one piece of the line between two boxes.
//  3. The navigator has one cursor: a current flowchart and a cell in it. Before
//     the first selection this is cell (0, 0) of flowchart 0.
//  4. A flowchart's file, DIRECTORY/NAME.fv, is read when the flowchart is first
//     selected, and kept. A flowchart whose file is missing, unreadable or
//     malformed before its first cell shows one box, "Flowchart not read", and
//     is tried again at the next selection; so is one whose file holds a single
//     cell, or none, which leaves the flowchart without any element.
//  5. Integers are 64 bits wide here and 32 bits wide inside. Arguments keep
//     their low 32 bits, so 4294967296 means 0. Coordinates and offsets come
//     back with their sign; direction codes come back without one, so a stored
//     -1 reads 4294967295.
//  6. Text is UTF-8. Texts given are taken whole, NUL bytes included, and are not
//     checked. Texts returned end before their first NUL byte. Where a text in a
//     file is not valid UTF-8 (overlong forms, surrogates, values above U+10FFFF
//     and cut sequences are not), a single string comes back empty as
//     std::nullopt, and a list of lines is not built: std::invalid_argument
//     names the line, counting from 0.
//  7. Everything returned is a copy that the caller owns. It never changes, and
//     it outlives the navigator. Costs are stated without that copy. Two
//     functions of ScreenElement return references; they say so.
//  8. A move that cannot be made changes nothing and reports nothing. After a
//     link to a flowchart that doesn't exist was followed, no flowchart is
//     current, and every move and query but those of the location throws
//     std::out_of_range until the next selection. Where a
//     flowchart's data breaks a promise (an exit that leads to an empty cell, a
//     line that never reaches a box), std::out_of_range is thrown; the cursor
//     may then be left off the boxes, and the next selection puts it right.
//  9. Any function but those marked noexcept may throw std::bad_alloc. It has
//     then done all of its work or none, except that a selection may stand with
//     its flowchart still unread.
// 10. One navigator is for one thread at a time, queries included. Different
//     navigators, and elements wherever they came from, need no care.
//
// A navigator that has been moved from may only be destroyed or assigned to.

#ifndef TAVREL_TAVREL_H
#define TAVREL_TAVREL_H

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "TavrelExport.h"

class CTavrel;
struct sScreenElement;

extern "C" {
/// The version of the library in use, "MAJOR.MINOR.PATCH", NUL-terminated.
TAVREL_EXPORT extern const char TavrelVersionString[];
/// The same version as a number, MAJOR.MINOR: 1.0 for "1.0.0".
TAVREL_EXPORT extern const double TavrelVersionNumber;
}

/// The directions of the grid. Whether larger y is drawn lower or higher is the
/// host's choice. A ScreenElement's directions use the same numbers.
enum XYDirection : std::int64_t {
  XYDirectionYPlus = 0,   ///< one row toward larger y
  XYDirectionXPlus = 1,   ///< one column toward larger x
  XYDirectionYMinus = 2,  ///< one row toward smaller y
  XYDirectionXMinus = 3,  ///< one column toward smaller x
  XYDirectionNone = 4     ///< no exit, no direction
};

/// The opposite of `direction`, an XYDirection or a number that a ScreenElement
/// reports. XYDirectionNone is its own opposite. For a number that is not a
/// direction the answer is XYDirectionXMinus, the opposite of the move that
/// `moveWithDirection` makes of such a number.
TAVREL_EXPORT XYDirection reversed(std::int64_t direction) noexcept;

/// A rectangle of grid cells, all four edges inclusive. It holds no cell when a
/// minimum is greater than its maximum.
struct ScreenBounds {
  std::int64_t minX;  ///< leftmost column, inclusive
  std::int64_t maxX;  ///< rightmost column, inclusive
  std::int64_t minY;  ///< first row, inclusive
  std::int64_t maxY;  ///< last row, inclusive
};

/// One occupied cell of a flowchart as it was when the navigator was asked: a
/// box or a connector cell. An immutable value that knows nothing of the
/// navigator it came from; any number of threads may read it at once.
///
/// Elements come from a navigator's queries only. One that has been moved from
/// keeps its numbers and flags and loses its texts.
class TAVREL_EXPORT ScreenElement {
 public:
  /// The cell's column and row on the grid. Any sign.
  std::int64_t x() const noexcept;
  std::int64_t y() const noexcept;

  /// The centre of the cell's column, in half-character units from the centre
  /// of column 0. A column is as wide as its longest box line has bytes;
  /// neighbouring columns stand 7.5 characters apart.
  std::int64_t xOffset() const noexcept;

  /// The centre of the cell's row, in half-line units from the centre of row 0.
  /// A row is as high as its largest box has lines; neighbouring rows stand one
  /// line apart.
  std::int64_t yOffset() const noexcept;

  /// Whether the cell lies on the path prepared from the answers.
  bool isOnPath() const noexcept;

  /// True for a box, false for a connector cell.
  bool isNode() const noexcept;

  /// The file name of the flowchart that this box leads into, fit for
  /// `Tavrel::indexOfFlowchart`; std::nullopt when it leads nowhere else or the
  /// name is not valid UTF-8, never an empty string. Of a connector cell the
  /// answer has no meaning.
  std::optional<std::string> nameOfNextFlowchart() const;

  /// The lines written in the box, top to bottom. Empty for a connector cell.
  /// Throws std::invalid_argument when a line is not valid UTF-8. Costs one pass
  /// over the lines to find out. The reference holds as long as the element does
  /// and nothing is assigned to it; an element that is about to go gives its
  /// lines away instead, so that `navigator.currentElement().boxText()` is safe.
  const std::vector<std::string>& boxText() const&;
  std::vector<std::string> boxText() &&;

  /// The lines of the box's commentary, in the same manner. Empty for a connector
  /// cell.
  const std::vector<std::string>& commentaryText() const&;
  std::vector<std::string> commentaryText() &&;

  /// The directions in which the yes and the no exit leave the box;
  /// XYDirectionNone where there is no such exit, and for a connector cell.
  std::int64_t yesDirection() const noexcept;
  std::int64_t noDirection() const noexcept;

  /// The directions of travel with which the line enters this connector cell
  /// and leaves it. XYDirectionNone for a box.
  std::int64_t intoDirection() const noexcept;
  std::int64_t outOfDirection() const noexcept;

  /// One line for a programmer: <ScreenElement node "HCP 12+?" onPath @0,-2>,
  /// or <ScreenElement line @1,0> for a connector cell. Box lines are joined
  /// with blanks. Throws std::invalid_argument as `boxText` does.
  std::string debugDescription() const;

 private:
  friend class Tavrel;
  TAVREL_NO_EXPORT explicit ScreenElement(sScreenElement&& record) noexcept;

  std::int32_t x_, y_, xOffset_, yOffset_;
  std::uint32_t yesDirection_, noDirection_, intoDirection_, outOfDirection_;
  bool isOnPath_, isNode_;
  std::string nextFlowchartName_;
  std::vector<std::string> boxText_, commentaryText_;
};

/// A navigator: the catalogue of flowcharts and one cursor that walks them.
class TAVREL_EXPORT Tavrel {
 public:
  /// A navigator for the flowchart files in `directory`. One "/" is appended
  /// unless the path ends in one already, so the empty path becomes "/"; nothing
  /// else about it is changed. No file is touched: a wrong directory shows
  /// later, as flowcharts that are not read. Microseconds.
  explicit Tavrel(const std::filesystem::path& directory);

  ~Tavrel();
  Tavrel(Tavrel&& other) noexcept;
  Tavrel& operator=(Tavrel&& other) noexcept;
  Tavrel(const Tavrel&) = delete;
  Tavrel& operator=(const Tavrel&) = delete;

  // --- The catalogue -------------------------------------------------------

  /// The 45 titles, in catalogue order. Reads no file.
  std::vector<std::string> flowchartTitles() const;

  /// The index of the flowchart whose FILE NAME is `title`, or -1. The match is
  /// exact, byte for byte. Titles are not names: "Lebensohl" gives -1, "Leben" 7.
  /// What `ScreenElement::nameOfNextFlowchart` returns is meant for here.
  std::int64_t indexOfFlowchartWithTitle(const std::string& title) const;

  /// The same with std::nullopt for -1.
  std::optional<std::int64_t> indexOfFlowchart(const std::string& title) const;

  /// The lines of the flowchart's introduction; the one line "No such flowchart"
  /// for an index outside the catalogue, and "Unable to read this flowchart
  /// intro." while its file cannot be read. Reads the file if it is not read
  /// yet, and may then throw what a selection throws; a read that was made
  /// stands even where std::invalid_argument reports a line that is not UTF-8, or
  /// where memory does not suffice for the copy.
  /// The cursor stays where it is.
  std::vector<std::string> introForFlowchartAtIndex(std::int64_t index);

  // --- Selecting a flowchart -----------------------------------------------
  //
  // Both read the flowchart's file if it is not read yet, in time and memory
  // that follow the file's size, and leave the cursor on its root box: its first
  // element, at (0, 0). Both throw
  //   std::out_of_range  for an index outside the catalogue, with the text
  //                      "CTavrel::mStartNewPath()" or
  //                      "CTavrel::mSetStartLocation()", nothing changed; and
  //                      for a box cell that names a text the file doesn't have,
  //                      the flowchart current and cut short there;
  //   std::length_error  for a negative number of box cells, the flowchart left
  //                      empty; and for more than 16,777,216 rows between its
  //                      bounds, or layout offsets beyond 32 bits, the flowchart
  //                      left as it was.

  /// Selects the flowchart and lays `answers` onto it from its root, one byte
  /// for each box that is left: a lower-case y follows the yes exit, any other
  /// byte the no exit. Every cell passed is marked as on the path; marks that an
  /// earlier path left in this flowchart are cleared first, marks in other
  /// flowcharts stay. From the first answer that cannot be followed on, the
  /// answers are kept for the flowchart that `moveAlongPath` enters.
  ///
  /// Throws std::out_of_range also when a line does not lead to a box, marks set
  /// so far kept and the answers gone; and for a flowchart without elements: found
  /// so before it is read again, only the selection has changed, and found so by
  /// this read, the cursor stands at (0, 0) and the answers are gone.
  /// Cost beyond reading: one find for each cell passed, and, where an older
  /// path is marked, one pass over the flowchart.
  void startNewPathForFlowchartAtIndexYesNoString(std::int64_t index, const std::string& answers);

  /// Selects the flowchart. Path marks and answers kept are left alone.
  void resetToStartLocationForFlowchartAtIndex(std::int64_t index);

  // --- Asking --------------------------------------------------------------
  //
  // About the current flowchart, reading no file and changing nothing.

  /// The file name of the current flowchart, empty before the first selection;
  /// that of the last one while none is current.
  /// Writes the cursor's column to `*x` and its row to `*y`; either pointer may
  /// be null, and is not kept.
  std::optional<std::string> getCurrentLocationWithXY(std::int64_t* x, std::int64_t* y) const;

  /// The same as (file name, x, y).
  std::tuple<std::string, std::int64_t, std::int64_t> currentLocation() const;

  /// The smallest and largest x and y of the flowchart's cells, of all that were
  /// ever read for it; the origin is always inside. All 0 for a flowchart that is
  /// not read.
  ScreenBounds currentFlowchartBounds() const;

  /// The commentary of the element under the cursor, line by line. Throws
  /// std::out_of_range when the cursor stands on nothing, std::invalid_argument
  /// when a line is not valid UTF-8.
  std::vector<std::string> currentCommentaryText() const;

  /// Every element of the flowchart: the boxes in the file's order, then the
  /// connector cells in the file's order.
  std::vector<ScreenElement> allElements() const;

  /// The element in cell (x, y); of two in one cell, the one that stands first
  /// in the file. Throws std::out_of_range for an empty cell. Cost: a scan of
  /// that row.
  ScreenElement elementAtXY(std::int64_t x, std::int64_t y) const;

  /// The elements in the rectangle, row by row with y increasing, in the file's
  /// order within a row. A rectangle that misses the chart has none; so has one
  /// with the limits of 64-bit integers, of which the low 32 bits are -1 and 0:
  /// take currentFlowchartBounds, or allElements. Cost: a scan of the rectangle's
  /// rows.
  std::vector<ScreenElement> elementsInBounds(ScreenBounds bounds) const;

  /// The element under the cursor. Throws std::out_of_range when there is none.
  ScreenElement currentElement() const;

  // --- Moving --------------------------------------------------------------
  //
  // A move ends on a box and passes over connector cells on the way. Cost: one
  // find for each cell passed; no allocation, but for moveBack and for the reading
  // of a flowchart that moveAlongPath enters.

  /// Moves one box in a grid direction: along an exit of the current box that
  /// leaves that way; where it has none, back to the box whose line arrives from
  /// that side; otherwise not at all.
  void moveXPlus();
  void moveXMinus();
  void moveYPlus();
  void moveYMinus();

  /// The move of an XYDirection or of a number that a ScreenElement reports.
  /// XYDirectionNone moves nowhere; a number that is not a direction moves
  /// toward larger x.
  void moveWithDirection(std::int64_t direction);

  /// Follows the yes or the no exit of the current box, if it has one.
  void moveYes();
  void moveNo();

  /// Puts the cursor on cell (0, 0) of the current flowchart, whatever stands
  /// there, be it a connector cell or nothing.
  void moveToRoot();

  /// Goes one box further along the marked path. On a marked box that leads into
  /// another flowchart, enters that flowchart instead: makes it current, reads
  /// it if it is not read yet, lays the answers kept onto it and waits on its
  /// root. Where both exits are marked, goes along yes. Off the path and at its
  /// end, stays.
  ///
  /// Throws what a selection throws, and std::out_of_range for a link to a
  /// flowchart that doesn't exist; no flowchart is current then.
  void moveAlongPath();

  /// Steps back toward the box whose exit points at the cursor's cell, found by
  /// looking at the neighbouring cells; the first in the order of
  /// `elementsInBounds` wins, its yes exit before its no exit. Keeps no history,
  /// so a box at the far end of a line is not seen. Throws std::out_of_range when
  /// an exit of a box looked at leads to an empty cell. Copies the elements of
  /// nine cells, and one for each exit it tries.
  void moveBack();

 private:
  TAVREL_NO_EXPORT static std::vector<ScreenElement> wrapped(std::vector<sScreenElement>&& records);

  std::unique_ptr<CTavrel> engine_;
};

#endif  // TAVREL_TAVREL_H
