#include "engine/FileBytes.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tavrel::engine {
namespace {

struct Closer {
  void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};

// Room is made at once for a file of up to 256 MiB.
constexpr std::uintmax_t mostExpected = std::uintmax_t{1} << 28;

bool isRegularFile(const std::filesystem::path& path) {
  std::error_code ignored;
  return path.native().find('\0') == std::string::npos &&
         std::filesystem::is_regular_file(path, ignored);
}

// A hint only: the file may change, or not know its size. One that can't be told is huge.
std::size_t expectedSizeOf(const std::filesystem::path& path) {
  std::error_code ignored;
  const std::uintmax_t size = std::filesystem::file_size(path, ignored);
  return static_cast<std::size_t>(std::min(size, mostExpected));
}

}  // namespace

std::optional<FileBytes> FileBytes::read(const std::string& name) {
  const std::filesystem::path path(name);
  if (!isRegularFile(path)) return std::nullopt;
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(name.c_str(), "rb"));
  if (!file) return std::nullopt;
  FileBytes result(expectedSizeOf(path));
  result.readFrom(file.get());
  return result;
}

FileBytes::FileBytes(std::size_t expectedSize)
    : bytes_(new char[expectedSize + 1]), capacity_(expectedSize + 1) {}

void FileBytes::readFrom(std::FILE* file) {
  // Without a buffer between, bytes go straight to their place.
  static_cast<void>(std::setvbuf(file, nullptr, _IONBF, 0));
  while (readMore(file)) continue;
  bytes_[size_] = '\0';
}

// False at the end, or at an error; the interruption by a signal is none.
bool FileBytes::readMore(std::FILE* file) {
  size_ += std::fread(bytes_.get() + size_, 1, capacity_ - size_, file);
  if (size_ == capacity_) {
    grow();
    return true;
  }
  if (std::ferror(file) == 0 || errno != EINTR) return false;
  std::clearerr(file);
  return true;
}

void FileBytes::grow() {
  const std::size_t doubled = 2 * capacity_;
  std::unique_ptr<char[]> larger(new char[doubled]);
  std::memcpy(larger.get(), bytes_.get(), size_);
  bytes_ = std::move(larger);
  capacity_ = doubled;
}

}  // namespace tavrel::engine
