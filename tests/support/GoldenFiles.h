// Directories of golden files: each file is a test, and a list names them all, so
// that a missing or an extra one fails the run. TAVREL_UPDATE=1 in the environment
// writes what was got into the files instead of comparing it.

#ifndef TAVREL_TESTS_SUPPORT_GOLDENFILES_H
#define TAVREL_TESTS_SUPPORT_GOLDENFILES_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tavrel {

/// The names, without extension and sorted, of a directory's files of this extension.
inline std::vector<std::string> goldenFilesIn(const std::filesystem::path& directory,
                                              const std::string& extension) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The names that must be there, sorted, one on each line of the directory's all.txt.
inline std::vector<std::string> goldenFilesListed(const std::filesystem::path& directory) {
  std::ifstream list(directory / "all.txt");
  std::vector<std::string> names;
  for (std::string name; std::getline(list, name);) names.push_back(name);
  return names;
}

/// Whether the files are to be written.
inline bool isUpdatingGoldenFiles() {
  const char* const value = std::getenv("TAVREL_UPDATE");
  return value != nullptr && std::string(value) == "1";
}

/// A file's name as a test's name may be.
inline std::string goldenTestName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_GOLDENFILES_H
