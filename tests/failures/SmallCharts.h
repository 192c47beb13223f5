// Three flowcharts of at most 400 bytes, between them with whatever a flowchart can have.

#ifndef TAVREL_TESTS_FAILURES_SMALLCHARTS_H
#define TAVREL_TESTS_FAILURES_SMALLCHARTS_H

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

/// The bytes of the three: one with lines and a link into RespNT, one that turns below and
/// left of its root, one of boxes that share their texts. Each has texts beyond any short
/// string, texts beyond ASCII, and boxes with both exits.
const std::vector<std::string>& smallCharts();

/// Writes flowcharts for the three to lead into: RespNT of four cells, Leben of one cell,
/// Forced with a link to no flowchart and an exit into nothing; and PGF, Slam and Stayman,
/// which throw when they are read.
void writeNeighbours(const std::filesystem::path& directory);

/// Their indices.
constexpr int opening = 0, respNT = 6, leben = 7, forced = 20, slam = 24, stayman = 27, pgf = 44;

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_SMALLCHARTS_H
