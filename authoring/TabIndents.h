// Lines that are indented by tabs, and what their author may have meant.

#ifndef TAVREL_AUTHORING_TABINDENTS_H
#define TAVREL_AUTHORING_TABINDENTS_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace tavrel::authoring {

/// Finds out how many blanks a line would have before it, had its author written no tabs: from
/// the keys of the lines above. So the rest of the file can be read, tabs or no tabs.
class TabIndents {
 public:
  /// The blanks of the next line. `tabbed` is what stands before it, blanks and tabs; `content`
  /// is the rest, and neither empty nor a remark. Cost: that of the line's key and of the levels
  /// above it.
  std::size_t blanksOf(std::string_view tabbed, std::string_view content);

 private:
  // A key that what comes now may belong to, or stand beside.
  struct Level {
    std::string_view tabbed;
    std::size_t blanks;
    bool isOfBox;  // the key is one of those that a box has
    bool isOpen;   // nothing stands behind the key
  };

  std::size_t guessed(std::string_view tabbed, std::string_view key) const;

  std::vector<Level> levels_;
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_TABINDENTS_H
