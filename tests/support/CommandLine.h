// The words of a command line.

#ifndef TAVREL_TESTS_SUPPORT_COMMANDLINE_H
#define TAVREL_TESTS_SUPPORT_COMMANDLINE_H

#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <system_error>

namespace tavrel {

/// What is thrown for a command line that a program can't follow.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The number that the word is: decimal digits and nothing else. Throws WrongUse for any
/// other word, and for a number that 64 bits don't hold.
inline std::uint64_t number(const std::string& word) {
  std::uint64_t value = 0;
  const char* const end = word.data() + word.size();
  const auto [rest, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc() || rest != end) throw WrongUse(word + " is not a number");
  return value;
}

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_COMMANDLINE_H
