// The reader on any bytes, as the file of a flowchart: nothing thrown but the two
// exceptions it names, memory in proportion to the bytes, and a flowchart that agrees
// with itself.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/CTavrel.h"
#include "tests/fuzz/Finding.h"
#include "tests/fuzz/FlowchartCheck.h"
#include "tests/fuzz/MemoryFiles.h"
#include "tests/fuzz/Navigators.h"
#include "tests/fuzz/TallCharts.h"
#include "tests/support/Allocations.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Thrown.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::fuzz {
namespace {

// The factors leave room for lists beside those that stay; what a file claims and doesn't
// hold would pass any factor.
void checkMemory(const CTavrel& engine, std::size_t chart, std::size_t fileSize,
                 std::size_t allocated) {
  const std::size_t records = sizeOf(EngineAccess::screenElements(engine)[chart]);
  const std::size_t rows = EngineAccess::rowStarts(engine)[chart].size();
  require(allocated <= 32 * fileSize + 3 * records + 12 * rows + 1024,
          "memory is in proportion to the file, its records and its rows");
}

// What a reading throws, "" for nothing.
std::string read(CTavrel& engine, std::size_t chart, std::size_t fileSize) {
  const auto fc = static_cast<std::int32_t>(chart);
  takeCost();
  const std::string thrown = typeThrown([&] { engine.mReadFVFileIfNotAlready(fc); });
  checkMemory(engine, chart, fileSize, takeCost().bytes);
  require(thrown.empty() || thrown == "out_of_range" || thrown == "length_error",
          "a reading throws out_of_range, length_error or nothing");
  checkElements(engine, fc);
  return thrown;
}

// The second reading does what the first did, or nothing.
void readTwice(CTavrel& engine, std::size_t chart, std::size_t fileSize) {
  const std::string thrown = read(engine, chart, fileSize);
  if (thrown.empty()) checkWhole(engine, static_cast<std::int32_t>(chart));
  const std::size_t held = EngineAccess::screenElements(engine)[chart].size();
  const std::string thrownAgain = read(engine, chart, fileSize);
  require(thrownAgain == (held > 1 ? "" : thrown), "a file is read alike when it is read again");
  require(EngineAccess::screenElements(engine)[chart].size() == held,
          "a file gives as much when it is read again");
}

void beginAnywhere(CTavrel&, std::size_t) {}

void tryFile(std::string_view bytes) {
  static Navigators<CTavrel> engines(catalogue.size(), 1, beginAnywhere);
  const bool isTall = mayBeTall(bytes);
  if (isTall && !isTriedThoughTall(bytes)) return;
  const std::size_t chart = engines.nextCharts();
  putFile(catalogue.at(chart).fileName, bytes);
  readTwice(engines.navigator(), chart, bytes.size());
  if (isTall) engines.renew();
}

}  // namespace
}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tavrel::fuzz::tryFile({reinterpret_cast<const char*>(data), size});
  return 0;
}
