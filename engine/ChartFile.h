// The contents of a flowchart file, as far as it could be read.

#ifndef TAVREL_ENGINE_CHARTFILE_H
#define TAVREL_ENGINE_CHARTFILE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Position.h"
#include "engine/Scanner.h"

/// The content of one or more boxes: a node block of the file.
struct sLogicalNode {
  std::vector<std::string> m_boxLines;
  std::vector<std::string> m_commentLines;
  std::string m_nextFlowchartName;
};

namespace tavrel::engine {

/// A box cell or a connector cell, but for its position. The two directions are a
/// box's yes and no exits, a connector's directions into and out of the cell.
struct Cell {
  std::int32_t node;  ///< index of the box's node; without meaning for a connector
  std::int32_t yesOrInto;
  std::int32_t noOrOutOf;
};

/// Where the reading of a file ended.
enum class Ending {
  complete,       ///< after the last connector cell
  cut,            ///< at a line that wasn't there or held no such number
  unknownNode,    ///< at a box cell whose node number names no node
  negativeCount,  ///< at a negative number of box cells
};

/// The node blocks of a file, left in its bytes until they are wanted.
class Nodes {
 public:
  explicit Nodes(const char* fileEnd) noexcept : fileEnd_(fileEnd) {}

  void reserve(std::size_t count) { starts_.reserve(count); }

  /// REQUIRES: a whole node block begins at `start`, and its box text ends at `textEnd`.
  void append(const char* start, const char* textEnd);

  std::size_t size() const noexcept { return starts_.size(); }

  /// A node, read anew each time. REQUIRES: index < size().
  sLogicalNode read(std::size_t index) const;

  /// The size of a node's box text. Constant but for a search among the long ones.
  /// REQUIRES: index < size().
  TextSize boxSize(std::size_t index) const noexcept {
    return longTexts_.empty() ? scannerAt(index).measureText() : sizeAmongLongOnes(index);
  }

 private:
  Scanner scannerAt(std::size_t index) const noexcept {
    const char* start = starts_[index];
    return Scanner({start, static_cast<std::size_t>(fileEnd_ - start)});
  }

  // A box text that isn't measured anew for each of the boxes that show it.
  struct LongText {
    std::size_t node;
    TextSize size;
  };

  TextSize sizeAmongLongOnes(std::size_t index) const noexcept;

  std::vector<const char*> starts_;
  std::vector<LongText> longTexts_;  // in the order of the nodes
  const char* fileEnd_;
};

/// Everything read whole. Nodes refer to the bytes of the file.
struct ChartFile {
  Ending ending;
  std::optional<std::vector<std::string>> intro;
  Nodes nodes;
  std::vector<Cell> cells;                ///< boxes, then connectors
  std::vector<Position> positions;        ///< of the same cells
  std::size_t boxCount = 0;               ///< how many of the cells are boxes
  Position unknownNodePosition = {0, 0};  ///< of the cell that ended it at `unknownNode`
};

/// Reads a file's bytes in one pass, up to the first fault. Allocates in
/// proportion to the bytes, whatever counts they claim.
/// REQUIRES: a NUL byte stands behind the bytes.
ChartFile readChartFile(std::string_view bytes);

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_CHARTFILE_H
