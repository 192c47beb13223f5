// Reading files that grow.

#include "engine/CTavrel.h"
#include "tests/limits/Counted.h"
#include "tests/limits/GrowingFiles.h"
#include "tests/limits/Measures.h"
#include "tests/support/EngineAccess.h"
#include "tests/support/Files.h"
#include "tests/support/Thrown.h"

namespace tavrel {
namespace {

void countReading(const FileToRead& file, const std::string& label) {
  writeFile("Opening.fv", file.bytes);
  CTavrel engine("./");
  std::string thrown;
  counted(label, [&] { thrown = typeThrown([&] { engine.mReadFVFileIfNotAlready(0); }); });
  require(thrown.empty() != file.throws, label + ": threw " + thrown);
  const std::size_t elements = EngineAccess::screenElements(engine).at(0).size();
  require(elements == file.elements, label + ": " + std::to_string(elements) + " elements");
}

}  // namespace

std::vector<Measure> readingMeasures() {
  std::vector<Measure> measures;
  for (const GrowingFile& file : growingFiles()) {
    measures.push_back({std::string("reading: ") + file.name, file.number,
                        [make = file.make](std::size_t size, const std::string& label) {
                          countReading(make(size), label);
                        }});
  }
  return measures;
}

}  // namespace tavrel
