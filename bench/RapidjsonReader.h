// Charts read with RapidJSON, in two ways.

#ifndef TAVREL_BENCH_RAPIDJSONREADER_H
#define TAVREL_BENCH_RAPIDJSONREADER_H

#include <memory>
#include <string>

#include "bench/ParsedChart.h"
#include "bench/WholeFile.h"

namespace tavrel::bench {

/// By events, as they are read.
class RapidjsonSaxReader {
 public:
  /// The chart in the file at `path`. Its texts hold until the next call.
  ParsedChart parse(const std::string& path);

 private:
  std::unique_ptr<char[]> texts_;
};

/// As a document, its texts left in the file's bytes.
class RapidjsonInsituReader {
 public:
  /// The chart in the file at `path`. Its texts hold until the next call.
  ParsedChart parse(const std::string& path);

 private:
  WholeFile file_;
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_RAPIDJSONREADER_H
