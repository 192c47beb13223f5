// A reader of flowchart files as one would write it first.

#ifndef TAVREL_BENCH_PLAINREADER_H
#define TAVREL_BENCH_PLAINREADER_H

#include <deque>
#include <istream>
#include <string>

#include "bench/ParsedChart.h"

namespace tavrel::bench {

/// Reads with `>>` and getline. Knows sound files alone.
class PlainReader {
 public:
  /// The chart in the file at `path`. Its texts hold until the next call.
  ParsedChart parse(const std::string& path);

 private:
  LineRange readLines(std::istream& file, ParsedChart& chart);
  std::string_view readLine(std::istream& file);

  std::deque<std::string> texts_;
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_PLAINREADER_H
