#include "tests/failures/SmallCharts.h"

#include "tests/support/ChartFile.h"

namespace tavrel {
namespace {

ChartFile lineChart() {
  return ChartFile()
      .intro({"Öffnen – or pass? Count first."})
      .node({"Have you 12 points", "or more?"}, {"Count ♠ ♥ ♦ ♣ honours."})
      .node({"A balanced hand?"})
      .node({"Open 1NT; partner answers"}, {"15–17 HCP, no five-card major"}, "RespNT")
      .node({"Pass"})
      .cell(0, 0, 0, xPlus, yPlus)
      .cell(1, 2, 0, xPlus, yPlus)
      .cell(2, 3, 0)
      .cell(3, 0, 2)
      .cell(3, 2, 1)
      .line(1, 0, xPlus, xPlus)
      .line(0, 1, yPlus, yPlus);
}

ChartFile turningChart() {
  return ChartFile()
      .intro({"One way round", "and another way round"})
      .node({"Left, or up and left?"}, {"Négatif: −1 is before 0.", ""})
      .node({"Lebensohl asks for 3♣"}, {}, "Leben")
      .node({"A new suit"})
      .cell(0, 0, 0, xMinus, yMinus)
      .cell(1, -2, -1)
      .cell(2, -3, 0, yPlus, xMinus)
      .line(-1, 0, xMinus, xMinus)
      .line(-2, 0, xMinus, xMinus)
      .line(0, -1, yMinus, xMinus)
      .line(-1, -1, xMinus, xMinus)
      .line(-3, 1, yPlus, yPlus);
}

ChartFile sharedChart() {
  return ChartFile()
      .node({"Is the suit at least five long?"}, {"♥ or ♠, whichever is longer"})
      .node({"Bid it"}, {}, "Forced")
      .cell(0, 0, 0, xPlus, yPlus)
      .cell(0, 1, 0, xPlus, yPlus)
      .cell(0, 0, 1, xPlus, noExit)
      .cell(0, 1, 1, yMinus, xPlus)
      .cell(1, 2, 1, xPlus)
      .line(2, 0, xPlus, yPlus)
      .line(2, 0, xPlus, xMinus);
}

ChartFile respNTChart() {
  return ChartFile()
      .intro({"After partner's one no trump"})
      .box(0, 0, "A five-card major?", xPlus, yPlus)
      .line(1, 0, xPlus, xPlus)
      .box(2, 0, "Transfer: 2♦ or 2♥", xPlus)
      .box(3, 0, "Then raise, or stop");
}

ChartFile forcedChart() {
  return ChartFile()
      .link(0, 0, "Leads to no flowchart", "A name beyond any short string", xPlus, yPlus)
      .box(0, 1, "Leads into nothing", xPlus);
}

}  // namespace

const std::vector<std::string>& smallCharts() {
  static const std::vector<std::string> charts = {lineChart().text(), turningChart().text(),
                                                  sharedChart().text()};
  return charts;
}

void writeNeighbours(const std::filesystem::path& directory) {
  respNTChart().writeTo(directory, "RespNT");
  ChartFile()
      .intro({"One box is the whole of it"})
      .box(0, 0, "One cell alone")
      .writeTo(directory, "Leben");
  forcedChart().writeTo(directory, "Forced");
  ChartFile()
      .intro({"Names a text that isn't there"})
      .box(0, 0, "Before the broken cell", xPlus)
      .cell(1, 5, -5)
      .writeTo(directory, "PGF");
  writeFile(directory / "Slam.fv", "h\nh\n1\nA negative number of boxes\n0\n-1\n");
  ChartFile()
      .intro({"Reaches beyond any index"})
      .box(0, 0, "Near the root")
      .box(0, 16777216, "Far from the root")
      .writeTo(directory, "Stayman");
}

}  // namespace tavrel
