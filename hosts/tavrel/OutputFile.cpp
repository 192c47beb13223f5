#include "hosts/tavrel/OutputFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>

#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, const std::string& why) {
  throw Failure("cannot write '" + path.string() + "': " + why);
}

void write(const fs::path& place, std::string_view bytes, const fs::path& name) {
  std::ofstream file(place, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (file.fail()) fail(name, std::strerror(errno));
}

// A link goes on leading where it leads.
fs::path behindLinks(const fs::path& path) {
  std::error_code failed;
  const fs::path target = fs::canonical(path, failed);
  return failed ? path : target;
}

void refuseSource(const fs::path& path) {
  const fs::path extension = path.extension();
  if (extension == ".yaml" || extension == ".yml") fail(path, "a file of that name is a source");
}

void replace(const fs::path& path, std::string_view bytes) {
  const fs::path draft = path.string() + ".new" + std::to_string(getpid());
  std::error_code failed;
  try {
    write(draft, bytes, path);
  } catch (const Failure&) {
    fs::remove(draft, failed);
    throw;
  }
  fs::rename(draft, path, failed);
  if (!failed) return;
  const std::string why = failed.message();
  fs::remove(draft, failed);
  fail(path, why);
}

}  // namespace

void writeOutput(const fs::path& path, std::string_view bytes) {
  if (path == "-") {
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return;
  }
  const fs::path target = behindLinks(path);
  refuseSource(target);
  if (isFileOrNothing(path)) {
    replace(target, bytes);
  } else {
    write(path, bytes, path);  // a device or a pipe stays what it is
  }
}

}  // namespace tavrel
