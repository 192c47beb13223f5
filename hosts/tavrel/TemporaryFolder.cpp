#include "hosts/tavrel/TemporaryFolder.h"

#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include "hosts/tavrel/Failure.h"

namespace tavrel {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::error_code failed;
  const fs::path parent = fs::temp_directory_path(failed);
  std::string name = ((failed ? fs::path("/tmp") : parent) / "tavrel-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure("cannot make a folder '" + name + "': " + std::strerror(errno) +
                  "; name a place for such folders in TMPDIR");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace tavrel
