#include "hosts/tavrel/Help.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace tavrel {
namespace {

struct Entry {
  const char* key;
  const char* meaning;
};

constexpr std::array entries = {
    Entry{"y, n", "answer the question: follow its yes or no exit"},
    Entry{"arrows", "move on the grid, along a line in either direction"},
    Entry{"b", "one step back, also into the chart you came from; Backspace too"},
    Entry{"Enter", "go on in the flowchart that this box leads into"},
    Entry{"Space", "one box further along the prepared path, or as the hand answers"},
    Entry{"r", "to the root box of this chart"},
    Entry{"PgUp, PgDn", "scroll the commentary"},
    Entry{"i", "the introduction of this chart"},
    Entry{"l", "the list of charts: pick one with the arrows or its first letter and Enter"},
    Entry{"?", "this page; any key but those that scroll leaves it"},
    Entry{"q", "quit"},
    Entry{"", ""},
    Entry{"inverse box", "where you are"},
    Entry{"heavy lines", "the prepared path"},
    Entry{"box's foot", "a name in the bottom frame: the flowchart that the box leads into"},
};

constexpr int keyColumns = 13;

}  // namespace

std::vector<std::string> helpLines(int width) {
  std::vector<std::string> lines;
  for (const Entry& entry : entries) {
    std::string key = entry.key;
    for (const std::string& line : wrapped({entry.meaning}, std::max(1, width - keyColumns))) {
      key.resize(keyColumns, ' ');
      lines.push_back(key + line);
      key.clear();
    }
  }
  return lines;
}

}  // namespace tavrel
