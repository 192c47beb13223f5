#include "authoring/FvReader.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "authoring/FvScreening.h"
#include "authoring/InShort.h"
#include "authoring/NumberLine.h"
#include "authoring/Places.h"

namespace tavrel::authoring {
namespace {

constexpr std::size_t numbersOfACell = 7;
constexpr const char* countBefore = "write it, or mend the count of the lines before it";

// Tabs and other blanks may part numbers; in texts they have no business.
bool isBlankControl(char byte) { return byte == '\t' || byte == '\v' || byte == '\f'; }

// A piece of the file in a message.
std::string quoted(std::string_view text) { return "'" + inShort(text) + "'"; }

// How many of the first words of a text are integers.
std::size_t integersIn(std::string_view text) {
  std::size_t count = 0;
  for (int words = 0; words < 2 * static_cast<int>(numbersOfACell); ++words) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) break;
    text.remove_prefix(start);
    const std::size_t end = std::min(text.find(' '), text.size());
    if (readNumberLine(text.substr(0, end)).count == 1) ++count;
    text.remove_prefix(end);
  }
  return count;
}

// What is counted, named in a message only where there is one.
struct Name {
  const char* part;
  std::int64_t node = -1;  // -1: of no node

  std::string shown() const { return node < 0 ? part : part + std::to_string(node); }
};

// Ends the reading; its diagnostic is written.
struct Unreadable {};

class Reader {
 public:
  Reader(const SourceFile& file, Diagnostics& found) : file_(file), found_(found) {
    const std::string_view bytes = file.bytes();
    const bool endsOpen = !bytes.empty() && bytes.back() != '\n';
    end_ = file.lineCount() + (endsOpen ? 1 : 0);
  }

  std::optional<FvFile> read() {
    if (!mayFvBeRead(file_, found_)) return std::nullopt;
    const bool isRead = readAll();
    blankControls_.say(file_, Code::controlInFile, "a control character stands in a text",
                       "write blanks instead", found_);
    return isRead ? std::optional(std::move(read_)) : std::nullopt;
  }

 private:
  // Whether it came to the end of the nodes, at least.
  bool readAll() {
    bool hasNodes = false;
    try {
      readTexts({1, 2}, {"the two header lines"}, {});
      next_ = 3;
      read_.intro = readText({"lines of the introduction"});
      readNodes();
      hasNodes = true;
      readCells();
      checkRest();
    } catch (const Unreadable&) {
      read_.hasAllCells = false;
    }
    return hasNodes;
  }

  // A number of lines or cells, and where it stands.
  struct Count {
    std::int64_t number = 0;
    std::size_t line = 0;
  };

  Place placeIn(std::size_t line, std::size_t offset) const {
    return file_.placeOf(file_.startOf(line) + offset);
  }

  Place lastPlace() const { return file_.placeOf(file_.bytes().size()); }

  // --- lines ----------------------------------------------------------------------

  // Passes over text lines, which must be there.
  void readTexts(LineRange lines, const Name& name, const Count& count) {
    if (lines.count > end_ - std::min<std::size_t>(lines.first, end_)) {
      if (count.line == 0) endsWithin(name.shown());
      tooFew(count, name.shown(), end_ - std::min<std::size_t>(lines.first, end_));
      throw Unreadable();
    }
    for (LineNumber i = 0; i < lines.count; ++i) checkText(lines.first + i);
  }

  void checkText(std::size_t line) {
    const std::string_view text = file_.line(line);
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (isBlankControl(text[at])) blankControls_.add(file_.startOf(line) + at);
    }
  }

  [[noreturn]] void endsWithin(const std::string& what) {
    found_.add(Code::fileEnds, lastPlace(), "the file ends here, before " + what,
               "write what is missing, or mend the counts before");
    throw Unreadable();
  }

  void tooFew(const Count& count, const std::string& what, std::size_t there) {
    found_.add(Code::wrongCount, placeOfNumber(file_, count.line, 0),
               "the count of " + what + " is " + std::to_string(count.number) + ", but only " +
                   std::to_string(there) + (there == 1 ? " line follows" : " lines follow"),
               "mend the count, or write what is missing");
  }

  // Goes to the next line that isn't blank; false at the end of the file.
  bool findNumberLine() {
    while (next_ < end_ && isBlank(file_.line(next_))) ++next_;
    return next_ < end_;
  }

  // Why a line doesn't have the numbers that it should have.
  void reportNumbers(const NumberLine& numbers, std::size_t wanted, const std::string& what,
                     const char* cure) {
    const std::string_view rest = file_.line(next_).substr(numbers.end);
    const Place place = placeIn(next_, numbers.end);
    if (numbers.isTooLarge) {
      found_.add(Code::numberTooLarge, place, quoted(rest) + " is no number of 32 bits",
                 "numbers go from -2147483648 to 2147483647");
    } else if (!isBlank(rest)) {
      found_.add(Code::notANumber, place, what + " has to stand here, not " + quoted(rest), cure);
    } else {
      found_.add(Code::tooFewNumbers, place,
                 what + " has " + std::to_string(numbers.count) + " of " + std::to_string(wanted) +
                     " numbers on this line",
                 "write all of them on one line");
    }
  }

  // What follows a number is a comment; one that begins with a number may be a mistake.
  void checkLeftOver(const NumberLine& numbers, std::size_t wanted) {
    if (numbers.count <= wanted) return;
    found_.add(Code::numbersLeftOver, placeIn(next_, numbers.offsets[wanted]),
               "more numbers stand on this line than are read",
               "take them away, or put a word before them if they are a comment");
  }

  // REQUIRES: a number line was found.
  Count takeCount(const NumberLine& numbers, const Name& name) {
    if (numbers.count == 0) {
      reportNumbers(numbers, 1, "the number of " + name.shown(), countBefore);
      throw Unreadable();
    }
    checkLeftOver(numbers, 1);
    const Count count = {numbers.numbers[0], next_++};
    if (count.number >= 0) return count;
    found_.add(Code::negativeCount, placeOfNumber(file_, count.line, 0),
               "the number of " + name.shown() + " is negative", "write how many there are");
    throw Unreadable();
  }

  Count readCount(const Name& name) {
    if (!findNumberLine()) endsWithin("the number of " + name.shown());
    return takeCount(readNumberLine(file_.line(next_)), name);
  }

  LineRange readText(const Name& name) {
    const Count count = readCount(name);
    const LineRange lines = {static_cast<LineNumber>(next_), static_cast<LineNumber>(count.number)};
    readTexts(lines, name, count);
    next_ += lines.count;
    return lines;
  }

  // --- nodes ----------------------------------------------------------------------

  void readNodes() {
    const Count count = readCount({"nodes"});
    for (std::int64_t number = 0; number < count.number; ++number) {
      FvNode read;
      read.text = readText({"lines of the text of node ", number});
      read.comment = readText({"lines of the comment of node ", number});
      if (next_ >= end_) endsWithin("the link of node " + std::to_string(number));
      checkText(next_++);
      read_.nodes.push_back(read);
    }
  }

  // --- cells ----------------------------------------------------------------------

  void readCells() {
    const Count boxes = readCount({"box cells"});
    const std::int64_t boxesRead =
        readCells(boxes, "box cell", [this](const NumberLine& numbers) { addBox(numbers); });
    if (read_.boxes.empty() && boxesRead == 0) {
      found_.add(Code::noBoxes, placeOfNumber(file_, boxes.line, 0), "the chart has no boxes",
                 "write at least the root box, at (0, 0)");
      read_.hasAllCells = false;
    }
    const Count connectors = readCount({"connector cells"});
    readCells(connectors, "connector cell",
              [this](const NumberLine& numbers) { addConnector(numbers); });
  }

  // A line with the numbers of a cell behind the last cell, or one without them before it: the
  // count is wrong, and not the lines. Returns how many cells there were.
  template <typename Add>
  std::int64_t readCells(const Count& count, const std::string& what, const Add& add) {
    std::int64_t there = 0;
    while (findNumberLine()) {
      const NumberLine numbers = readNumberLine(file_.line(next_));
      const bool isCell = numbers.count >= numbersOfACell;
      if (there < count.number ? isNextCount(numbers) : !isCell) break;
      if (isCell) {
        checkLeftOver(numbers, numbersOfACell);
        add(numbers);
      } else {
        reportNumbers(numbers, numbersOfACell, "a " + what,
                      numbers.count > 0 ? "write all seven numbers of the cell"
                                        : "write its seven numbers, or mend the counts before");
        read_.hasAllCells = false;
      }
      ++next_;
      ++there;
    }
    if (there != count.number) wrongCells(count, what, there);
    return there;
  }

  // "9 connector cells: 0 0 0 into out x y", where cells should go on; "1 x 0 0 0 -1 -1" is a
  // cell with a slip.
  bool isNextCount(const NumberLine& numbers) const {
    if (numbers.count != 1 || numbers.isTooLarge) return false;
    constexpr std::size_t mostInAComment = 3;
    return integersIn(file_.line(next_).substr(numbers.end)) <= mostInAComment;
  }

  void wrongCells(const Count& count, const std::string& what, std::int64_t there) {
    found_.add(Code::wrongCount, placeOfNumber(file_, count.line, 0),
               "the count of " + what + "s is " + std::to_string(count.number) + ", but " +
                   std::to_string(there) + (there == 1 ? " follows" : " follow"),
               "mend the count");
  }

  Direction directionOf(const NumberLine& numbers, std::size_t column, int lowest) {
    const std::int32_t number = numbers.numbers[column];
    if (number >= lowest && number <= 3) return static_cast<Direction>(number);
    read_.hasAllCells = false;
    found_.add(Code::badDirection, placeIn(next_, numbers.offsets[column]),
               std::to_string(number) + " is no direction",
               lowest < 0 ? "0 is down, 1 right, 2 up, 3 left, and -1 no exit"
                          : "0 is down, 1 right, 2 up and 3 left");
    return Direction::none;
  }

  void addBox(const NumberLine& numbers) {
    FvBox box;
    box.line = static_cast<LineNumber>(next_);
    box.node = numbers.numbers[nodeColumn];
    box.cell = {numbers.numbers[boxXColumn], numbers.numbers[boxYColumn]};
    box.exits = {directionOf(numbers, yesColumn, -1), directionOf(numbers, noColumn, -1)};
    read_.boxes.push_back(box);
    if (box.node >= 0 && static_cast<std::size_t>(box.node) < read_.nodes.size()) return;
    read_.hasAllCells = false;
    found_.add(Code::unknownNode, placeIn(next_, numbers.offsets[nodeColumn]),
               "there is no node " + std::to_string(box.node),
               read_.nodes.empty()
                   ? "the file has no nodes"
                   : "the file has the nodes 0 to " + std::to_string(read_.nodes.size() - 1));
  }

  void addConnector(const NumberLine& numbers) {
    FvConnector connector;
    connector.line = static_cast<LineNumber>(next_);
    connector.cell = {numbers.numbers[connectorXColumn], numbers.numbers[connectorYColumn]};
    connector.into = directionOf(numbers, intoColumn, 0);
    connector.outOf = directionOf(numbers, outOfColumn, 0);
    read_.connectors.push_back(connector);
  }

  void checkRest() {
    if (!findNumberLine()) return;
    const std::string_view line = file_.line(next_);
    const std::size_t start = line.find_first_not_of(" \t\v\f\r");
    found_.add(Code::leftOver, placeIn(next_, start),
               quoted(line.substr(start)) + " stands behind the last cell, and is never read",
               "take it away, from here to the end of the file");
  }

  const SourceFile& file_;
  Diagnostics& found_;
  FvFile read_;
  std::size_t next_ = 1;  // the next line to be read
  std::size_t end_ = 1;   // behind the last line
  Places blankControls_;  // in texts
};

}  // namespace

std::optional<FvFile> readFv(const SourceFile& file, Diagnostics& found) {
  return Reader(file, found).read();
}

}  // namespace tavrel::authoring
