#include "hosts/tavrel/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

#include "hosts/tavrel/Failure.h"

namespace tavrel {

TemporaryFolder::TemporaryFolder() {
  std::error_code failed;
  std::string name = (std::filesystem::temp_directory_path(failed) / "tavrel-walk-XXXXXX").string();
  if (failed || mkdtemp(name.data()) == nullptr) {
    throw Failure("cannot make a temporary folder: " +
                  (failed ? failed.message() : std::string(std::strerror(errno))) +
                  "; TMPDIR names the place for it");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace tavrel
