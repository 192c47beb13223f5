// Random flowchart files: well-formed, careless, and broken in every way there is.

#ifndef TAVREL_TESTS_REFERENCE_RANDOMCHART_H
#define TAVREL_TESTS_REFERENCE_RANDOMCHART_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/reference/Choices.h"

namespace tavrel::reference {

class RandomChart {
 public:
  /// Boxes lead into flowcharts of these names, and seldom elsewhere. REQUIRES: both outlive
  /// this object.
  RandomChart(Choices& choices, const std::vector<std::string>& names)
      : choices_(choices), names_(names) {}

  /// The bytes of a new file.
  std::string file();

 private:
  struct Place {
    int x, y;
  };
  struct Node {
    int lines, comments;
    std::string link;
  };
  using Cell = std::array<std::int64_t, 7>;

  // The cells of a chart, by kind.
  void wellFormed();
  void careless();
  void oneCell();
  void ring();
  void farAway();
  void sharedNodes();

  void branch(std::vector<Place>& open, std::vector<Place>& taken, std::size_t from);
  int openWay(const std::vector<Place>& taken, Place from, int length);
  void addBox(std::int64_t x, std::int64_t y, std::int64_t yes, std::int64_t no, std::string link);
  void addLine(std::int64_t x, std::int64_t y, std::int64_t into, std::int64_t outOf);
  std::string link(int percent);
  int code();
  int exit();
  std::int64_t farCoordinate();

  // From cells to bytes.
  std::string written();
  void appendIntro(std::string& file);
  void appendText(std::string& file, int lines);
  void appendNumber(std::string& file, std::int64_t number);
  void appendCount(std::string& file, std::int64_t count);
  void appendCell(std::string& file, const Cell& cell);
  void appendLineEnd(std::string& file);

  // Afterwards.
  void spoilCells();
  void spoilBytes(std::string& file);

  Choices& choices_;
  const std::vector<std::string>& names_;
  std::vector<Node> nodes_;
  std::vector<Cell> boxes_, lines_;
  bool isCareless_ = false;     // in comments and blanks
  bool hasOddTexts_ = false;    // bytes that are no UTF-8, NUL bytes
  std::int64_t boxCount_ = 0;   // as the file says
  std::int64_t lineCount_ = 0;  // as the file says
};

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_RANDOMCHART_H
