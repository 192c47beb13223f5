#include "hosts/tavrel/ChartFiles.h"

#include <fstream>
#include <string>
#include <system_error>

#include "hands/ConditionCompiler.h"
#include "hands/Conditions.h"
#include "hosts/tavrel/Failure.h"
#include "hosts/tavrel/InputFile.h"
#include "hosts/tavrel/OutputFile.h"

namespace tavrel {
namespace {

namespace fs = std::filesystem;

// A file of that name may be anything where the caller has chosen the name.
bool areConditions(const fs::path& path) {
  std::string start(hands::conditionsStart.size(), '\0');
  return isFileOrNothing(path) &&
         std::ifstream(path, std::ios::binary)
             .read(start.data(), static_cast<std::streamsize>(start.size())) &&
         start == hands::conditionsStart;
}

void removeConditions(const fs::path& path) {
  if (!areConditions(path)) return;
  std::error_code failed;
  fs::remove(path, failed);
  if (failed) throw Failure("cannot remove '" + path.string() + "': " + failed.message());
}

}  // namespace

fs::path conditionsBeside(const fs::path& flowchart) {
  return fs::path(flowchart).replace_extension(".when");
}

void writeChart(const fs::path& flowchart, const authoring::CompiledChart& chart) {
  if (flowchart == "-" || !isFileOrNothing(flowchart)) return writeOutput(flowchart, chart.bytes);
  const fs::path conditions = conditionsBeside(flowchart);
  if (conditions == flowchart) {
    throw Failure("cannot write '" + flowchart.string() +
                  "': conditions have such a name; write a flowchart's behind -o");
  }
  writeOutput(flowchart, chart.bytes);
  if (hands::hasConditions(chart.source)) {
    writeOutput(conditions, conditionsFile(hands::conditionsOf(chart)));
  } else {
    removeConditions(conditions);
  }
}

}  // namespace tavrel
