// The strict check on any bytes, as a flowchart file: what is wrong has a place in the file,
// memory is in proportion to it, and what has no error is read by the engine alike and walked
// in every way without an exception.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/ChartCheck.h"
#include "authoring/FvReader.h"
#include "authoring/WalkCheck.h"
#include "engine/CTavrel.h"
#include "tests/fuzz/DiagnosticsCheck.h"
#include "tests/fuzz/Finding.h"
#include "tests/fuzz/MemoryFiles.h"
#include "tests/fuzz/Navigators.h"
#include "tests/fuzz/TallCharts.h"
#include "tests/support/Allocations.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Thrown.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::fuzz {
namespace {

using namespace authoring;

const Catalogue fewCharts = {"Opening", "RespNT", "Stayman"};

// The factors leave room for lists that grow.
void checkMemory(std::size_t fileSize, const Diagnostics& found, std::size_t taken) {
  require(taken <= 32 * fileSize + 3 * sizeOf(found) + 8192,
          "memory is in proportion to the file and to what is said of it");
}

CheckedChart check(const SourceFile& file) {
  takeMostInUse();
  const std::size_t before = bytesInUse();
  CheckedChart checked = checkChart(file, fewCharts);
  checkMemory(file.bytes().size(), checked.found, takeMostInUse() - before);
  checkDiagnostics(checked.found, file);
  return checked;
}

// The cursor on a box, which has the same number for the engine and for the check.
void standOn(CTavrel& engine, BoxNumber box) {
  const auto& elements = EngineAccess::screenElements(
      engine)[static_cast<std::size_t>(EngineAccess::currentFlowchartIndex(engine))];
  const sScreenElement& element = elements[static_cast<std::size_t>(box)];
  EngineAccess::currentElementIndex(engine) = box;
  EngineAccess::currentLocation(engine).m_x = element.m_x;
  EngineAccess::currentLocation(engine).m_y = element.m_y;
}

using Move = void (CTavrel::*)();

// The box that a move ends on.
BoxNumber endOf(CTavrel& engine, BoxNumber box, Move move) {
  standOn(engine, box);
  require(typeThrown([&] { (engine.*move)(); }).empty(), "a file without errors can be walked");
  return EngineAccess::currentElementIndex(engine);
}

void checkMoves(CTavrel& engine, BoxNumber box, const ByAnswer<BoxNumber>& exits,
                std::size_t boxCount) {
  const auto wanted = [box](BoxNumber exit) { return exit == noBox ? box : exit; };
  require(endOf(engine, box, &CTavrel::mMoveYes) == wanted(exits.yes), "yes leads there");
  require(endOf(engine, box, &CTavrel::mMoveNo) == wanted(exits.no), "no leads there");
  for (const Move move :
       {&CTavrel::mMoveXPlus, &CTavrel::mMoveXMinus, &CTavrel::mMoveYPlus, &CTavrel::mMoveYMinus}) {
    const BoxNumber end = endOf(engine, box, move);
    require(0 <= end && static_cast<std::size_t>(end) < boxCount, "a move ends on a box");
  }
}

void readByEngine(const SourceFile& file, CTavrel& engine, std::size_t chart) {
  Diagnostics found;
  const FvFile read = readFv(file, found).value();
  const auto exits = checkWalk(read, file, found);
  putFile(catalogue.at(chart).fileName, file.bytes());
  const auto index = static_cast<std::int32_t>(chart);
  require(typeThrown([&] { engine.mSetStartLocation(index); }).empty(),
          "a file without errors is read");
  require(EngineAccess::screenElements(engine)[chart].size() ==
              read.boxes.size() + read.connectors.size(),
          "the engine reads all cells");
  for (std::size_t box = 0; box < exits.size(); ++box) {
    checkMoves(engine, static_cast<BoxNumber>(box), exits[box], exits.size());
  }
}

void beginAnywhere(CTavrel&, std::size_t) {}

void tryFile(std::string_view bytes) {
  static Navigators<CTavrel> engines(catalogue.size(), 1, beginAnywhere);
  const SourceFile file("Opening.fv", std::string(bytes));
  if (check(file).found.hasErrors()) return;
  const bool isTall = mayBeTall(bytes);
  if (isTall && !isTriedThoughTall(bytes)) return;
  const std::size_t chart = engines.nextCharts();
  readByEngine(file, engines.navigator(), chart);
  if (isTall) engines.renew();
}

}  // namespace
}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tavrel::fuzz::tryFile({reinterpret_cast<const char*>(data), size});
  return 0;
}
