// The flowchart engine: the catalogue of bidding flowcharts, their contents once
// read, and one cursor that walks them. It works on byte strings and 32-bit
// integers; the client interface (facade/) converts at its edge.
//
// Conventions:
//
//  1. `fc` and `index` are catalogue indices, 0 to 44. Where an operation doesn't
//     say what another value does, it throws std::out_of_range with nothing
//     changed.
//  2. Every access to an element, a row or a flowchart is bounds-checked. Where a
//     chart's data breaks a promise, an index of -1 meets that check and
//     std::out_of_range leaves the operation, with the state as it was at that
//     moment. Nothing here catches an exception.
//  3. Arithmetic on coordinates is done in 64 bits; what is stored keeps its low
//     32 bits.
//  4. Queries return copies. No reference into the engine ever leaves it.
//  5. One engine is for one thread at a time. Engines share constants only, which
//     the first to need them creates under the language's own guard.

#ifndef TAVREL_ENGINE_CTAVREL_H
#define TAVREL_ENGINE_CTAVREL_H

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {
class EngineAccess;  // the tests' view of an engine's members
namespace engine {
struct FlowchartContents;
struct Position;
struct RowCell;
struct RowIndex;
class Rows;
}  // namespace engine
}  // namespace tavrel

/// Direction codes of the grid, as files and elements store them. The type is
/// fixed so that any stored number may be converted and asked for its step.
enum eXYDirection : std::int32_t {
  eYPlus = 0,       ///< one row toward larger y
  eXPlus = 1,       ///< one column toward larger x
  eYMinus = 2,      ///< one row toward smaller y
  eXMinus = 3,      ///< one column toward smaller x
  eNoDirection = 4  ///< no exit, no direction
};

/// One occupied grid cell: a box, or a connector cell of the line between boxes.
struct sScreenElement {
  sScreenElement() noexcept {}  // one that is not defaulted: that would clear the record first

  std::int32_t m_x = 0;        ///< grid column, any sign
  std::int32_t m_y = 0;        ///< grid row, any sign
  std::int32_t m_xOffset = 0;  ///< centre of the column from that of column 0, half characters
  std::int32_t m_yOffset = 0;  ///< centre of the row from that of row 0, half lines
  bool m_isOnPath = false;     ///< marked by mPreparePath
  bool m_isNode = false;       ///< a box, not a connector cell
  /// Box: file name of the flowchart it leads into, or empty. Connector cell: the
  /// name of the last box in the file, without meaning.
  std::string m_newFlowchartName;
  std::vector<std::string> m_boxText;      ///< empty for a connector cell
  std::vector<std::string> m_commentText;  ///< empty for a connector cell
  // Direction codes. Values other than those of eXYDirection step nowhere.
  std::int32_t m_yesDir = 0;          ///< box: its yes exit, or eNoDirection
  std::int32_t m_noDir = 0;           ///< box: its no exit, or eNoDirection
  std::int32_t m_directionInto = 0;   ///< connector: travel on entering; box: eNoDirection
  std::int32_t m_directionOutOf = 0;  ///< connector: travel on leaving; box: eNoDirection
};

/// A cell of a flowchart.
struct sFlowchartNameAndCoordinates {
  std::string m_name;    ///< the flowchart's file name; empty before any selection
  std::int32_t m_x = 0;  ///< grid column
  std::int32_t m_y = 0;  ///< grid row
};

class CTavrel {
 public:
  static constexpr std::int32_t flowchartCount = 45;

  /// An engine for the files DIRECTORY + NAME + ".fv". The directory is used as
  /// it stands, so it must end with its separator. Reads nothing; every flowchart
  /// starts as one box, "Flowchart not read".
  explicit CTavrel(const std::string& directory);
  ~CTavrel();
  CTavrel(const CTavrel&) = delete;
  CTavrel& operator=(const CTavrel&) = delete;

  // --- catalogue.cpp: names and titles --------------------------------------

  /// The 45 titles in catalogue order.
  std::vector<std::string> mGetVectorOfFlowchartTitles();

  /// The index of the flowchart with exactly this file name, or -1. Never matches
  /// a title.
  std::int32_t mWhichFlowchartIndex(const std::string& fileName) const;

  // --- reader.cpp: from file to elements ------------------------------------

  /// Reads the flowchart's file unless more than one element is held already. A
  /// file that cannot be opened, or is anything but a regular file, changes
  /// nothing. A file that ends early or holds something that is no 32-bit integer
  /// where one belongs is read up to there: the line, block or cell at fault is
  /// dropped, and without a whole cell the elements stay what they were. A complete
  /// file without cells leaves no elements at all.
  ///
  /// Throws std::out_of_range for a box cell whose node number names no node: the
  /// introduction is replaced, the elements are the boxes before it, the bounds
  /// take it in, and offsets and row index are not computed. Throws
  /// std::length_error for a negative number of box cells, the introduction
  /// replaced and the elements empty; and, with nothing changed, for more than
  /// 16,777,216 rows between the bounds, which never shrink, or layout offsets
  /// beyond 32 bits.
  ///
  /// Time and memory follow the size of the file, never the numbers in it, but
  /// for four bytes a row.
  void mReadFVFileIfNotAlready(const std::int32_t& fc);

  /// The introduction, read if need be; "No such flowchart" outside the catalogue.
  /// A read that was made stands where the copy finds no memory.
  std::vector<std::string> mGetFlowchartIntro(const std::int32_t& fc);

  // --- path.cpp: selecting, and laying answers onto a flowchart -------------

  /// Makes the flowchart current, reads it and puts the cursor on element 0.
  /// Outside the catalogue throws std::out_of_range, "CTavrel::mSetStartLocation()".
  void mSetStartLocation(const std::int32_t& index);

  /// Makes the flowchart current, clears its marks if element 0 has one, reads it,
  /// stores the answers and prepares the path. Outside the catalogue throws
  /// std::out_of_range, "CTavrel::mStartNewPath()"; without an element 0, before it
  /// reads, another. What the read and mPreparePath throw passes, the flowchart
  /// being current.
  void mStartNewPath(const std::int32_t& index, const std::string& answers);

  /// Marks what the stored answers pass from element 0 on, keeps from the first
  /// one that cannot be followed, and returns the cursor to element 0. A byte
  /// 'y' is yes, any other no. Allocates nothing.
  ///
  /// Throws std::out_of_range without an element 0, and where a line leads to no
  /// box: the marks set so far stay, as does the cursor, and the answers are gone.
  /// While no flowchart is current it throws with nothing changed.
  void mPreparePath();

  // --- row_index.cpp: which element stands where ----------------------------

  /// Replaces the flowchart's row index, from its elements and its bounds of y.
  /// Throws, with the old index kept, std::out_of_range for an element outside
  /// the bounds and std::length_error for more than 16,777,216 rows. Linear in
  /// elements plus rows.
  void mBuildFCFindHelper(const std::int32_t& fc);

  /// The lowest index of an element at (x, y), or -1. Scans one row; allocates
  /// nothing.
  std::int32_t mFind(const std::int32_t& fc, const std::int32_t& x, const std::int32_t& y) const;

  // --- moves.cpp: the cursor ------------------------------------------------
  //
  // A move that cannot be made changes nothing. A line that never reaches a box
  // ends in std::out_of_range once it has passed as many cells as the flowchart
  // has, with the cursor left there.

  /// The step of a direction code: -1, 0 or +1; 0 for any value without a step.
  static std::int32_t mDirectionX(const eXYDirection& direction) noexcept;
  static std::int32_t mDirectionY(const eXYDirection& direction) noexcept;

  /// Along an exit that leaves in this direction, or else back along a line that
  /// arrives from that side.
  void mMoveXPlus();
  void mMoveXMinus();
  void mMoveYPlus();
  void mMoveYMinus();

  /// Along the yes or the no exit.
  void mMoveYes();
  void mMoveNo();

  /// One box along the marks, yes before no; on a marked box with a link, into
  /// that flowchart, which is read and gets the answers still stored. A link to an
  /// unknown name leaves -1 as the current flowchart and throws std::out_of_range.
  /// An exit into an empty cell throws it with nothing changed.
  void mMoveOnPath();

  /// To (0, 0), whatever stands there; the element index may become -1. Throws
  /// std::out_of_range, at (0, 0) already, while no flowchart is current.
  void mMoveRoot();

  // --- queries.cpp: read-only questions about the current flowchart ---------
  //
  // All but mCurrentLocation throw std::out_of_range while no flowchart is
  // current.

  /// File name, x and y of the cursor.
  sFlowchartNameAndCoordinates mCurrentLocation() const;

  /// The bounds of the cells; the origin is always within.
  std::int32_t mGetCurrentFlowchartMinX() const;
  std::int32_t mGetCurrentFlowchartMaxX() const;
  std::int32_t mGetCurrentFlowchartMinY() const;
  std::int32_t mGetCurrentFlowchartMaxY() const;

  /// The commentary of the current element; std::out_of_range without one.
  std::vector<std::string> mCurrentCommentText() const;

  /// All elements in stored order: boxes, then connector cells.
  std::vector<sScreenElement> mGetAllElements();

  /// The element that mFind finds; std::out_of_range for an empty cell.
  sScreenElement mGetXYElement(const std::int32_t& x, const std::int32_t& y);

  /// The elements with minX <= x <= maxX and minY <= y <= maxY, row by row, in
  /// stored order within a row. Searches those rows for the two columns; scans a row
  /// with more than 256 elements between them. One allocation for the list.
  std::vector<sScreenElement> mGetElementsInBoundaries(const std::int32_t& minX,
                                                       const std::int32_t& maxX,
                                                       const std::int32_t& minY,
                                                       const std::int32_t& maxY) const;

 private:
  friend class tavrel::EngineAccess;

  // Line: whether a line is walked the way it flows. Marks: whether the cells
  // passed are put on the path.
  enum class Line { forward, backward };
  enum class Marks { keep, set };

  static bool isFlowchart(std::int32_t index) noexcept {
    return 0 <= index && index < flowchartCount;
  }
  const std::vector<sScreenElement>& currentElements() const;
  sScreenElement& currentElement();

  // reader.cpp
  tavrel::engine::FlowchartContents contentsToRead(std::int32_t fc) const;
  void takeOver(std::int32_t fc, tavrel::engine::FlowchartContents&& contents);

  // row_index.cpp
  void takeOver(std::int32_t fc, tavrel::engine::RowIndex&& index) noexcept;
  tavrel::engine::Rows rowsOf(std::int32_t fc) const;

  // path.cpp
  void putCursorOnRoot();
  void clearMarks();
  bool layAnswer(char answer);

  // moves.cpp
  tavrel::engine::Position neighbour(std::int32_t direction) const noexcept;
  void standOn(const tavrel::engine::Position& position) noexcept;
  void followLine(std::int32_t direction, Line way, Marks marks);
  void moveOnGrid(std::int32_t direction);
  void moveBackOnGrid(std::int32_t direction);
  void moveAlongExit(std::int32_t exit);
  void followLink();
  bool moveAlongMarkedExit(std::int32_t exit);

  // Per flowchart, by catalogue index:
  std::vector<std::vector<sScreenElement>> m_screenElements;
  std::vector<std::vector<std::int32_t>> m_rowElementIndices;  // element indices, row by row
  std::vector<std::vector<std::int32_t>> m_rowStarts;          // where row minY + r starts in those
  // The catalogue:
  std::vector<std::string> m_flowchartFileNames;
  std::vector<std::string> m_flowchartTitles;
  std::vector<std::vector<std::string>> m_flowchartIntros;  // per flowchart
  // The cursor:
  sFlowchartNameAndCoordinates m_currentLocation;
  std::int32_t m_currentFlowchartIndex = 0;
  std::int32_t m_currentElementIndex = 0;

  std::string m_directory;  // the prefix of every path, separator included
  std::string m_path;       // answers not yet laid onto a flowchart
  // Per flowchart, the bounds of its cells, the origin always within:
  std::vector<std::int32_t> m_minX;
  std::vector<std::int32_t> m_maxX;
  std::vector<std::int32_t> m_minY;
  std::vector<std::int32_t> m_maxY;

  // Beside the row index, the same rows sorted by column. Empty where that would not
  // be true of the elements.
  std::vector<std::vector<tavrel::engine::RowCell>> m_rowCells;
};

#endif  // TAVREL_ENGINE_CTAVREL_H
