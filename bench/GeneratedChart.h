// Flowcharts of any size to measure with.

#ifndef TAVREL_BENCH_GENERATEDCHART_H
#define TAVREL_BENCH_GENERATEDCHART_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace tavrel::bench {

/// How large a generated chart is. REQUIRES: 3 <= columns, 2 * columns <= boxes, and
/// between 3 and 7 connector cells a box.
struct ChartSize {
  std::size_t boxes;       ///< in all
  std::size_t connectors;  ///< in all
  std::size_t columns;     ///< questions in a row of the main line
};

constexpr ChartSize smallSize = {60, 300, 8};
constexpr ChartSize bigSize = {10'000, 40'000, 100};

/// The bytes of a chart file. Two boxes of three are questions on the main line, which
/// yes follows: right along a row, down at its end, back left along the next. The others
/// are calls, each below a question whose no exit leads there. Lines between boxes,
/// texts, commentaries and links differ in length at random; some calls share a node.
/// The same arguments give the same bytes.
std::string generatedChart(const ChartSize& size, std::uint64_t seed);

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_GENERATEDCHART_H
