// Which files might make a flowchart of millions of rows. The engine takes them, up to
// 64 MiB of row starts; one read of such a file takes as long as a thousand others.

#ifndef TAVREL_TESTS_FUZZ_TALLCHARTS_H
#define TAVREL_TESTS_FUZZ_TALLCHARTS_H

#include <cstddef>
#include <string_view>

namespace tavrel::fuzz {

/// Whether a number between 100,000 and 99,999,999 may stand in the file.
inline bool mayBeTall(std::string_view file) {
  constexpr std::size_t fewestDigits = 6, mostDigits = 8;
  std::size_t digits = 0;
  for (const char byte : file) {
    if ('0' <= byte && byte <= '9') {
      if (digits > 0 || byte != '0') ++digits;
      continue;
    }
    if (fewestDigits <= digits && digits <= mostDigits) return true;
    digits = 0;
  }
  return fewestDigits <= digits && digits <= mostDigits;
}

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_TALLCHARTS_H
