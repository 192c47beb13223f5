// The example of docs/format.md, read through the client interface: its numbers
// are those that the document states.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "facade/Tavrel.h"
#include "tests/support/ChartDirectory.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

const std::string kDocument = readFile(TAVREL_FORMAT_DOCUMENT);

/// The text between the line ```fv and the next ```.
std::string exampleChart() {
  const std::string opening = "\n```fv\n";
  const std::size_t begin = kDocument.find(opening) + opening.size();
  return kDocument.substr(begin, kDocument.find("```", begin) - begin);
}

/// One row of the document's table: | box | 2 | 0 | 57 | 0 | RespSuit |
std::string tableRow(const ScreenElement& element) {
  std::ostringstream row;
  row << "| " << (element.isNode() ? "box" : "connector") << " | " << element.x() << " | "
      << element.y() << " | " << element.xOffset() << " | " << element.yOffset() << " | "
      << element.nameOfNextFlowchart().value_or("none") << " |";
  return row.str();
}

std::vector<std::string> tableRows() {
  std::vector<std::string> rows;
  std::istringstream lines(kDocument);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("| box |", 0) == 0 || line.rfind("| connector |", 0) == 0) rows.push_back(line);
  }
  return rows;
}

class FormatDocument : public testing::Test {
 protected:
  FormatDocument() : navigator_(directory_.path()) {
    directory_.write("Opening", exampleChart());
    navigator_.resetToStartLocationForFlowchartAtIndex(0);
  }

  ChartDirectory directory_;
  Tavrel navigator_;
};

TEST_F(FormatDocument, StatesTheElementsOfItsExample) {
  std::vector<std::string> rows;
  for (const ScreenElement& element : navigator_.allElements()) rows.push_back(tableRow(element));
  EXPECT_EQ(rows, tableRows());
}

TEST_F(FormatDocument, StatesTheBoundsOfItsExample) {
  const ScreenBounds bounds = navigator_.currentFlowchartBounds();
  std::ostringstream sentence;
  sentence << "bounds x " << bounds.minX << " to " << bounds.maxX << ", y " << bounds.minY << " to "
           << bounds.maxY;
  EXPECT_NE(kDocument.find(sentence.str()), std::string::npos) << sentence.str();
}

TEST_F(FormatDocument, ShowsAnExampleThatCanBeWalked) {
  EXPECT_EQ(navigator_.introForFlowchartAtIndex(0),
            std::vector<std::string>{"May I open the bidding?"});
  navigator_.moveYes();
  EXPECT_EQ(navigator_.currentElement().boxText(), std::vector<std::string>{"Open"});
  EXPECT_EQ(navigator_.currentElement().x(), 2);
}

TEST(FormatDocumentText, IsShort) {
  EXPECT_LE(std::count(kDocument.begin(), kDocument.end(), '\n'), 120);
}

}  // namespace
}  // namespace tavrel
