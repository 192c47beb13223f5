#include "engine/FileBytes.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tavrel::engine {
namespace {

struct Closer {
  void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};

bool namesRegularFile(const std::string& path) {
  std::error_code ignored;
  return path.find('\0') == std::string::npos && std::filesystem::is_regular_file(path, ignored);
}

// A hint only: the file may change, or not know its size.
std::size_t sizeOf(const std::string& path) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(path, failed);
  return failed ? 0 : static_cast<std::size_t>(size);
}

}  // namespace

std::optional<FileBytes> FileBytes::read(const std::string& path) {
  if (!namesRegularFile(path)) return std::nullopt;
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(path.c_str(), "rb"));
  if (!file) return std::nullopt;
  FileBytes result(sizeOf(path));
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
