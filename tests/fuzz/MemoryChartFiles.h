// The files in memory, as a comparison with the reference uses them.

#ifndef TAVREL_TESTS_FUZZ_MEMORYCHARTFILES_H
#define TAVREL_TESTS_FUZZ_MEMORYCHARTFILES_H

#include <sstream>
#include <string>

#include "tests/fuzz/MemoryFiles.h"
#include "tests/reference/ChartFiles.h"

namespace tavrel::fuzz {

class MemoryChartFiles : public reference::ChartFiles {
 public:
  std::string directory() const override { return memoryFolder; }
  void write(const std::string& name, const std::string& bytes) override { putFile(name, bytes); }
  void remove(const std::string& name) override { removeFile(name); }
  /// A directory has no bytes either.
  void makeDirectory(const std::string& name) override { removeFile(name); }
  void clear() override { removeAllFiles(); }

  std::istream* open(const std::string& path) override {
    const auto bytes = bytesOf(path);
    if (!bytes) return nullptr;
    stream_ = std::istringstream(std::string(*bytes));
    return &stream_;
  }

 private:
  std::istringstream stream_;
};

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_MEMORYCHARTFILES_H
