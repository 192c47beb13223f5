// A chart as JSON: what the readers of JSON read.

#ifndef TAVREL_BENCH_JSONCHART_H
#define TAVREL_BENCH_JSONCHART_H

#include <string>

#include "bench/ParsedChart.h"

namespace tavrel::bench {

/// The chart without a blank too many, its keys in the order in which they are needed:
///
///     {"intro": [LINE...],
///      "nodes": [{"text": [LINE...], "commentary": [LINE...], "next": NAME}...],
///      "boxes": [[NODE, X, Y, YES, NO]...],
///      "connectors": [[INTO, OUT, X, Y]...]}
std::string jsonOf(const ParsedChart& chart);

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_JSONCHART_H
