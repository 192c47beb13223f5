#include "tests/failures/Tally.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace tavrel {
namespace {

constexpr std::size_t mostShown = 20;

bool isNumber(const char* text, long& number) {
  char* end = nullptr;
  number = std::strtol(text, &end, 10);
  return end != text && *end == '\0';
}

}  // namespace

bool print(const std::string& what, const Tally& tally) {
  const std::size_t count = tally.findings.size();
  std::string result = "ok";
  if (tally.tried == 0) result = "nothing was tried";
  if (count > 0) result = std::to_string(count) + " findings";
  const std::string calls = tally.calls > 0 ? " in " + std::to_string(tally.calls) + " calls" : "";
  std::printf("row\t%s\t%ld%s\t%s\n", what.c_str(), tally.tried, calls.c_str(), result.c_str());
  for (std::size_t i = 0; i < std::min(count, mostShown); ++i) {
    std::fprintf(stderr, "%s: %s\n", what.c_str(), tally.findings[i].c_str());
  }
  return result == "ok";
}

Share shareOf(int count, char** words) {
  Share share;
  const bool isShare = count == 3 && isNumber(words[1], share.part) &&
                       isNumber(words[2], share.every) && share.part >= 0 &&
                       share.part < share.every;
  if (count == 1 || isShare) return share;
  std::fprintf(stderr, "usage: %s [PART EVERY], 0 <= PART < EVERY\n", words[0]);
  std::exit(2);
}

}  // namespace tavrel
