#include "authoring/Directives.h"

#include <string_view>

namespace tavrel::authoring {

std::vector<std::size_t> directivesIn(const SourceFile& file) {
  std::vector<std::size_t> directives;
  for (std::size_t number = 1; number <= file.lineCount(); ++number) {
    const std::string_view line = file.line(number);
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string_view::npos || line[first] == '#') continue;
    if (line[0] != '%') break;
    directives.push_back(file.startOf(number));
  }
  return directives;
}

}  // namespace tavrel::authoring
