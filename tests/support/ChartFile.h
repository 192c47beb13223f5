// Builds flowchart files, so that a test shows the chart it is about and nothing
// else.
//
//     ChartFile()
//         .intro({"Shall we open?"})
//         .box(0, 0, "12+?", xPlus, noExit)
//         .run(1, 0, xPlus, 2)              // lines at (1, 0) and (2, 0)
//         .link(3, 0, "1NT", "RespNT")
//         .writeTo(directory, "Opening");   // directory/Opening.fv
//
// Numbers are 64 bits wide so that a file can hold what an engine cannot.

#ifndef TAVREL_TESTS_SUPPORT_CHARTFILE_H
#define TAVREL_TESTS_SUPPORT_CHARTFILE_H

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/Files.h"

namespace tavrel {

using Lines = std::vector<std::string>;

// Direction codes as files hold them.
constexpr std::int32_t yPlus = 0;
constexpr std::int32_t xPlus = 1;
constexpr std::int32_t yMinus = 2;
constexpr std::int32_t xMinus = 3;
constexpr std::int32_t none = 4;     // as an element stores "no direction"
constexpr std::int32_t noExit = -1;  // as a box cell's line says "no exit"

class ChartFile {
 public:
  /// The introduction; without this call it has no lines.
  ChartFile& intro(const Lines& lines) {
    intro_ = count(lines.size()) + text(lines);
    return *this;
  }

  /// A node that box cells may show by its number: 0 for the first call, and so on.
  ChartFile& node(const Lines& boxText, const Lines& commentary = {},
                  const std::string& next = "") {
    nodes_ += count(boxText.size()) + text(boxText) + count(commentary.size()) + text(commentary) +
              next + "\n";
    ++nodeCount_;
    return *this;
  }

  /// A box cell that shows the node of that number.
  ChartFile& cell(std::int64_t nodeNumber, std::int64_t x, std::int64_t y,
                  std::int64_t yes = noExit, std::int64_t no = noExit) {
    boxes_ += numbers({nodeNumber, x, y, 0, 0, yes, no});
    ++boxCount_;
    return *this;
  }

  /// A box with a node of its own: one line of text, and the commentary
  /// "About " + that line.
  ChartFile& box(std::int64_t x, std::int64_t y, const std::string& line, std::int64_t yes = noExit,
                 std::int64_t no = noExit) {
    return link(x, y, line, "", yes, no);
  }

  /// A box that leads into the flowchart with this file name.
  ChartFile& link(std::int64_t x, std::int64_t y, const std::string& line, const std::string& next,
                  std::int64_t yes = noExit, std::int64_t no = noExit) {
    const auto number = static_cast<std::int64_t>(nodeCount_);
    return node({line}, {"About " + line}, next).cell(number, x, y, yes, no);
  }

  /// A connector cell, entered and left in these directions.
  ChartFile& line(std::int64_t x, std::int64_t y, std::int64_t into, std::int64_t outOf) {
    lines_ += numbers({0, 0, 0, into, outOf, x, y});
    ++lineCount_;
    return *this;
  }

  /// A straight run of connector cells, the first at (x, y).
  ChartFile& run(std::int64_t x, std::int64_t y, std::int32_t direction, int cells) {
    const int dx = direction == xPlus ? 1 : direction == xMinus ? -1 : 0;
    const int dy = direction == yPlus ? 1 : direction == yMinus ? -1 : 0;
    for (int i = 0; i < cells; ++i) line(x + i * dx, y + i * dy, direction, direction);
    return *this;
  }

  /// The file's bytes.
  std::string text() const {
    return "header\nheader\n" + intro_ + count(nodeCount_) + nodes_ + count(boxCount_) + boxes_ +
           count(lineCount_) + lines_;
  }

  /// Writes directory/name.fv.
  void writeTo(const std::filesystem::path& directory, const std::string& name) const {
    writeFile(directory / (name + ".fv"), text());
  }

 private:
  static std::string count(std::size_t number) { return std::to_string(number) + "\n"; }

  static std::string text(const Lines& lines) {
    std::string all;
    for (const std::string& line : lines) all += line + "\n";
    return all;
  }

  static std::string numbers(const std::vector<std::int64_t>& values) {
    std::string line;
    for (const std::int64_t value : values) {
      if (!line.empty()) line += ' ';
      line += std::to_string(value);
    }
    return line + "\n";
  }

  std::string intro_ = "0\n";
  std::string nodes_, boxes_, lines_;
  std::size_t nodeCount_ = 0, boxCount_ = 0, lineCount_ = 0;
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_CHARTFILE_H
