// A folder for as long as it is needed.

#ifndef TAVREL_HOSTS_TAVREL_TEMPORARYFOLDER_H
#define TAVREL_HOSTS_TAVREL_TEMPORARYFOLDER_H

#include <filesystem>

namespace tavrel {

/// A new folder of the program's own below TMPDIR, or /tmp without it;
/// removed in the end with all that is in it.
class TemporaryFolder {
 public:
  /// Throws Failure when it can't be made.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_TEMPORARYFOLDER_H
