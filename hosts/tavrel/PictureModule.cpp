#include "hosts/tavrel/PictureModule.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "hosts/tavrel/Failure.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail() {
  const char* const why = dlerror();
  throw Failure(std::string("cannot make PNG and PDF pictures: ") +
                (why ? why : "no reason given") + "; draw an SVG, or install tavrel anew");
}

const PictureMakers* load() {
  std::error_code failed;
  const fs::path program = fs::read_symlink("/proc/self/exe", failed);
  const fs::path file = (program.parent_path() / TAVREL_PICTURES_FROM_PROGRAM).lexically_normal();
  void* const module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) fail();
  const void* const makers = dlsym(module, pictureMakersName);
  if (makers == nullptr) fail();
  return static_cast<const PictureMakers*>(makers);
}

}  // namespace

const PictureMakers& pictureMakers() {
  static const PictureMakers* const makers = load();
  return *makers;
}

}  // namespace tavrel
