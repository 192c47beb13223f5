// Whole files, in and out.

#ifndef TAVREL_TESTS_CONVERSATIONS_FILES_H
#define TAVREL_TESTS_CONVERSATIONS_FILES_H

#include <filesystem>
#include <string>

namespace tavrel {

/// The bytes of a file. Throws std::ios_base::failure when it can't be read.
std::string readFile(const std::filesystem::path& path);

/// Gives a file these bytes. It is written under another name first, so that it
/// is there whole, old or new, at every moment. Throws std::ios_base::failure or
/// std::filesystem::filesystem_error when that can't be done.
void writeFile(const std::filesystem::path& path, const std::string& bytes);

}  // namespace tavrel

#endif  // TAVREL_TESTS_CONVERSATIONS_FILES_H
