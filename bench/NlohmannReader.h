// Charts read with nlohmann's JSON.

#ifndef TAVREL_BENCH_NLOHMANNREADER_H
#define TAVREL_BENCH_NLOHMANNREADER_H

#include <memory>
#include <string>

#include "bench/ParsedChart.h"

namespace tavrel::bench {

/// As a document.
class NlohmannReader {
 public:
  NlohmannReader();
  ~NlohmannReader();

  /// The chart in the file at `path`. Its texts hold until the next call.
  ParsedChart parse(const std::string& path);

 private:
  struct Document;
  std::unique_ptr<Document> document_;
};

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_NLOHMANNREADER_H
