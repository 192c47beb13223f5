// Reading and moving, each beside what cannot be saved: filling the same records
// from memory, and stepping from element to element by pointers.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/GeneratedChart.h"
#include "engine/CTavrel.h"

namespace tavrel {
namespace {

constexpr std::size_t connectorsPerLine = 4;

const ChartDirectory& chart(std::size_t boxes) {
  static std::vector<std::pair<std::size_t, std::unique_ptr<ChartDirectory>>> made;
  for (const auto& [size, directory] : made) {
    if (size == boxes) return *directory;
  }
  const std::size_t columns = boxes < 1000 ? 8 : 100;
  made.emplace_back(
      boxes, std::make_unique<ChartDirectory>(generatedChart(boxes, columns, connectorsPerLine)));
  return *made.back().second;
}

std::size_t boxesOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

std::vector<sScreenElement> elementsOf(const ChartDirectory& directory) {
  CTavrel engine(directory.path());
  engine.mSetStartLocation(0);
  return engine.mGetAllElements();
}

// The engine is built and destroyed outside the time taken.
void readChart(benchmark::State& state) {
  const ChartDirectory& directory = chart(boxesOf(state));
  for (auto _ : state) {
    state.PauseTiming();
    auto engine = std::make_unique<CTavrel>(directory.path());
    state.ResumeTiming();
    engine->mReadFVFileIfNotAlready(0);
    state.PauseTiming();
    engine.reset();
    state.ResumeTiming();
  }
}

void fillRecords(benchmark::State& state) {
  const std::vector<sScreenElement> elements = elementsOf(chart(boxesOf(state)));
  for (auto _ : state) {
    state.PauseTiming();
    auto copy = std::make_unique<std::vector<sScreenElement>>();
    state.ResumeTiming();
    copy->reserve(elements.size());
    for (const sScreenElement& element : elements) copy->push_back(element);
    benchmark::DoNotOptimize(copy->data());
    state.PauseTiming();
    copy.reset();
    state.ResumeTiming();
  }
}

// From the first box to the last along yes; the time is that of all cells passed.
void moveYes(benchmark::State& state) {
  CTavrel engine(chart(boxesOf(state)).path());
  for (auto _ : state) {
    engine.mSetStartLocation(0);
    for (std::size_t box = 1; box < boxesOf(state); ++box) engine.mMoveYes();
  }
  const std::size_t cells = (boxesOf(state) - 1) * (connectorsPerLine + 1);
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(cells));
}

// The same way over the same elements, each knowing the next.
void followPointers(benchmark::State& state) {
  std::vector<sScreenElement> elements = elementsOf(chart(boxesOf(state)));
  const std::size_t boxes = boxesOf(state);
  struct Linked {
    const sScreenElement* element;
    const Linked* next;
  };
  std::vector<Linked> way;
  for (std::size_t box = 0; box < boxes; ++box) {
    way.push_back({&elements[box], nullptr});
    for (std::size_t cell = 0; box + 1 < boxes && cell < connectorsPerLine; ++cell) {
      way.push_back({&elements[boxes + box * connectorsPerLine + cell], nullptr});
    }
  }
  for (std::size_t i = 0; i + 1 < way.size(); ++i) way[i].next = &way[i + 1];
  for (auto _ : state) {
    for (const Linked* at = &way.front(); at; at = at->next) {
      benchmark::DoNotOptimize(at->element->m_isNode);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(way.size() - 1));
}

void startEngine(benchmark::State& state) {
  for (auto _ : state) {
    CTavrel engine("/nowhere/");
    benchmark::DoNotOptimize(engine.mGetVectorOfFlowchartTitles());
  }
}

BENCHMARK(readChart)->Arg(60)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(fillRecords)->Arg(60)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(moveYes)->Arg(60)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(followPointers)->Arg(60)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(startEngine)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tavrel

// Memory that was freed is kept for the next round: what the kernel takes to hand
// out fresh pages would otherwise stand in some rounds and not in others.
int main(int argc, char** argv) {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
