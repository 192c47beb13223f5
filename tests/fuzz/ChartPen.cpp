#include "tests/fuzz/ChartPen.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace tavrel::fuzz {
namespace {

constexpr int noDirection = 4;

// Where the kinds of strokes begin.
enum : std::uint8_t {
  boxes = 0,      // 25: the yes and the no exit, each one of four or none
  lines = 25,     // 16: the directions into the cell and out of it
  moves = 41,     // 4
  toNoExit = 45,  // of the last box
  toOrigin = 46,
  toLastBox = 47,
  toLastPlace = 48,    // of a box or cell, so that two come to stand in one place
  texts = 49,          // 12
  links = 61,          // 9
  oddDirections = 70,  // 16
  jumps = 86,          // 16
  mistakes = 102,      // 14, of a file
  shares = 116,
  removal = 117,
  longRuns = 118,  // 2
  again = 120      // from here on: boxes and lines once more
};

constexpr std::array<const char*, 12> boxTexts = {
    "0\n",
    "1\n12+?\n",
    "1\nA line wider than the others are\n",
    "2\nTwo\nlines\n",
    "1\n\n",
    "3\na\n\nb\n",
    "1\n\xe2\x99\xa3\xe2\x99\xa5\n",
    "1\n\xff\xc0\n",
    "1\nwith\rreturn\r\n",
    "-1\n",
    "1 a comment\nText\n",
    "\n\n 1\nText\n",
};
constexpr std::array<const char*, 3> commentaries = {"0\n", "1\nAbout it\n",
                                                     "2\nok\n\xed\xa0\x80\n"};

constexpr std::array<std::int64_t, 8> odd = {-2, 5, 7, -1, 9, 70000, INT32_MAX, INT32_MIN};

// Limits of 32 bits, of what offsets can hold, of rows; and some merely far. No chart of
// millions of rows: they take a read of them a hundred times as long as all the rest.
constexpr std::array<std::int64_t, 8> farX = {
    100, -100, 143165577, -143165577, INT32_MAX, INT32_MIN, std::int64_t{INT32_MAX} + 1, -5000};
constexpr std::array<std::int64_t, 8> farY = {
    100, -100, 3000, -3000, INT32_MAX, INT32_MIN, std::int64_t{INT32_MIN} - 1, 20000000};

constexpr std::array<int, 5> stepX = {0, 1, 0, -1, 0};
constexpr std::array<int, 5> stepY = {1, 0, -1, 0, 0};

template <typename List>
auto pick(const List& list, int choice) {
  return list[static_cast<std::size_t>(choice) % list.size()];
}

}  // namespace

void ChartPen::draw(std::uint8_t stroke) {
  if (stroke >= again) stroke = static_cast<std::uint8_t>((stroke - again) % moves);
  if (stroke < lines) return drawBox(stroke / 5, stroke % 5);
  if (stroke < moves) return drawLine((stroke - lines) / 4, (stroke - lines) % 4);
  if (stroke < toNoExit) return move(stroke - moves);
  if (stroke < texts) {
    pen_ = stroke == toOrigin ? Place() : stroke == toLastPlace ? lastPlace_ : lastBox_;
    if (stroke == toNoExit) move(lastNo_);
    return;
  }
  if (stroke < links) return setText(stroke - texts);
  if (stroke < oddDirections) return setLink(stroke - links);
  if (stroke < jumps) return setOddDirection(stroke - oddDirections);
  if (stroke < mistakes) return jump(stroke - jumps);
  if (stroke < shares) return makeMistake(stroke - mistakes);
  if (stroke >= longRuns) return drawLongRun(stroke - longRuns);
  if (stroke == shares) sharesNode_ = true;
  if (stroke == removal) hasFile_ = false;
}

// The pen goes on along the yes exit; where there is none, along the no exit.
void ChartPen::drawBox(int yes, int no) {
  const auto exit = [this](std::size_t which, int direction) {
    return isOdd_[which] ? oddDirections_[which] : direction == noDirection ? -1 : direction;
  };
  appendNumbers(boxes_, {nodeOfNextBox(), pen_.x, pen_.y, 0, 0, exit(0, yes), exit(1, no)});
  ++boxCount_;
  isOdd_ = {};
  lastPlace_ = lastBox_ = pen_;
  lastNo_ = no;
  move(yes == noDirection ? no : yes);
}

void ChartPen::drawLine(int into, int outOf) {
  const auto direction = [this](std::size_t which, int usual) {
    return isOdd_[which] ? oddDirections_[which] : usual;
  };
  appendNumbers(lines_, {0, 0, 0, direction(0, into), direction(1, outOf), pen_.x, pen_.y});
  ++lineCount_;
  isOdd_ = {};
  lastPlace_ = pen_;
  move(outOf);
}

// More cells than a row is searched in one go, in the order of their columns or against it.
// One of each kind: the plain reference takes its time with them.
void ChartPen::drawLongRun(int choice) {
  constexpr int cells = 300;
  if (std::exchange(hasLongRun_[static_cast<std::size_t>(choice)], true)) return;
  const int direction = choice == 0 ? 1 : 3;
  for (int i = 0; i < cells; ++i) drawLine(direction, direction);
}

void ChartPen::move(int direction) {
  pen_.x += pick(stepX, direction);
  pen_.y += pick(stepY, direction);
}

void ChartPen::setText(int choice) {
  text_ = choice;
  commentary_ = choice % static_cast<int>(commentaries.size());
}

void ChartPen::setLink(int choice) {
  static const std::array<std::string, 5> strange = {"", "Nowhere", "opening", "\xff",
                                                     std::string("Open\0ing", 8)};
  const auto index = static_cast<std::size_t>(choice);
  link_ = index < links_.size() ? links_[index] : strange[index - links_.size()];
}

void ChartPen::setOddDirection(int choice) {
  const auto which = static_cast<std::size_t>(choice % 2);
  oddDirections_[which] = pick(odd, choice / 2);
  isOdd_[which] = true;
}

void ChartPen::jump(int choice) {
  if (choice % 2 == 0) {
    pen_.x = pick(farX, choice / 2);
  } else {
    pen_.y = pick(farY, choice / 2);
  }
}

// Strokes that spoil the file, and those of the introduction.
void ChartPen::makeMistake(int choice) {
  constexpr std::int64_t beyond = 100;  // less than no boxes, whatever follows
  switch (choice) {
    case 0:
      intro_ += "A line of introduction\n";
      ++introCount_;
      return;
    case 1:
      intro_ += "\xf8\n";
      ++introCount_;
      return;
    case 2:
      ++introCount_;
      return;
    case 3:
    case 4:
      boxCount_ += 2 * choice - 7;
      return;
    case 5:
      boxCount_ -= beyond;
      return;
    case 6:
    case 7:
      lineCount_ += 2 * choice - 13;
      return;
    case 8:
    case 9:
      nodeError_ = 2 * choice - 17;
      return;
    default:
      cut_ += std::size_t{1} << (2 * (choice - 10));
      return;
  }
}

std::int64_t ChartPen::nodeOfNextBox() {
  if (!sharesNode_ || nodeCount_ == 0) {
    nodes_ += pick(boxTexts, text_);
    nodes_ += pick(commentaries, commentary_);
    nodes_ += link_ + "\n";
    ++nodeCount_;
  }
  const std::int64_t node = nodeCount_ - 1 + nodeError_;
  sharesNode_ = false;
  nodeError_ = 0;
  link_.clear();
  return node;
}

std::string ChartPen::text() const {
  std::string file = "header\nheader\n";
  const auto section = [&file](std::int64_t count, const std::string& content) {
    appendNumber(file, count);
    file += "\n" + content;
  };
  section(introCount_, intro_);
  section(nodeCount_, nodes_);
  section(boxCount_, boxes_);
  section(lineCount_, lines_);
  file.resize(file.size() - std::min(cut_, file.size()));
  return file;
}

void ChartPen::appendNumber(std::string& text, std::int64_t number) {
  std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits;
  text.append(digits.data(),
              std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

void ChartPen::appendNumbers(std::string& text, const std::array<std::int64_t, 7>& numbers) {
  for (const std::int64_t number : numbers) {
    appendNumber(text, number);
    text += ' ';
  }
  text.back() = '\n';
}

}  // namespace tavrel::fuzz
