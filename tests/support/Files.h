// Whole files, in and out.

#ifndef TAVREL_TESTS_SUPPORT_FILES_H
#define TAVREL_TESTS_SUPPORT_FILES_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tavrel {

/// The bytes of a file. Throws std::ios_base::failure when it can't be read.
inline std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::ios_base::failure("can't read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Gives a file these bytes. It is written under another name first, so that it
/// is there whole, old or new, at every moment. Throws std::ios_base::failure or
/// std::filesystem::filesystem_error when that can't be done.
inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  const std::filesystem::path draft = path.string() + ".new";
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(draft, std::ios::binary);
  file << bytes;
  file.close();
  std::filesystem::rename(draft, path);
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_FILES_H
