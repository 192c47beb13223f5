// How long does it take to start a navigator and list the titles? It ends within the time.

#include <Tavrel/Tavrel.h>

#include <string>
#include <vector>

#include "bench/Checksum.h"
#include "bench/Contest.h"
#include "engine/CTavrel.h"

namespace tavrel::bench {
namespace {

constexpr double seconds = 2;
constexpr double mostNanoseconds = 60'000;

template <typename Titles>
Contestant listing(const std::string& name, Rival rival, double bar, const Titles& titles) {
  const auto checksum = [titles] { return Checksum().add(titles()).value(); };
  return {name, rival, bar, [titles] { keep(titles().data()); }, checksum};
}

void contest(double time) {
  const auto facade = [] { return Tavrel("charts").flowchartTitles(); };
  const auto engine = [] { return CTavrel("charts/").mGetVectorOfFlowchartTitles(); };
  compete({"start and list the titles", "no file read", 1},
          {listing("Tavrel", Rival::itself, mostNanoseconds, facade),
           listing("the engine alone", Rival::floor, noBar, engine)},
          time);
}

}  // namespace
}  // namespace tavrel::bench

int main(int argc, char** argv) {
  using namespace tavrel::bench;
  const double time = secondsAsked(argc, argv, seconds);
  keepFreedMemory();
  contest(time);
}
