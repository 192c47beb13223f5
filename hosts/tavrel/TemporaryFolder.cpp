#include "hosts/tavrel/TemporaryFolder.h"

#include <stdlib.h>  // mkdtemp

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

#include "hosts/tavrel/Failure.h"

namespace tavrel {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  const char* named = std::getenv("TMPDIR");
  const fs::path parent = named != nullptr && *named != '\0' ? named : "/tmp";
  std::string name = (parent / "tavrel-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure("cannot make a temporary folder in '" + parent.string() +
                  "': " + std::strerror(errno) + "; TMPDIR can name another place");
  }
  path_ = name;
}

// Whoever ends because something failed may still want to say why.
TemporaryFolder::~TemporaryFolder() {
  const int reason = errno;
  std::error_code ignored;
  fs::remove_all(path_, ignored);
  errno = reason;
}

}  // namespace tavrel
