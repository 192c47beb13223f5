// One fault at many places of a file.

#ifndef TAVREL_AUTHORING_PLACES_H
#define TAVREL_AUTHORING_PLACES_H

#include <cstddef>
#include <vector>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Places where a file has the same fault, which may be very many. A hundred are named, and how
/// many follow them; those side by side are one.
class Places {
 public:
  /// A place by its offset in the file, of so many bytes. Places are added in their order.
  void add(std::size_t offset, std::size_t size = 1);

  /// Says that there is a fault at each: `text` and `cure` of a diagnostic.
  void say(const SourceFile& file, Code code, const char* text, const char* cure,
           Diagnostics& found) const;

 private:
  std::vector<std::size_t> named_;
  std::size_t count_ = 0;
  std::size_t end_ = 0;  // of the last
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_PLACES_H
