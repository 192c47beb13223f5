// A file, read in one go.

#ifndef TAVREL_ENGINE_FILEBYTES_H
#define TAVREL_ENGINE_FILEBYTES_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel::engine {

/// The bytes of a regular file as they were when it was read.
class FileBytes {
 public:
  /// Reads the file of that name, up to its end or the first error of the device.
  /// Empty when it cannot be opened, when it is anything but a regular file
  /// (opening a pipe could wait for ever), and for a name with a NUL byte, which
  /// no file has. Holds one byte more than the file has.
  static std::optional<FileBytes> read(const std::string& name);

  /// The bytes, valid as long as this object. One NUL byte stands behind them.
  std::string_view view() const noexcept { return {bytes_.get(), size_}; }

 private:
  explicit FileBytes(std::size_t expectedSize);
  void readFrom(std::FILE* file);
  bool readMore(std::FILE* file);
  void grow();

  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_;
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_FILEBYTES_H
