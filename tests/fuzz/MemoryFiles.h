// The chart files of a fuzzed navigator, in memory.

#ifndef TAVREL_TESTS_FUZZ_MEMORYFILES_H
#define TAVREL_TESTS_FUZZ_MEMORYFILES_H

#include <optional>
#include <string>
#include <string_view>

namespace tavrel::fuzz {

/// The folder that they are in, without its separator.
inline constexpr char memoryFolder[] = "memory";

/// Gives the flowchart of this file name a file with these bytes.
void putFile(const std::string& name, std::string_view bytes);

/// Takes its file away, or everyone's.
void removeFile(const std::string& name);
void removeAllFiles();

/// The bytes of the file at a path, valid until it is changed; nothing without such a file.
std::optional<std::string_view> bytesOf(const std::string& path);

}  // namespace tavrel::fuzz

#endif  // TAVREL_TESTS_FUZZ_MEMORYFILES_H
