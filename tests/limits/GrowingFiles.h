// Files of flowcharts, well-formed and hostile, that grow with a number.

#ifndef TAVREL_TESTS_LIMITS_GROWINGFILES_H
#define TAVREL_TESTS_LIMITS_GROWINGFILES_H

#include <cstddef>
#include <string>
#include <vector>

namespace tavrel {

/// A flowchart's file, and what a read of it leaves.
struct FileToRead {
  std::string bytes;
  std::size_t elements;  ///< how many the flowchart holds afterwards
  bool throws = false;   ///< whether the read ends in an exception
};

/// A kind of file. Twice the number makes twice the file.
struct GrowingFile {
  const char* name;
  FileToRead (*make)(std::size_t number);
  std::size_t number;  ///< enough for what doesn't grow to vanish
};

/// All of them.
const std::vector<GrowingFile>& growingFiles();

}  // namespace tavrel

#endif  // TAVREL_TESTS_LIMITS_GROWINGFILES_H
