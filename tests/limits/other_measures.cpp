// Links, loops, answers that lead nowhere, and texts.

#include "engine/CTavrel.h"
#include "facade/Tavrel.h"
#include "tests/limits/Counted.h"
#include "tests/limits/Line.h"
#include "tests/limits/Measures.h"
#include "tests/support/ChartFile.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Files.h"
#include "tests/support/Thrown.h"

namespace tavrel {
namespace {

// A box that leads into the flowchart "RespNT"; a second one has the file read once.
void writeLink() {
  ChartFile().link(0, 0, "1NT", "RespNT").box(1, 0, "Other").writeTo(".", "Opening");
}

void countLink(std::size_t size, const std::string& label) {
  const Line line = {throughRows(size + 1, 500)};
  writeLink();
  writeFile("RespNT.fv", line.file());
  CTavrel engine("./");
  engine.mStartNewPath(0, line.answers());
  counted(label, [&] { engine.mMoveOnPath(); });
  require(EngineAccess::path(engine).empty(), label);
  require(engine.mGetAllElements().back().m_isOnPath, label);
}

void countLinkKept(std::size_t size, const std::string& label) {
  const Line line = {throughRows(size + 1, 500)};
  writeLink();
  writeFile("RespNT.fv", line.file());
  CTavrel engine("./");
  engine.mSetStartLocation(6);
  engine.mStartNewPath(0, line.answers());
  counted(label, [&] { engine.mMoveOnPath(); });
  require(EngineAccess::path(engine).empty(), label);
}

// A ring of connectors of this circumference, entered from the box at (0, 0).
ChartFile ring(std::size_t size) {
  const auto side = static_cast<std::int32_t>(size / 4);
  ChartFile file;
  file.box(0, 0, "In", xPlus).run(1, 0, xPlus, side).line(side + 1, 0, xPlus, yPlus);
  file.run(side + 1, 1, yPlus, side - 1).line(side + 1, side, yPlus, xMinus);
  file.run(side, side, xMinus, side - 1).line(1, side, xMinus, yMinus);
  return file.run(1, side - 1, yMinus, side - 1);
}

void countLoop(std::size_t size, const std::string& label) {
  ring(size).writeTo(".", "Opening");
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  std::string thrown;
  counted(label, [&] { thrown = typeThrown([&] { engine.mMoveYes(); }); });
  require(thrown == "out_of_range", label);
}

void countLoopMarked(std::size_t size, const std::string& label) {
  ring(size).writeTo(".", "Opening");
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  std::string thrown;
  counted(label, [&] { thrown = typeThrown([&] { engine.mStartNewPath(0, "y"); }); });
  require(thrown == "out_of_range", label);
}

void countAnswersRoundTwoBoxes(std::size_t size, const std::string& label) {
  ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B", xMinus).writeTo(".", "Opening");
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  const std::string answers(size, 'y');
  counted(label, [&] { engine.mStartNewPath(0, answers); });
  require(EngineAccess::path(engine).empty(), label);
}

void countAnswersKept(std::size_t size, const std::string& label) {
  ChartFile().box(0, 0, "A", xPlus).box(1, 0, "B").writeTo(".", "Opening");
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  const std::string answers(size, 'y');
  counted(label, [&] { engine.mStartNewPath(0, answers); });
  require(EngineAccess::path(engine).size() == size - 1, label);
}

void countIntroduction(std::size_t size, const std::string& label) {
  ChartFile().intro(Lines(size, "A line.")).box(0, 0, "A").box(1, 0, "B").writeTo(".", "Opening");
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  std::size_t lines = 0;
  counted(label, [&] { lines = engine.mGetFlowchartIntro(0).size(); });
  require(lines == size, label);
}

// Beyond ASCII, where each byte is looked at.
void countText(std::size_t size, const std::string& label) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) text += "♠";
  ChartFile().node({text}, {text}).cell(0, 0, 0).cell(0, 1, 0).writeTo(".", "Opening");
  Tavrel navigator("./");
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  const ScreenElement box = navigator.currentElement();
  std::size_t bytes = 0;
  counted(label, [&] { bytes = box.boxText().front().size() + box.debugDescription().size(); });
  require(bytes > 2 * text.size(), label);
}

void countLines(std::size_t size, const std::string& label) {
  const Lines lines(size, "A line");
  ChartFile().node(lines, lines).cell(0, 0, 0).cell(0, 1, 0).writeTo(".", "Opening");
  Tavrel navigator("./");
  navigator.resetToStartLocationForFlowchartAtIndex(0);
  const ScreenElement box = navigator.currentElement();
  std::size_t count = 0;
  counted(label, [&] { count = box.commentaryText().size() + box.debugDescription().size(); });
  require(count > size, label);
}

}  // namespace

std::vector<Measure> otherMeasures() {
  constexpr std::size_t size = 4'000;
  return {
      {"a link: into an unread flowchart", size, countLink},
      {"a link: into a flowchart read before", size, countLinkKept},
      {"a line without end: followed", size, countLoop},
      {"a line without end: marked", size, countLoopMarked},
      {"many answers: between two boxes", size, countAnswersRoundTwoBoxes},
      {"many answers: kept", 64 * size, countAnswersKept},
      {"an introduction: of many lines", size, countIntroduction},
      {"texts, client interface: one long line", size, countText},
      {"texts, client interface: many lines", size, countLines},
  };
}

}  // namespace tavrel
