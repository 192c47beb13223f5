#include "files.h"

#include <fstream>
#include <iterator>

namespace tavrel {

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::ios_base::failure("can't read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  const std::filesystem::path draft = path.string() + ".new";
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(draft, std::ios::binary);
  file << bytes;
  file.close();
  std::filesystem::rename(draft, path);
}

}  // namespace tavrel
