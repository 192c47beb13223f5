// A folder that lasts as long as the program needs it.

#ifndef TAVREL_HOSTS_TAVREL_TEMPORARYFOLDER_H
#define TAVREL_HOSTS_TAVREL_TEMPORARYFOLDER_H

#include <filesystem>

namespace tavrel {

/// A new folder where the system keeps such, removed with all it holds at the object's end.
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
