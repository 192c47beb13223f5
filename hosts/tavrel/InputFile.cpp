#include "hosts/tavrel/InputFile.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>
#include <utility>

#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

constexpr std::size_t mostBytes = 64'000'000;

[[noreturn]] void fail(const std::string& name, const std::string& why) {
  throw Failure("cannot read '" + name + "': " + why);
}

std::string bytesOf(std::istream& stream, const std::string& name) {
  std::string bytes;
  std::array<char, 65536> some;
  while (stream.read(some.data(), some.size()) || stream.gcount() > 0) {
    bytes.append(some.data(), static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > mostBytes) fail(name, "it is larger than 64 MB");
  }
  if (stream.bad()) fail(name, std::strerror(errno));
  return bytes;
}

}  // namespace

authoring::SourceFile readInput(const std::filesystem::path& path) {
  if (path == "-") return {"standard input", bytesOf(std::cin, "standard input")};
  const std::string name = path.string();
  if (isFolder(path)) fail(name, "it is a folder");
  std::ifstream file(path, std::ios::binary);
  if (!file) fail(name, std::strerror(errno));
  return {name, bytesOf(file, name)};
}

bool isFolder(const std::filesystem::path& path) {
  std::error_code unseen;
  return std::filesystem::is_directory(path, unseen);
}

bool isFileOrNothing(const std::filesystem::path& path) {
  std::error_code unseen;
  const std::filesystem::file_status status = std::filesystem::status(path, unseen);
  return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

std::filesystem::file_time_type lastChange(const std::filesystem::path& path) {
  std::error_code missing;
  return std::filesystem::last_write_time(path, missing);
}

}  // namespace tavrel
