// Charts read with simdjson On-Demand.

#ifndef TAVREL_BENCH_SIMDJSONREADER_H
#define TAVREL_BENCH_SIMDJSONREADER_H

#include <memory>
#include <string>

#include "bench/ParsedChart.h"

namespace tavrel::bench {

/// The parser, with its buffers, is kept from chart to chart, as simdjson's manual
/// advises.
class SimdjsonReader {
 public:
  SimdjsonReader();
  ~SimdjsonReader();

  /// The chart in the file at `path`. Its texts hold until the next call.
  ParsedChart parse(const std::string& path);

 private:
  struct Parser;
  std::unique_ptr<Parser> parser_;
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_SIMDJSONREADER_H
