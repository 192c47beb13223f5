// Draws a flowchart from bytes, one stroke for each: a box, a cell of a line, a move of
// the pen, or something odd. A byte means the same wherever it stands, so that a fuzzer
// which puts one in, takes one out or copies a run of them makes a neighbouring chart.

#ifndef TAVREL_TESTS_FUZZ_CHARTPEN_H
#define TAVREL_TESTS_FUZZ_CHARTPEN_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tavrel::fuzz {

/// How many flowcharts a dialogue gives files to.
constexpr std::size_t chartsOfDialogue = 3;

/// The file names of the flowcharts that a dialogue is about; the last has no file.
using Names = std::array<std::string, chartsOfDialogue + 1>;

class ChartPen {
 public:
  /// REQUIRES: `links` outlives this object.
  explicit ChartPen(const Names& links) : links_(links) {}

  /// Makes one stroke. tests/fuzz/README.md has the table.
  void draw(std::uint8_t stroke);

  /// False once a stroke has taken the file away.
  bool hasFile() const { return hasFile_; }

  /// The file's bytes.
  std::string text() const;

 private:
  struct Place {
    std::int64_t x = 0, y = 0;
  };

  void drawBox(int yes, int no);
  void drawLine(int into, int outOf);
  void drawLongRun(int choice);
  void move(int direction);
  void setText(int choice);
  void setLink(int choice);
  void setOddDirection(int choice);
  void jump(int choice);
  void makeMistake(int choice);
  std::int64_t nodeOfNextBox();
  static void appendNumber(std::string& text, std::int64_t number);
  static void appendNumbers(std::string& text, const std::array<std::int64_t, 7>& numbers);

  const Names& links_;
  Place pen_, lastPlace_, lastBox_;
  int lastNo_ = 4;

  // What the next box or cell gets:
  int text_ = 1;
  int commentary_ = 0;
  std::string link_;
  bool sharesNode_ = false;
  std::int64_t nodeError_ = 0;
  std::array<std::int64_t, 2> oddDirections_ = {};
  std::array<bool, 2> isOdd_ = {};

  // The file:
  bool hasFile_ = true;
  std::string intro_, nodes_, boxes_, lines_;
  std::int64_t introCount_ = 0, nodeCount_ = 0, boxCount_ = 0, lineCount_ = 0;
  std::size_t cut_ = 0;  // bytes missing at the end
  std::array<bool, 2> hasLongRun_ = {};
};

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_CHARTPEN_H
