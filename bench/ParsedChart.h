// A chart between its file and its records, the same for every reader but Tavrel's own.

#ifndef TAVREL_BENCH_PARSEDCHART_H
#define TAVREL_BENCH_PARSEDCHART_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/CTavrel.h"
#include "engine/Position.h"
#include "engine/RowIndex.h"

namespace tavrel::bench {

/// Some of a chart's lines: `count` of them from number `first` on.
struct LineRange {
  std::size_t first, count;
};

struct Node {
  LineRange text, commentary;
  std::string_view next;
};

struct BoxCell {
  std::int32_t node, x, y, yes, no;  ///< exits as files hold them, -1 for none
};

struct ConnectorCell {
  std::int32_t into, outOf, x, y;
};

/// What a reader finds in a file, its texts left where they stand.
struct ParsedChart {
  std::vector<std::string_view> lines;
  LineRange intro = {0, 0};
  std::vector<Node> nodes;
  std::vector<BoxCell> boxes;
  std::vector<ConnectorCell> connectors;

  LineRange linesSince(std::size_t first) const { return {first, lines.size() - first}; }
};

/// The finished chart: what the engine holds of it once it is read.
struct FilledChart {
  std::vector<std::string> intro;
  std::vector<sScreenElement> elements;
  engine::RowIndex index;
  engine::Bounds bounds;
};

/// Fills records, offsets, bounds and index, the last three by the engine's own means,
/// so that readers differ by their reading alone. REQUIRES: nodes are there.
FilledChart filled(const ParsedChart& chart);

/// Over all that a chart consists of, row order included.
std::uint64_t checksumOf(const std::vector<FilledChart>& charts);

/// The same for flowchart 0 and those behind it, `count` in all, that an engine has read.
std::uint64_t checksumOf(CTavrel& engine, std::size_t count);

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_PARSEDCHART_H
