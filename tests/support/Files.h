// Whole files, in and out.

#ifndef TAVREL_TESTS_SUPPORT_FILES_H
#define TAVREL_TESTS_SUPPORT_FILES_H

#include <cstdio>
#include <filesystem>
#include <ios>
#include <memory>
#include <string>

// C's files, not streams: a stream is code of the compiled standard library, which
// the memory sanitizer can't see.

namespace tavrel {

struct FileCloser {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

/// The bytes of a file. Throws std::ios_base::failure when it can't be read.
inline std::string readFile(const std::filesystem::path& path) {
  const OpenFile file(std::fopen(path.c_str(), "rb"));
  if (!file) throw std::ios_base::failure("can't read " + path.string());
  std::string bytes;
  char block[4096];
  while (const std::size_t size = std::fread(block, 1, sizeof block, file.get())) {
    bytes.append(block, size);
  }
  if (std::ferror(file.get())) throw std::ios_base::failure("can't read " + path.string());
  return bytes;
}

/// Gives a file these bytes. It is written under another name first, so that it
/// is there whole, old or new, at every moment. Throws std::ios_base::failure or
/// std::filesystem::filesystem_error when that can't be done.
inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  const std::filesystem::path draft = path.string() + ".new";
  OpenFile file(std::fopen(draft.c_str(), "wb"));
  const bool isWritten =
      file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  if (!isWritten || std::fclose(file.release()) != 0) {
    throw std::ios_base::failure("can't write " + draft.string());
  }
  std::filesystem::rename(draft, path);
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_FILES_H
