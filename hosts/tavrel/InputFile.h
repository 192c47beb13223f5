// Files that the program reads whole.

#ifndef TAVREL_HOSTS_TAVREL_INPUTFILE_H
#define TAVREL_HOSTS_TAVREL_INPUTFILE_H

#include <filesystem>

#include "authoring/SourceFile.h"

namespace tavrel {

/// The file's bytes; "-" is standard input. Throws Failure when it can't be read, or is larger
/// than 64 MB.
authoring::SourceFile readInput(const std::filesystem::path& path);

/// Whether there is a folder. What can't be looked at is none, and whoever reads it says why.
bool isFolder(const std::filesystem::path& path);

/// Whether there is a file that holds bytes, or nothing yet: no folder, and no pipe or device. What
/// can't be looked at counts too, and whoever reads or writes it says why.
bool isFileOrNothing(const std::filesystem::path& path);

/// When the file was last written; the clock's first moment while it is missing, as a file that is
/// being replaced may be.
std::filesystem::file_time_type lastChange(const std::filesystem::path& path);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_INPUTFILE_H
