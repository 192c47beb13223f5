// Charts made for a test, and their drawings as text that a test can show whole.

#ifndef TAVREL_TESTS_DRAWING_DRAWINGTEST_H
#define TAVREL_TESTS_DRAWING_DRAWINGTEST_H

#include <gtest/gtest.h>

#include <string>

#include "drawing/TextChart.h"
#include "facade/Tavrel.h"
#include "tests/support/ChartFile.h"
#include "tests/support/TemporaryDirectory.h"

namespace tavrel {

/// The picture's lines, with a line end before the first, as a raw string has it
/// that starts on a line of its own.
inline std::string shown(const TextPicture& picture) {
  std::string text = "\n";
  for (int row = 0; row < picture.height(); ++row) text += picture.line(row) + "\n";
  return text;
}

/// One character for each cell of the picture, given by a function of the cell;
/// in the same shape as `shown`.
template <typename Letter>
std::string mapped(const TextPicture& picture, Letter letter) {
  std::string text = "\n";
  for (int row = 0; row < picture.height(); ++row) {
    std::string line;
    for (int column = 0; column < picture.width(); ++column) {
      line += letter(picture.at(row, column));
    }
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

/// The picture's inks: t(ext), f(rame), l(ine), w(ords), n(ame of a link), C D H S.
inline std::string inks(const TextPicture& picture) {
  return mapped(picture, [](const TextCell& cell) {
    return " tflwnCDHS"[static_cast<std::size_t>(cell.ink)];
  });
}

inline std::string litCells(const TextPicture& picture) {
  return mapped(picture, [](const TextCell& cell) { return cell.lit ? '*' : ' '; });
}

inline std::string currentCells(const TextPicture& picture) {
  return mapped(picture, [](const TextCell& cell) { return cell.current ? '@' : ' '; });
}

inline TextPicture wholePicture(const Tavrel& navigator, Charset charset = Charset::utf8) {
  const TextChart chart(navigator, charset);
  return chart.paint(navigator,
                     {0, 0, static_cast<int>(chart.width()), static_cast<int>(chart.height())});
}

class DrawingTest : public testing::Test {
 protected:
  /// Writes the chart and lays the answers onto it, in a navigator that has read
  /// nothing yet.
  void select(const ChartFile& chart, const std::string& answers = "") {
    write(chart);
    navigator.startNewPathForFlowchartAtIndexYesNoString(0, answers);
  }

  /// The chart's drawing without a path.
  std::string drawn(const ChartFile& chart, Charset charset = Charset::utf8) {
    write(chart);
    navigator.resetToStartLocationForFlowchartAtIndex(0);
    return shown(wholePicture(navigator, charset));
  }

  TemporaryDirectory directory;
  Tavrel navigator{directory.path()};

 private:
  void write(const ChartFile& chart) {
    chart.writeTo(directory.path(), "Opening");
    navigator = Tavrel(directory.path());
  }
};

}  // namespace tavrel

#endif  // TAVREL_TESTS_DRAWING_DRAWINGTEST_H
