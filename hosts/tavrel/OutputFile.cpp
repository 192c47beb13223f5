#include "hosts/tavrel/OutputFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>

#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, const std::string& why) {
  throw Failure("cannot write '" + path.string() + "': " + why);
}

}  // namespace

void writeOutput(const fs::path& path, std::string_view bytes) {
  if (path == "-") {
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return;
  }
  const fs::path draft = path.string() + ".new" + std::to_string(getpid());
  std::ofstream file(draft, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  std::error_code failed;
  if (file.fail()) {
    const std::string why = std::strerror(errno);
    fs::remove(draft, failed);
    fail(path, why);
  }
  fs::rename(draft, path, failed);
  if (!failed) return;
  const std::string why = failed.message();
  fs::remove(draft, failed);
  fail(path, why);
}

}  // namespace tavrel
