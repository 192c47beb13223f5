// Contestants for the same work, timed in alternation.
//
// Each round runs every contestant once, in an order that rotates from round to round,
// so that whatever slows the machine down meets them all alike. Times are of the
// thread's processor: what other programs take in between doesn't count, the kernel's
// work for this one does. Ratios are taken within each round; medians and quartiles
// are those of all rounds.

#ifndef TAVREL_BENCH_CONTEST_H
#define TAVREL_BENCH_CONTEST_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tavrel::bench {

/// Tells the compiler that a value is wanted, so that the work for it stays.
template <typename Value>
void keep(const Value& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

/// How the first contestant, Tavrel, is held against another one.
enum class Rival {
  itself,  ///< Tavrel, without anyone to compare with
  floor,   ///< work that can't be saved: how many times as long Tavrel takes
  peer,    ///< another way to do the same: how many times faster Tavrel is
};

constexpr double noBar = 0;

struct Contestant {
  std::string name;
  Rival rival;
  /// What the ratio may be at most for a floor, has to be at least for a peer; for
  /// Tavrel the most nanoseconds that one piece of work may take. Or noBar.
  double bar;
  /// The work, timed.
  std::function<void()> work;
  /// Over everything that the work makes; the same for all contestants. Empty for one
  /// that makes something else.
  std::function<std::uint64_t()> checksum = {};
  /// What comes before every work, and is not timed. May be empty.
  std::function<void()> prepare = {};
};

/// What a contest is about.
struct Question {
  std::string name;    ///< such as "read a chart"
  std::string input;   ///< such as "small"
  std::size_t pieces;  ///< how many equal pieces each contestant's work has
};

/// Runs the contestants, Tavrel first, for about `seconds` and at least `leastRounds`
/// rounds. Prints a row for each. Ends the program with status 2 when checksums differ.
void compete(const Question& question, const std::vector<Contestant>& contestants, double seconds);

/// Prints a row for something that was counted instead of timed.
void reportCount(const Question& question, const std::string& what, std::size_t count,
                 std::size_t bar);

/// Seconds for each contest of the program: its argument, or `usual` without one. Ends
/// the program with status 2 for any other arguments.
double secondsAsked(int argc, char** argv, double usual);

/// Keeps freed memory for the next round: what the kernel takes to hand out fresh pages
/// would stand in some rounds and not in others.
void keepFreedMemory();

}  // namespace tavrel::bench

#endif  // TAVREL_BENCH_CONTEST_H
