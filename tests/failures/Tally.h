// What a trial of many cases comes to, and which share of the cases it takes.

#ifndef TAVREL_TESTS_FAILURES_TALLY_H
#define TAVREL_TESTS_FAILURES_TALLY_H

#include <string>
#include <vector>

namespace tavrel {

/// What was tried, and what fell short of the rules.
struct Tally {
  long calls = 0;                     ///< the calls that were made to fail, where it was calls
  long tried = 0;                     ///< in how many ways it was tried
  std::vector<std::string> findings;  ///< empty if all went well
};

/// Of all cases the one in each `every` whose number leaves `part`.
struct Share {
  long part = 0;
  long every = 1;

  bool takes(long number) const { return number % every == part; }
};

/// Prints a row of the table of scripts/verify, and the findings on standard error. True if
/// there were none and something was tried.
bool print(const std::string& what, const Tally& tally);

/// The share that a program's arguments, PART and EVERY, ask for; all without arguments.
/// Ends the program with status 2 if they are not that.
Share shareOf(int count, char** words);

}  // namespace tavrel

#endif  // TAVREL_TESTS_FAILURES_TALLY_H
