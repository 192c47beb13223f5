// The bytes of a file, got as cheaply as the system gives them.

#ifndef TAVREL_BENCH_WHOLEFILE_H
#define TAVREL_BENCH_WHOLEFILE_H

#include <cstddef>
#include <memory>
#include <string>

namespace tavrel::bench {

struct WholeFile {
  std::unique_ptr<char[]> bytes;  ///< with NUL bytes behind them
  std::size_t size = 0;           ///< without those

  const char* begin() const { return bytes.get(); }
  const char* end() const { return bytes.get() + size; }
};

/// Opens the file, asks for its size and reads it, a system call each; `padding` NUL bytes
/// stand behind it. Throws std::system_error when it can't.
WholeFile wholeFile(const std::string& path, std::size_t padding = 1);

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_WHOLEFILE_H
