// The most memory that a read needs, for each kind of file. Prints a line for each,
// its fields divided by tabs: the kind, then in bytes the file, what the elements, the
// introduction and the index of the flowchart hold more afterwards, the starts of the
// rows, and the peak of the read above what was in use before.

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "engine/CTavrel.h"
#include "tests/limits/Counted.h"
#include "tests/limits/GrowingFiles.h"
#include "tests/limits/MemoryPeak.h"
#include "tests/support/ChartFile.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/Thrown.h"

namespace tavrel {
namespace {

// The memory of a block of so many bytes, as MemoryPeak.h counts it.
std::size_t blockOf(std::size_t bytes) {
  constexpr std::size_t page = 4096, mapped = 128 * 1024;
  if (bytes == 0) return 0;
  if (bytes >= mapped) return (bytes + 16 + page - 1) / page * page - 16;
  return std::max<std::size_t>(24, (bytes + 8 + 15) / 16 * 16 - 8);
}

std::size_t heldBy(const std::string& text) {
  static const std::size_t inPlace = std::string().capacity();
  return text.capacity() > inPlace ? blockOf(text.capacity() + 1) : 0;
}

std::size_t heldBy(const Lines& lines) {
  std::size_t bytes = blockOf(lines.capacity() * sizeof(std::string));
  for (const std::string& line : lines) bytes += heldBy(line);
  return bytes;
}

// The elements, the introduction, and an index of three numbers for each element.
std::size_t heldBy(const CTavrel& engine) {
  constexpr std::size_t indexed = 12;
  const auto& elements = EngineAccess::screenElements(engine).at(0);
  std::size_t bytes = heldBy(EngineAccess::flowchartIntros(engine).at(0)) +
                      blockOf(elements.size() * sizeof(sScreenElement)) +
                      blockOf(elements.size() * indexed);
  for (const sScreenElement& element : elements) {
    bytes += heldBy(element.m_newFlowchartName) + heldBy(element.m_boxText) +
             heldBy(element.m_commentText);
  }
  return bytes;
}

std::size_t rowStartsHeld(const CTavrel& engine) {
  return EngineAccess::rowStarts(engine).at(0).capacity() * sizeof(std::int32_t);
}

std::size_t rowsOf(const CTavrel& engine) {
  const std::int64_t rows =
      std::int64_t{engine.mGetCurrentFlowchartMaxY()} - engine.mGetCurrentFlowchartMinY() + 1;
  return static_cast<std::size_t>(rows);
}

void measure(const GrowingFile& kind) {
  const FileToRead file = kind.make(4 * kind.number);
  writeFile("Opening.fv", file.bytes);
  CTavrel engine("./");
  const std::size_t startsBefore = rowStartsHeld(engine);
  const std::size_t heldBefore = heldBy(engine);
  const std::size_t before = memoryInUse();
  takeMemoryPeak();
  std::string thrown = typeThrown([&] { engine.mReadFVFileIfNotAlready(0); });
  const std::size_t peak = takeMemoryPeak() - before;
  // Not all that stays is the elements': what else an engine kept would be too much.
  const auto held = static_cast<std::int64_t>(memoryInUse()) - static_cast<std::int64_t>(before);
  const auto starts = static_cast<std::int64_t>(rowStartsHeld(engine) - startsBefore);
  require(thrown.empty() != file.throws, kind.name + (": threw " + thrown));
  require(EngineAccess::screenElements(engine).at(0).size() == file.elements, kind.name);
  const auto records =
      static_cast<std::int64_t>(heldBy(engine)) - static_cast<std::int64_t>(heldBefore);
  std::cout << kind.name << '\t' << file.bytes.size() << '\t' << std::min(held - starts, records)
            << '\t' << 4 * (rowsOf(engine) + 1) << '\t' << peak << '\n';
}

}  // namespace
}  // namespace tavrel

int main(int, char** argv) {
  try {
    const tavrel::TemporaryDirectory directory;
    std::filesystem::current_path(directory.path());
    for (const tavrel::GrowingFile& kind : tavrel::growingFiles()) tavrel::measure(kind);
  } catch (const std::exception& exception) {
    std::cerr << argv[0] << ": " << exception.what() << '\n';
    return 1;
  }
}
