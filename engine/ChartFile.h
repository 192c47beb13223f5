// The contents of a flowchart file, as far as it could be read.

#ifndef TAVREL_ENGINE_CHARTFILE_H
#define TAVREL_ENGINE_CHARTFILE_H

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/Scanner.h"

/// The content of one or more boxes: a node block of the file, left in its bytes.
struct sLogicalNode {
  tavrel::engine::TextLines m_boxLines;
  tavrel::engine::TextLines m_commentLines;
  std::string_view m_nextFlowchartName;
};

namespace tavrel::engine {

/// A box cell or a connector cell. The two directions are a box's yes and no
/// exits, a connector's directions into and out of the cell.
struct Cell {
  std::int32_t x;
  std::int32_t y;
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

/// Everything read whole. Texts refer to the bytes of the file.
struct ChartFile {
  Ending ending;
  std::optional<TextLines> intro;
  std::vector<sLogicalNode> nodes;
  std::vector<Cell> cells;    ///< boxes, then connectors
  std::size_t boxCount = 0;   ///< how many of the cells are boxes
  Cell unknownNodeCell = {};  ///< the cell that ended the reading at `unknownNode`
};

/// Reads a file's bytes in one pass, up to the first fault. Allocates in
/// proportion to the bytes, whatever counts they claim.
/// REQUIRES: a NUL byte stands behind the bytes.
ChartFile readChartFile(std::string_view bytes);

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_CHARTFILE_H
