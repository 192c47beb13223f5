// Files that the program writes.

#ifndef TAVREL_HOSTS_TAVREL_OUTPUTFILE_H
#define TAVREL_HOSTS_TAVREL_OUTPUTFILE_H

#include <filesystem>
#include <string_view>

namespace tavrel {

/// Writes the bytes to a temporary file beside the path, and then renames it: nobody sees half
/// of it, and what stood there stays if something goes wrong. Links stay, and so does what is no
/// file, such as a device or a pipe: it is written to. "-" is standard output. Throws Failure
/// when it can't be written, and for a path that ends in .yaml or .yml, or is a link to such:
/// sources are written by people.
void writeOutput(const std::filesystem::path& path, std::string_view bytes);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_OUTPUTFILE_H
