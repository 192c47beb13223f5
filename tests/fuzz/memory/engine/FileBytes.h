// Stands in the place of the engine's own header of this name: the bytes of a file,
// taken from memory. What a fuzzed navigator reads costs no call of the system.

#ifndef TAVREL_ENGINE_FILEBYTES_H
#define TAVREL_ENGINE_FILEBYTES_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel::engine {

/// The bytes of a file of tests/fuzz/MemoryFiles.h, as they were when it was read.
class FileBytes {
 public:
  /// Empty when there is no such file. Holds one byte more than the file has.
  static std::optional<FileBytes> read(const std::string& path);

  /// The bytes, valid as long as this object. One NUL byte stands behind them.
  std::string_view view() const noexcept { return {bytes_.get(), size_}; }

 private:
  explicit FileBytes(std::string_view bytes);

  std::unique_ptr<char[]> bytes_;  // of just this size, so that no byte beyond is read unseen
  std::size_t size_;
};

}  // namespace tavrel::engine

#endif  // TAVREL_ENGINE_FILEBYTES_H
