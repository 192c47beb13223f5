// A directory for the chart files of one conversation.

#ifndef TAVREL_TESTS_SUPPORT_CHARTDIRECTORY_H
#define TAVREL_TESTS_SUPPORT_CHARTDIRECTORY_H

#include <filesystem>
#include <string>

#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {

/// A new, empty directory, removed with all it holds when the object is destroyed.
/// Throws std::runtime_error, or an exception derived from it, where the system
/// refuses.
class ChartDirectory {
 public:
  /// Without a separator at its end.
  const std::filesystem::path& path() const { return directory_.path(); }

  /// Writes the file NAME.fv, in place of any that is there.
  void write(const std::string& name, const std::string& bytes) const {
    writeFile(directory_.chart(name), bytes);
  }
  /// Removes NAME.fv, a file or a directory.
  void remove(const std::string& name) const { std::filesystem::remove(directory_.chart(name)); }
  /// Makes NAME.fv a directory.
  void makeDirectory(const std::string& name) const {
    std::filesystem::create_directory(directory_.chart(name));
  }

 private:
  TemporaryDirectory directory_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_CHARTDIRECTORY_H
