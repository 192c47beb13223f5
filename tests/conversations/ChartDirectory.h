// A directory for the chart files of one conversation.

#ifndef TAVREL_TESTS_CONVERSATIONS_CHART_DIRECTORY_H
#define TAVREL_TESTS_CONVERSATIONS_CHART_DIRECTORY_H

#include <filesystem>
#include <string>

namespace tavrel {

/// A new, empty directory among the system's temporary files, removed with all
/// it holds when the object is destroyed. Throws std::filesystem::filesystem_error
/// or std::ios_base::failure where the system refuses.
class ChartDirectory {
 public:
  ChartDirectory();
  ~ChartDirectory();
  ChartDirectory(const ChartDirectory&) = delete;
  ChartDirectory& operator=(const ChartDirectory&) = delete;

  /// Without a separator at its end.
  const std::filesystem::path& path() const { return path_; }

  /// Writes the file NAME.fv, in place of any that is there.
  void write(const std::string& name, const std::string& bytes) const;
  /// Removes NAME.fv, a file or a directory.
  void remove(const std::string& name) const;
  /// Makes NAME.fv a directory.
  void makeDirectory(const std::string& name) const;

 private:
  std::filesystem::path fileOf(const std::string& name) const;

  std::filesystem::path path_;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_CONVERSATIONS_CHART_DIRECTORY_H
