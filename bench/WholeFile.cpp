#include "bench/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace tavrel::bench {

WholeFile wholeFile(const std::string& path, std::size_t padding) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status = {};
  if (file < 0 || fstat(file, &status) != 0) {
    throw std::system_error(errno, std::generic_category(), path);
  }
  const auto size = static_cast<std::size_t>(status.st_size);
  WholeFile whole = {std::unique_ptr<char[]>(new char[size + padding]), size};
  const ssize_t count = read(file, whole.bytes.get(), size);
  close(file);
  if (count != status.st_size) throw std::system_error(EIO, std::generic_category(), path);
  std::fill_n(whole.bytes.get() + size, padding, '\0');
  return whole;
}

}  // namespace tavrel::bench
