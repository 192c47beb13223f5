// What a program of random trials is told to do.

#ifndef TAVREL_TESTS_SUPPORT_TRIALOPTIONS_H
#define TAVREL_TESTS_SUPPORT_TRIALOPTIONS_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tests/support/CommandLine.h"

namespace tavrel {

/// Many trials, of the seeds `first`, `first` + 1 ..., or that of one seed, or those in files.
struct TrialOptions {
  std::uint64_t count = 0, first = 1, threads = 1, least = 0, seed = 0;
  bool hasSeed = false;
  std::string figures;  // the file for them, if any
  std::vector<std::string> files;
};

inline void takeOption(const std::string& name, const std::string& value,
                       const std::string& countName, TrialOptions& options) {
  const std::map<std::string, std::uint64_t*> numbers = {{countName, &options.count},
                                                         {"--first", &options.first},
                                                         {"--threads", &options.threads},
                                                         {"--least", &options.least},
                                                         {"--seed", &options.seed}};
  if (name == "--figures") {
    options.figures = value;
  } else if (numbers.count(name) > 0) {
    *numbers.at(name) = number(value);
    options.hasSeed |= name == "--seed";
  } else {
    throw WrongUse("unknown option " + name);
  }
}

/// `countName` is the option for `count`, such as "--count". Throws WrongUse for words that say
/// something else, or nothing.
inline TrialOptions trialOptionsOf(const std::vector<std::string>& words,
                                   const std::string& countName) {
  TrialOptions options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].compare(0, 2, "--") != 0) {
      options.files.push_back(words[i]);
    } else if (i + 1 == words.size()) {
      throw WrongUse(words[i] + " takes a value");
    } else {
      takeOption(words[i], words[i + 1], countName, options);
      ++i;
    }
  }
  const bool isAny = options.count > 0 || options.hasSeed || !options.files.empty();
  if (!isAny || options.threads == 0) throw WrongUse("nothing to do");
  return options;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_TRIALOPTIONS_H
