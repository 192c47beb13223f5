#include "tests/fuzz/MemoryFiles.h"

#include <cstring>
#include <unordered_map>

#include "engine/FileBytes.h"

namespace tavrel::fuzz {
namespace {

// By path. A file that goes keeps its place: the next one fills it without allocating.
struct File {
  bool exists = false;
  std::string bytes;
};

std::unordered_map<std::string, File>& files() {
  static std::unordered_map<std::string, File> all;
  return all;
}

File& fileOf(const std::string& name) {
  return files()[std::string(memoryFolder) + "/" + name + ".fv"];
}

}  // namespace

void putFile(const std::string& name, std::string_view bytes) {
  File& file = fileOf(name);
  file.exists = true;
  file.bytes = bytes;
}

void removeFile(const std::string& name) { fileOf(name).exists = false; }

void removeAllFiles() {
  for (auto& [path, file] : files()) file.exists = false;
}

std::optional<std::string_view> bytesOf(const std::string& path) {
  const auto found = files().find(path);
  if (found == files().end() || !found->second.exists) return std::nullopt;
  return found->second.bytes;
}

}  // namespace tavrel::fuzz

namespace tavrel::engine {

std::optional<FileBytes> FileBytes::read(const std::string& path) {
  const std::optional<std::string_view> bytes = fuzz::bytesOf(path);
  if (!bytes) return std::nullopt;
  return FileBytes(*bytes);
}

FileBytes::FileBytes(std::string_view bytes)
    : bytes_(new char[bytes.size() + 1]), size_(bytes.size()) {
  std::memcpy(bytes_.get(), bytes.data(), size_);
  bytes_[size_] = '\0';
}

}  // namespace tavrel::engine
