// A single find in a row that grows.

#include "engine/CTavrel.h"
#include "tests/limits/Counted.h"
#include "tests/limits/Measures.h"
#include "tests/support/ChartFile.h"
#include "tests/support/Files.h"

namespace tavrel {
namespace {

enum class Wanted { first, last, missing };

// Connector cells at distances of `gap`.
struct Row {
  const char* name;
  std::int64_t gap;
};

constexpr Row rowsOfCells[] = {
    {"a row without gaps", 1}, {"a row with gaps", 7}, {"all cells in one place", 0}};

ChartFile fileOf(const Row& row, std::size_t cells) {
  ChartFile file;
  for (std::size_t i = 0; i < cells; ++i) {
    file.line(static_cast<std::int64_t>(i) * row.gap, 0, xPlus, xPlus);
  }
  return file;
}

void countFind(const Row& row, Wanted wanted, std::size_t cells, const std::string& label) {
  fileOf(row, cells).writeTo(".", "Opening");
  CTavrel engine("./");
  engine.mSetStartLocation(0);
  const std::int64_t last = static_cast<std::int64_t>(cells - 1) * row.gap;
  const auto x = static_cast<std::int32_t>(wanted == Wanted::first  ? 0
                                           : wanted == Wanted::last ? last
                                                                    : last + 1);
  const bool isFirst = wanted == Wanted::first || row.gap == 0;
  const auto expected = static_cast<std::int32_t>(isFirst ? 0 : cells - 1);
  std::int32_t found = 0;
  counted(label, [&] { found = engine.mFind(0, x, 0); });
  require(found == (wanted == Wanted::missing ? -1 : expected), label);
}

}  // namespace

std::vector<Measure> findMeasures() {
  constexpr std::size_t cells = 4'000;
  constexpr std::pair<const char*, Wanted> wanted[] = {
      {"first", Wanted::first}, {"last", Wanted::last}, {"none", Wanted::missing}};
  std::vector<Measure> measures;
  for (const Row& row : rowsOfCells) {
    for (const auto& [name, which] : wanted) {
      const auto count = [&row, which = which](std::size_t size, const std::string& label) {
        countFind(row, which, size, label);
      };
      measures.push_back({std::string("a find: ") + row.name + ", " + name, cells, count});
    }
  }
  return measures;
}

}  // namespace tavrel
