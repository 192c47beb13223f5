#include "tests/reference/ChartFiles.h"

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tavrel::reference {

TemporaryFiles::TemporaryFiles() = default;
TemporaryFiles::~TemporaryFiles() = default;

std::string TemporaryFiles::pathOf(const std::string& name) const {
  return directory() + "/" + name + ".fv";
}

void TemporaryFiles::write(const std::string& name, const std::string& bytes) {
  remove(name);
  written_.insert(name);
  std::ofstream file(pathOf(name), std::ios::binary);
  file << bytes;
  file.close();
  if (!file) throw std::runtime_error("can't write " + pathOf(name));
}

void TemporaryFiles::remove(const std::string& name) {
  written_.erase(name);
  std::filesystem::remove(pathOf(name));
}

void TemporaryFiles::makeDirectory(const std::string& name) {
  remove(name);
  written_.insert(name);
  std::filesystem::create_directory(pathOf(name));
}

void TemporaryFiles::clear() {
  for (const std::string& name : written_) std::filesystem::remove(pathOf(name));
  written_.clear();
}

// The whole file at once, so that none stays open.
std::istream* TemporaryFiles::open(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return nullptr;
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open()) return nullptr;
  stream_ = std::istringstream(std::string(std::istreambuf_iterator<char>(file), {}));
  return &stream_;
}

void keepTemporaryFilesInMemory() {
  constexpr char memory[] = "/dev/shm";
  if (access(memory, W_OK) == 0) setenv("TMPDIR", memory, 0);
}

}  // namespace tavrel::reference
