// How long does reading a chart take? The engine is new, the file in the page cache.
//
// The peers read the same chart as JSON; what the engine does once a file is parsed is
// done for them by the same code. Engines, readers and finished charts are made and
// destroyed outside the time.

#include <cstring>
#include <functional>
#include <memory>
#include <vector>

#include "bench/Charts.h"
#include "bench/Contest.h"
#include "bench/NlohmannReader.h"
#include "bench/ParsedChart.h"
#include "bench/PlainReader.h"
#include "bench/RapidjsonReader.h"
#include "bench/SimdjsonReader.h"
#include "bench/WholeFile.h"
#include "engine/CTavrel.h"

namespace tavrel::bench {
namespace {

constexpr double seconds = 3;

struct Bars {
  double timesTheFilling, fasterThanPlain, fasterThanSimdjson;
};
constexpr Bars bars = {2.5, 4, 1.6};
constexpr Bars noBars = {noBar, noBar, noBar};

Contestant engineContestant(const Charts& charts) {
  const auto engine = std::make_shared<std::unique_ptr<CTavrel>>();
  const auto work = [&charts, engine] {
    for (std::size_t fc = 0; fc < charts.count(); ++fc) {
      (*engine)->mReadFVFileIfNotAlready(static_cast<std::int32_t>(fc));
    }
  };
  const auto checksum = [&charts, engine] { return checksumOf(**engine, charts.count()); };
  const auto prepare = [&charts, engine] {
    engine->reset();
    *engine = std::make_unique<CTavrel>(charts.directory());
  };
  return {"Tavrel", Rival::itself, noBar, work, checksum, prepare};
}

// A contestant whose work is to put `count` finished charts into a list, one by one.
Contestant maker(const std::string& name, Rival rival, double bar, std::size_t count,
                 const std::function<FilledChart(std::size_t)>& make) {
  const auto made = std::make_shared<std::vector<FilledChart>>();
  const auto work = [made, count, make] {
    for (std::size_t i = 0; i < count; ++i) made->push_back(make(i));
  };
  const auto prepare = [made, count] {
    made->clear();
    made->reserve(count);
  };
  return {name, rival, bar, work, [made] { return checksumOf(*made); }, prepare};
}

template <typename Reader>
Contestant readerContestant(const std::string& name, double bar,
                            const std::vector<std::string>& files) {
  const auto reader = std::make_shared<Reader>();
  return maker(name, Rival::peer, bar, files.size(),
               [reader, &files](std::size_t i) { return filled(reader->parse(files[i])); });
}

// What a chart consists of, parsed and finished; its texts hold as long as it does.
struct ChartInMemory {
  PlainReader reader;
  ParsedChart parsed;
  FilledChart finished;
};

std::shared_ptr<std::vector<ChartInMemory>> inMemory(const Charts& charts) {
  auto all = std::make_shared<std::vector<ChartInMemory>>(charts.count());
  for (std::size_t i = 0; i < charts.count(); ++i) {
    ChartInMemory& chart = (*all)[i];
    chart.parsed = chart.reader.parse(charts.fvFiles()[i]);
    chart.finished = filled(chart.parsed);
  }
  return all;
}

std::size_t linesIn(const WholeFile& file) {
  std::size_t lines = 0;
  for (const char* next = file.begin();; ++next, ++lines) {
    next = static_cast<const char*>(
        std::memchr(next, '\n', static_cast<std::size_t>(file.end() - next)));
    if (next == nullptr) return lines;
  }
}

Contestant lineFloor(const Charts& charts) {
  const auto work = [&charts] {
    for (const std::string& path : charts.fvFiles()) keep(linesIn(wholeFile(path)));
  };
  return {"read and memchr over the lines", Rival::floor, noBar, work};
}

void contestOf(const Charts& charts, const Bars& bar, double time) {
  const auto memory = inMemory(charts);
  const auto copy = [memory](std::size_t i) { return (*memory)[i].finished; };
  const auto fill = [memory](std::size_t i) { return filled((*memory)[i].parsed); };
  const std::vector<std::string>& json = charts.jsonFiles();
  compete(
      {"read a chart", charts.name(), charts.count()},
      {engineContestant(charts), lineFloor(charts),
       maker("filling the records, index copied", Rival::floor, bar.timesTheFilling, charts.count(),
             copy),
       maker("filling the records, index and offsets made", Rival::floor, noBar, charts.count(),
             fill),
       readerContestant<PlainReader>("ifstream and getline", bar.fasterThanPlain, charts.fvFiles()),
       readerContestant<SimdjsonReader>("simdjson On-Demand", bar.fasterThanSimdjson, json),
       readerContestant<RapidjsonSaxReader>("RapidJSON SAX", noBar, json),
       readerContestant<RapidjsonInsituReader>("RapidJSON DOM, in-situ", noBar, json),
       readerContestant<NlohmannReader>("nlohmann", noBar, json)},
      time);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contestOf(smallChart(), bars, time);
  contestOf(smallCharts(), bars, time);
  contestOf(bigChart(), bars, 2 * time);
  contestOf(realCharts(), noBars, time);
}
