#include "bench/Charts.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "bench/GeneratedChart.h"
#include "bench/JsonChart.h"
#include "bench/PlainReader.h"
#include "tests/support/Files.h"

namespace tavrel::bench {
namespace {

constexpr std::uint64_t seed = 20'240'229;

// The file names of the catalogue; the engine alone knows them in their order.
std::vector<std::string> flowchartNames(std::size_t count) {
  CTavrel engine("");
  std::vector<std::string> names;
  for (std::int32_t fc = 0; names.size() < count; ++fc) {
    engine.mSetStartLocation(fc);
    names.push_back(engine.mCurrentLocation().m_name);
  }
  return names;
}

std::vector<std::string> realFiles() {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(TAVREL_BENCH_CHARTS_DIRECTORY)) {
    if (entry.path().extension() == ".fv") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> files;
  for (const std::string& path : paths) files.push_back(readFile(path));
  return files;
}

}  // namespace

Charts::Charts(std::string name, const std::vector<std::string>& files) : name_(std::move(name)) {
  for (const std::string& flowchart : flowchartNames(files.size())) {
    fvFiles_.push_back(directory_.chart(flowchart));
    jsonFiles_.push_back(directory_.path() / (flowchart + ".json"));
    writeFile(fvFiles_.back(), files[count() - 1]);
    PlainReader reader;
    writeFile(jsonFiles_.back(), jsonOf(reader.parse(fvFiles_.back())));
  }
}

Charts smallChart() { return {"small", {generatedChart(smallSize, seed)}}; }

Charts smallCharts() {
  std::vector<std::string> files;
  for (std::uint64_t i = 0; i < 45; ++i) files.push_back(generatedChart(smallSize, seed + i));
  return {"45 small", files};
}

Charts bigChart() { return {"big", {generatedChart(bigSize, seed)}}; }

Charts realCharts() { return {"real", realFiles()}; }

std::vector<sScreenElement> elementsOf(const Charts& charts) {
  CTavrel engine(charts.directory());
  engine.mSetStartLocation(0);
  return engine.mGetAllElements();
}

}  // namespace tavrel::bench
