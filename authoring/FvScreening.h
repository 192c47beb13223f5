// Bytes that have no business in a flowchart file.

#ifndef TAVREL_AUTHORING_FVSCREENING_H
#define TAVREL_AUTHORING_FVSCREENING_H

#include <cstddef>
#include <vector>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// Places where a file has the same fault, which are likely to be many: ten are said, and how many
/// follow them.
class Places {
 public:
  /// A place by its offset in the file. Places are added in their order.
  void add(std::size_t offset);

  std::size_t count() const { return count_; }

  /// Says that there is a fault at each: `text` and `cure` of a diagnostic.
  void say(const SourceFile& file, Code code, const char* text, const char* cure,
           Diagnostics& found) const;

 private:
  std::vector<std::size_t> first_;
  std::size_t count_ = 0;
};

/// Says which bytes are not UTF-8, which are byte order marks, carriage returns or control
/// characters. Tabs and other blanks of ASCII may stand between numbers, and are left to the
/// reader. False if the file is in UTF-16, and there is no use in reading it. Cost: a few passes.
bool mayFvBeRead(const SourceFile& file, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_FVSCREENING_H
