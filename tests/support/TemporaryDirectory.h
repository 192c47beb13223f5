// A directory of a test's own, removed with everything in it.

#ifndef TAVREL_TESTS_SUPPORT_TEMPORARYDIRECTORY_H
#define TAVREL_TESTS_SUPPORT_TEMPORARYDIRECTORY_H

#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace tavrel {

class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    const char* const parent = std::getenv("TMPDIR");
    std::string name = std::string(parent != nullptr ? parent : "/tmp") + "/tavrel-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot create " + name);
    path_ = name;
  }
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  /// The directory, without a separator at its end.
  const std::filesystem::path& path() const { return path_; }

  /// The directory as an engine wants it, ending in its separator.
  std::string prefix() const { return path_.string() + "/"; }

  /// The file of the flowchart with this file name.
  std::filesystem::path chart(const std::string& name) const { return prefix() + name + ".fv"; }

 private:
  std::filesystem::path path_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_TEMPORARYDIRECTORY_H
