// The chart files of a comparison, which both sides read.

#ifndef TAVREL_TESTS_REFERENCE_CHARTFILES_H
#define TAVREL_TESTS_REFERENCE_CHARTFILES_H

#include <istream>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/TemporaryDirectory.h"

namespace tavrel::reference {

class ChartFiles {
 public:
  virtual ~ChartFiles() = default;

  /// For the making of navigators; without a separator at its end.
  virtual std::string directory() const = 0;
  /// Writes NAME.fv, in place of whatever is there.
  virtual void write(const std::string& name, const std::string& bytes) = 0;
  /// Removes NAME.fv if it is there, be it a directory.
  virtual void remove(const std::string& name) = 0;
  /// Puts a directory in the place of NAME.fv.
  virtual void makeDirectory(const std::string& name) = 0;
  /// Removes all that were written.
  virtual void clear() = 0;

  /// How the reference opens a file: a stream, or nothing where there is no regular file
  /// to read. It lives until the next call.
  virtual std::istream* open(const std::string& path) = 0;
};

/// Files in a directory of their own, in memory where TMPDIR leads there.
class TemporaryFiles : public ChartFiles {
 public:
  TemporaryFiles();
  ~TemporaryFiles() override;

  std::string directory() const override { return directory_.path().string(); }
  void write(const std::string& name, const std::string& bytes) override;
  void remove(const std::string& name) override;
  void makeDirectory(const std::string& name) override;
  void clear() override;
  std::istream* open(const std::string& path) override;

 private:
  std::string pathOf(const std::string& name) const;

  TemporaryDirectory directory_;
  std::set<std::string> written_;
  std::istringstream stream_;
};

/// Sends temporary directories to memory, where the system has a place for that and
/// TMPDIR doesn't say otherwise. Call it before the first thread starts.
void keepTemporaryFilesInMemory();

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_CHARTFILES_H
