#include "tests/reference/RandomChart.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavrel::reference {
namespace {

constexpr int noExit = -1;
constexpr int stepX[] = {0, 1, 0, -1};
constexpr int stepY[] = {1, 0, -1, 0};
constexpr std::size_t mostBoxes = 7;

}  // namespace

std::string RandomChart::file() {
  nodes_.clear();
  boxes_.clear();
  lines_.clear();
  isCareless_ = choices_.once(6);
  hasOddTexts_ = choices_.once(12);
  const int kind = choices_.below(64);
  if (kind < 36) {
    wellFormed();
  } else if (kind < 48) {
    careless();
  } else if (kind < 54) {
    oneCell();
  } else if (kind < 57) {
    ring();
  } else if (kind < 60) {
    sharedNodes();
  } else if (kind < 62) {
    farAway();
  }  // else no cells
  boxCount_ = static_cast<std::int64_t>(boxes_.size());
  lineCount_ = static_cast<std::int64_t>(lines_.size());
  if (choices_.once(14)) spoilCells();
  std::string bytes = written();
  if (choices_.once(12)) spoilBytes(bytes);
  if (choices_.once(24) && !bytes.empty())
    bytes.resize(static_cast<std::size_t>(choices_.below(4096)) % bytes.size());
  return bytes;
}

// --- Cells --------------------------------------------------------------------------

void RandomChart::addBox(std::int64_t x, std::int64_t y, std::int64_t yes, std::int64_t no,
                         std::string link) {
  const auto node = static_cast<std::int64_t>(nodes_.size());
  nodes_.push_back({choices_.below(3), choices_.below(3), std::move(link)});
  boxes_.push_back({node, x, y, 0, 0, yes, no});
}

void RandomChart::addLine(std::int64_t x, std::int64_t y, std::int64_t into, std::int64_t outOf) {
  lines_.push_back({0, 0, 0, into, outOf, x, y});
}

std::string RandomChart::link(int percent) {
  if (!choices_.chance(percent)) return "";
  if (!choices_.once(16)) return choices_.from(names_);
  return choices_.from<const char*>({"Nowhere", "opening", "Lebensohl", "\xff\xfe", "PGF.fv", " "});
}

int RandomChart::code() {
  return choices_.once(12) ? choices_.from({-1, -2, 4, 9, 2147483647}) : choices_.below(4);
}

int RandomChart::exit() { return choices_.chance(40) ? noExit : code(); }

/// Boxes joined by lines that reach them.
void RandomChart::wellFormed() {
  std::vector<Place> open{{0, 0}}, taken{{0, 0}};
  for (std::size_t i = 0; i < open.size(); ++i) branch(open, taken, i);
}

void RandomChart::branch(std::vector<Place>& open, std::vector<Place>& taken, std::size_t from) {
  const Place start = open[from];
  int exits[2] = {noExit, noExit};
  for (int& exit : exits) {
    if (open.size() >= mostBoxes || choices_.once(5)) continue;
    const int length = choices_.below(4);
    const int way = openWay(taken, start, length + 1);
    if (way < 0) continue;
    exit = way;
    for (int k = 1; k <= length + 1; ++k) {
      taken.push_back({start.x + k * stepX[way], start.y + k * stepY[way]});
      if (k <= length) addLine(taken.back().x, taken.back().y, way, way);
    }
    open.push_back(taken.back());
  }
  const bool isEnd = exits[0] == noExit && exits[1] == noExit;
  addBox(start.x, start.y, exits[0], exits[1], link(isEnd ? 60 : 3));
}

/// A direction in which so many cells are free, or -1.
int RandomChart::openWay(const std::vector<Place>& taken, Place from, int length) {
  const int way = choices_.below(4);
  for (const Place& place : taken) {
    for (int k = 1; k <= length; ++k) {
      if (place.x == from.x + k * stepX[way] && place.y == from.y + k * stepY[way]) return -1;
    }
  }
  return way;
}

/// Cells anywhere, several on one place, exits and lines that lead anywhere.
void RandomChart::careless() {
  if (!choices_.once(5)) addBox(0, 0, exit(), exit(), link(12));
  for (int left = choices_.between(1, 8); left > 0; --left) {
    addBox(choices_.between(-2, 2), choices_.between(-2, 2), exit(), exit(), link(12));
  }
  for (int left = choices_.below(10); left > 0; --left) {
    addLine(choices_.between(-2, 2), choices_.between(-2, 2), code(), code());
  }
}

void RandomChart::oneCell() {
  const int x = choices_.once(3) ? choices_.between(-2, 2) : 0;
  const int y = choices_.once(3) ? choices_.between(-2, 2) : 0;
  if (choices_.once(3)) return addLine(x, y, code(), code());
  addBox(x, y, exit(), exit(), link(40));
}

/// A line from the root onto a ring without a box, and one from there to the root.
void RandomChart::ring() {
  addBox(0, 0, 1, choices_.from({-1, 1, 3}), "");
  addLine(1, 0, 1, choices_.from({0, 1}));
  addLine(2, 0, 1, 0);
  addLine(2, 1, 0, 3);
  addLine(1, 1, 3, 2);
  addLine(-1, 0, choices_.from({0, 1, 4}), 1);
  addLine(-1, -1, 3, 0);
  addLine(0, -1, 2, choices_.from({0, 3}));
  addLine(-2, 0, 1, 1);
  if (choices_.once(2)) addLine(0, 1, 1, choices_.from({2, 4, -1}));
}

/// Several boxes of one node, with an exit each way.
void RandomChart::sharedNodes() {
  nodes_ = {{1, 1, ""}, {2, 0, link(50)}};
  for (int x = choices_.between(-3, 0); x < 4; ++x) {
    boxes_.push_back({choices_.below(2), x, 0, 7, 7, choices_.from({1, 3, 9, -2}), exit()});
  }
}

void RandomChart::farAway() {
  addBox(0, 0, exit(), exit(), "");
  for (int left = choices_.between(1, 2); left > 0; --left) {
    if (choices_.once(2)) {
      addBox(farCoordinate(), choices_.below(3), exit(), exit(), "");
    } else {
      addLine(choices_.below(3), farCoordinate(), code(), code());
    }
  }
}

// Around the limits of rows and offsets, and of what 32 bits hold.
std::int64_t RandomChart::farCoordinate() {
  return choices_.from<std::int64_t>({100, -100, 1000, -1000, 143165573, 143165576, 143165577,
                                      -143165576, 2147483647, -2147483648, 16777216, -16777216,
                                      30000000, 2147483648, -2147483649, 4294967296});
}

void RandomChart::spoilCells() {
  if (choices_.once(6) && !boxes_.empty()) {
    boxes_.back()[1] = farCoordinate();
  }
  switch (choices_.below(5)) {
    case 0:
      boxCount_ = choices_.from({-1, -2147483647});
      break;
    case 1:
      lineCount_ = -1;
      break;
    case 2:
      boxCount_ += choices_.between(-1, 2);
      break;
    case 3:
      lineCount_ += choices_.between(-1, 2);
      break;
    default:
      if (boxes_.empty()) return;
      boxes_[static_cast<std::size_t>(choices_.below(static_cast<int>(boxes_.size())))][0] =
          choices_.from({-1, 99, static_cast<int>(nodes_.size()), -2147483647});
      break;
  }
}

// --- Bytes --------------------------------------------------------------------------

std::string RandomChart::written() {
  std::string file;
  file.reserve(1024);
  file += "header\n\n";
  appendIntro(file);
  appendCount(file, static_cast<std::int64_t>(nodes_.size()));
  for (const Node& node : nodes_) {
    appendText(file, node.lines);
    appendText(file, node.comments);
    file += node.link;
    file += '\n';
  }
  appendCount(file, boxCount_);
  for (const Cell& cell : boxes_) appendCell(file, cell);
  appendCount(file, lineCount_);
  for (const Cell& cell : lines_) appendCell(file, cell);
  return file;
}

void RandomChart::appendIntro(std::string& file) { appendText(file, choices_.below(3)); }

void RandomChart::appendText(std::string& file, int lines) {
  static const char* const plain[] = {"",     "Pass",          "12+ points, and a long suit",
                                      "1NT ", "2\xe2\x99\xa3", "Rebid\r"};
  static const std::string odd[] = {"\xff",
                                    std::string("a\0b", 3),
                                    "\xc0\x80",
                                    "\xed\xa0\x80",
                                    "\xf4\x90\x80\x80",
                                    "\xe2\x99",
                                    "\xf0\x9f\x82\xa1",
                                    std::string("\0\xff", 2),
                                    "\xe0\x80\xaf",
                                    "\xf0\x80\x80\x80",
                                    "\xc3\xa9",
                                    "\x80"};
  if (isCareless_ && choices_.once(16)) return appendCount(file, -lines);
  appendCount(file, lines);
  for (int i = 0; i < lines; ++i) {
    if (hasOddTexts_ && choices_.once(3)) {
      file += choices_.from(odd);
    } else {
      file += choices_.from(plain);
    }
    file += '\n';
  }
}

void RandomChart::appendNumber(std::string& file, std::int64_t number) {
  if (isCareless_ && number >= 0 && choices_.once(16)) file += choices_.from({"+", "00"});
  if (number >= 0 && number < 10) {
    file += static_cast<char>('0' + number);
  } else {
    file += std::to_string(number);
  }
}

void RandomChart::appendCount(std::string& file, std::int64_t count) {
  if (isCareless_ && choices_.once(16)) file += choices_.from({"\n", " \n\t", "\n\n"});
  appendNumber(file, count);
  appendLineEnd(file);
}

void RandomChart::appendCell(std::string& file, const Cell& cell) {
  if (isCareless_ && choices_.once(16)) file += "\n";
  for (std::size_t i = 0; i < cell.size(); ++i) {
    if (i > 0) {
      const bool isOdd = isCareless_ && choices_.once(32);
      file += isOdd ? choices_.from({"\t", "  ", "\n", " \r\n\v\f ", ",", "x"}) : " ";
    }
    appendNumber(file, cell[i]);
  }
  appendLineEnd(file);
}

void RandomChart::appendLineEnd(std::string& file) {
  const bool isOdd = isCareless_ && choices_.once(8);
  file += isOdd ? choices_.from({" a comment\n", "\r\n", " 7 8\n", "x\n", ".5\n"}) : "\n";
}

void RandomChart::spoilBytes(std::string& file) {
  static const std::string bytes = "0123456789 -\n\tyx+\r\xff";
  const auto place = [&] { return static_cast<std::size_t>(choices_.below(4096)) % file.size(); };
  if (choices_.once(20) || file.empty())
    file.assign(static_cast<std::size_t>(choices_.below(8)), '7');
  for (int left = choices_.below(4); left > 0 && !file.empty(); --left) {
    const std::size_t at = place();
    switch (choices_.below(4)) {
      case 0:
        file[at] = choices_.from(bytes);
        break;
      case 1:
        file.insert(at, 1, choices_.from(bytes));
        break;
      case 2:
        file.erase(at, 1);
        break;
      default:
        file.erase(at);
        break;
    }
  }
}

}  // namespace tavrel::reference
