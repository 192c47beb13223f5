// Which files might make a flowchart of millions of rows. The engine takes them, up to
// 64 MiB of row starts; one read of such a file takes as long as a thousand others, and so
// one in some thousand of them is tried.

#ifndef TAVREL_TESTS_FUZZ_TALLCHARTS_H
#define TAVREL_TESTS_FUZZ_TALLCHARTS_H

#include <cstddef>
#include <cstdint>
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

/// Whether the engine is to read such a file: by its bytes alone, so that it gets the same
/// treatment whenever it is tried.
inline bool isTriedThoughTall(std::string_view file) {
  constexpr std::uint32_t filesForOneTried = 4096;
  std::uint32_t hash = 2166136261;
  for (const char byte : file) hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619;
  return (hash ^ (hash >> 15)) % filesForOneTried == 0;
}

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_TALLCHARTS_H
