// Gives a fuzz target the inputs of a folder, one by one, without a fuzzer.
//   PROGRAM FOLDER
// Ends with status 2 for a folder that is missing or empty. A finding ends it at once;
// the last line written names the input.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/Files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// From memory of just its size, so that a sanitizer sees a byte read beyond.
void replay(const std::filesystem::path& file) {
  std::printf("%s\n", file.filename().c_str());
  std::fflush(stdout);
  const std::string bytes = tavrel::readFile(file);
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

int replayAll(const char* folder) {
  const std::vector<std::filesystem::path> files = filesIn(folder);
  if (files.empty()) {
    std::fprintf(stderr, "replay: no inputs in %s\n", folder);
    return 2;
  }
  for (const auto& file : files) replay(file);
  std::printf("replayed %zu inputs\n", files.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
    return 2;
  }
  try {
    return replayAll(argv[1]);
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "replay: %s\n", problem.what());
    return 2;
  }
}
