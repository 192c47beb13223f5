#include "tests/limits/GrowingFiles.h"

#include <cstdint>

#include "tests/limits/Line.h"
#include "tests/support/ChartFile.h"

namespace tavrel {
namespace {

constexpr const char* most = "2147483647\n";  // what a count can claim

FileToRead lineThrough(const Way& way, FileOrder order = FileOrder::alongTheLine) {
  return {Line{way, 5, order}.file(), way.size()};
}

std::size_t wholeLine(std::size_t cells) { return cells / 5 * 5 + 1; }

Way rowsOfBoxes(std::size_t n) { return throughRows(wholeLine(n), 500); }

FileToRead rows(std::size_t n) { return lineThrough(rowsOfBoxes(n)); }
FileToRead shuffled(std::size_t n) { return lineThrough(rowsOfBoxes(n), FileOrder::shuffled); }
FileToRead longRow(std::size_t n) { return lineThrough(alongRow(wholeLine(n))); }
FileToRead longColumn(std::size_t n) { return lineThrough(downColumn(wholeLine(n))); }
FileToRead spiralLine(std::size_t n) { return lineThrough(spiral(wholeLine(n))); }

// Each in a column and a row of its own unless the steps are 0, and in no order.
FileToRead cells(std::size_t n, std::int64_t stepX, std::int64_t stepY) {
  constexpr std::size_t stride = 7919;  // a prime: passes every number below n once
  ChartFile file;
  file.node({"A box"}, {"Its commentary"});
  for (std::size_t i = 0, place = 0; i < n; ++i, place = (place + stride) % n) {
    const auto at = static_cast<std::int64_t>(place);
    if (i < n / 2) file.cell(0, at * stepX, at * stepY, xPlus, noExit);
    if (i >= n / 2) file.line(at * stepX, at * stepY, xPlus, xPlus);
  }
  return {file.text(), n};
}

FileToRead onePlace(std::size_t n) { return cells(n, 0, 0); }
FileToRead everyFourthOfARow(std::size_t n) { return cells(n, 4, 0); }
FileToRead gapsInARow(std::size_t n) { return cells(n, 1000, 0); }
FileToRead gapsInAColumn(std::size_t n) { return cells(n, 0, 50); }
FileToRead everyFourthOfADiagonal(std::size_t n) { return cells(n, -4, -4); }
FileToRead farApart(std::size_t n) { return cells(n, -997, 47); }

FileToRead shortestLines(std::size_t n) {
  ChartFile file;
  for (std::size_t i = 0; i < n; ++i) file.line(0, static_cast<std::int64_t>(i % 10), 0, 0);
  return {file.text(), n};
}

FileToRead longTexts(std::size_t n) {
  const Lines text(3, std::string(1000, 'a'));
  ChartFile file;
  for (std::size_t i = 0; i < n / 100; ++i) {
    file.node(text, text, "Stayman").cell(static_cast<std::int64_t>(i), 0, 0);
  }
  return {file.text(), n / 100};
}

FileToRead sharedText(std::size_t n) {
  ChartFile file;
  file.node(Lines(4, "A line of twenty-five bytes"), Lines(4, "Two lines, each in its string"));
  for (std::size_t i = 0; i < n; ++i) file.cell(0, static_cast<std::int64_t>(i), 0);
  return {file.text(), n};
}

FileToRead manyLinesInABox(std::size_t n) {
  return {ChartFile().node(Lines(n, "A line"), Lines(n, "")).cell(0, 0, 0).cell(0, 1, 0).text(), 2};
}

FileToRead longIntro(std::size_t n) {
  return {ChartFile().intro(Lines(n, "A line of an introduction.")).box(0, 0, "A").text(), 1};
}

FileToRead emptyNodes(std::size_t n) {
  ChartFile file;
  for (std::size_t i = 0; i < n; ++i) file.node({});
  return {file.text(), 0};
}

// --- Files that claim more than they hold: each count in its turn ----------

std::string times(std::size_t n, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < n; ++i) all += text;
  return all;
}

FileToRead claimedIntro(std::size_t n) {
  return {std::string("h\nh\n") + most + times(n, "a\n"), 1};
}

FileToRead claimedNodes(std::size_t n) {
  return {std::string("h\nh\n0\n") + most + times(n, "0\n0\n\n"), 1};
}

FileToRead claimedText(std::size_t n) {
  return {std::string("h\nh\n0\n1\n") + most + times(n, "a\n"), 1};
}

FileToRead claimedBoxes(std::size_t n) {
  return {std::string("h\nh\n0\n1\n0\n0\n\n") + most + times(n, "0 0 0 0 0 0 0\n"), n};
}

FileToRead claimedConnectors(std::size_t n) {
  return {std::string("h\nh\n0\n0\n0\n") + most + times(n, "0 0 0 0 0 0 0\n"), n};
}

FileToRead everyNodeClaims(std::size_t n) {
  return {std::string("h\nh\n0\n") + most + times(n, "0\n1\n\n\n") + most, 1};
}

// --- Files with much of what is passed over --------------------------------

FileToRead twoBoxesBehind(const std::string& firstNumber) {
  return {"h\nh\n" + firstNumber + "\n1\n0\n0\n\n2\n0 0 0 0 0 -1 -1\n0 1 0 0 0 -1 -1\n0\n", 2};
}

FileToRead blanks(std::size_t n) { return twoBoxesBehind(std::string(n, ' ') + "0"); }
FileToRead emptyLines(std::size_t n) { return twoBoxesBehind(std::string(n, '\n') + "0"); }
FileToRead leadingZeros(std::size_t n) { return twoBoxesBehind(std::string(n, '0')); }
FileToRead longComment(std::size_t n) { return twoBoxesBehind("0 " + std::string(n, '9')); }
FileToRead hugeNumber(std::size_t n) { return {"h\nh\n" + std::string(n, '9'), 1}; }
FileToRead oneLine(std::size_t n) { return {std::string(n, 'h'), 1}; }
FileToRead nothingButEmptyLines(std::size_t n) { return {std::string(n, '\n'), 1}; }
FileToRead nulBytes(std::size_t n) { return {"h\nh\n" + std::string(n, '\0'), 1}; }
FileToRead behindTheEnd(std::size_t n) {
  FileToRead file = twoBoxesBehind("0");
  file.bytes += std::string(n, '\n');
  return file;
}

// --- Files that end in an exception ----------------------------------------

FileToRead unknownNode(std::size_t n) {
  ChartFile file;
  file.node({"A box"});
  for (std::size_t i = 0; i < n; ++i) file.cell(0, static_cast<std::int64_t>(i), 0);
  return {file.cell(1, 0, 0).text(), n, true};
}

// Large, so that all have as many digits.
constexpr std::int64_t first = 1'000'000;

FileToRead tooManyRows(std::size_t n) {
  ChartFile file;
  for (std::size_t i = 0; i < n; ++i) file.line(0, first + static_cast<std::int64_t>(i), 0, 0);
  return {file.line(0, 16'777'216, 0, 0).text(), 1, true};
}

FileToRead tooWide(std::size_t n) {
  ChartFile file;
  for (std::size_t i = 0; i < n; ++i) file.line(first + static_cast<std::int64_t>(i), 0, 0, 0);
  return {file.line(2'000'000'000, 0, 0, 0).text(), 1, true};
}

// Were the text measured for each box, twice the file would cost four times as much.
FileToRead tooWideWithALongText(std::size_t n) {
  ChartFile file;
  file.node(Lines(n, ""));
  for (std::size_t i = 0; i < n; ++i) file.cell(0, first + static_cast<std::int64_t>(i), 0);
  return {file.line(2'000'000'000, 0, 0, 0).text(), 1, true};
}

FileToRead negativeBoxes(std::size_t n) {
  return {"h\nh\n0\n" + std::to_string(n) + "\n" + times(n, "1\na\n0\n\n") + "-1\n", 0, true};
}

}  // namespace

const std::vector<GrowingFile>& growingFiles() {
  constexpr std::size_t cells = 8'000, lines = 100'000, bytes = 1'000'000;
  static const std::vector<GrowingFile> all = {
      {"rows of boxes", rows, cells},
      {"rows of boxes, cells in no order", shuffled, cells},
      {"one long row", longRow, cells},
      {"one long column", longColumn, cells},
      {"a spiral", spiralLine, cells},
      {"all cells in one place", onePlace, cells},
      {"every fourth cell of a row", everyFourthOfARow, cells},
      {"a row with wide gaps", gapsInARow, cells},
      {"a column with wide gaps", gapsInAColumn, cells},
      {"every fourth cell of a diagonal", everyFourthOfADiagonal, cells},
      {"cells far apart", farApart, cells},
      {"connectors in the shortest lines", shortestLines, cells},
      {"long texts", longTexts, cells},
      {"one text in all boxes", sharedText, cells},
      {"many lines in a box", manyLinesInABox, cells},
      {"a long introduction", longIntro, cells},
      {"empty nodes that no box shows", emptyNodes, cells},
      {"more introduction claimed", claimedIntro, lines},
      {"more nodes claimed", claimedNodes, cells},
      {"more lines of text claimed", claimedText, lines},
      {"more boxes claimed", claimedBoxes, cells},
      {"more connectors claimed", claimedConnectors, cells},
      {"nodes of empty commentary, more claimed", everyNodeClaims, cells},
      {"blanks before a number", blanks, bytes},
      {"empty lines before a number", emptyLines, bytes},
      {"leading zeros", leadingZeros, bytes},
      {"a long comment", longComment, bytes},
      {"a huge number", hugeNumber, bytes},
      {"a single line", oneLine, bytes},
      {"nothing but empty lines", nothingButEmptyLines, bytes},
      {"NUL bytes", nulBytes, bytes},
      {"empty lines behind the end", behindTheEnd, bytes},
      {"an unknown node at the end", unknownNode, cells},
      {"too many rows", tooManyRows, cells},
      {"too wide a flowchart", tooWide, cells},
      {"too wide a flowchart, a long text in all boxes", tooWideWithALongText, cells},
      {"a negative number of boxes", negativeBoxes, cells},
  };
  return all;
}

}  // namespace tavrel
