#include "ChartDirectory.h"

#include <random>

#include "files.h"

namespace tavrel {
namespace fs = std::filesystem;

ChartDirectory::ChartDirectory() {
  std::random_device random;
  do {
    path_ = fs::temp_directory_path() / ("tavrel-conversation-" + std::to_string(random()));
  } while (!fs::create_directory(path_));
}

ChartDirectory::~ChartDirectory() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void ChartDirectory::write(const std::string& name, const std::string& bytes) const {
  writeFile(fileOf(name), bytes);
}

void ChartDirectory::remove(const std::string& name) const { fs::remove(fileOf(name)); }

void ChartDirectory::makeDirectory(const std::string& name) const {
  fs::create_directory(fileOf(name));
}

fs::path ChartDirectory::fileOf(const std::string& name) const { return path_ / (name + ".fv"); }

}  // namespace tavrel
