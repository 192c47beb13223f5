// How often each of the things was met that a run of random trials should meet: figures that
// show what the trials were about.

#ifndef TAVREL_TESTS_SUPPORT_TIMESMET_H
#define TAVREL_TESTS_SUPPORT_TIMESMET_H

#include <array>
#include <cinttypes>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "tests/support/CommandLine.h"
#include "tests/support/Files.h"

namespace tavrel {

/// `Thing` is an enumeration of `count` things, numbered from 0.
template <typename Thing, std::size_t count>
struct TimesMet {
  std::array<std::uint64_t, count> times{};

  void meet(Thing thing, bool isMet = true) {
    times[static_cast<std::size_t>(thing)] += isMet ? 1 : 0;
  }
  void add(const TimesMet& other) {
    for (std::size_t i = 0; i < count; ++i) times[i] += other.times[i];
  }
};

/// Writes how often each thing was met, with the words for it; returns how many were met fewer
/// than `least` times.
template <typename Thing, std::size_t count>
int report(const TimesMet<Thing, count>& met, const char* const (&words)[count],
           std::uint64_t least, std::FILE* to) {
  int seldom = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const bool isSeldom = met.times[i] < least;
    seldom += isSeldom ? 1 : 0;
    std::fprintf(to, "%12" PRIu64 "  %s%s\n", met.times[i], words[i],
                 isSeldom ? "  (too seldom)" : "");
  }
  return seldom;
}

/// The same into the file of that name, or to standard output without one. Throws WrongUse when
/// the file can't be written.
template <typename Thing, std::size_t count>
int report(const TimesMet<Thing, count>& met, const char* const (&words)[count],
           std::uint64_t least, const std::string& figures) {
  if (figures.empty()) return report(met, words, least, stdout);
  OpenFile file(std::fopen(figures.c_str(), "w"));
  const int seldom = file ? report(met, words, least, file.get()) : 0;
  const bool isWritten = file && std::ferror(file.get()) == 0;
  if (!isWritten || std::fclose(file.release()) != 0) throw WrongUse("can't write " + figures);
  return seldom;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_TIMESMET_H
