// A file that someone wrote, and the places in it.

#ifndef TAVREL_AUTHORING_SOURCEFILE_H
#define TAVREL_AUTHORING_SOURCEFILE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::authoring {

/// A place as editors show it. Lines and columns count from 1, columns in characters.
struct Place {
  std::size_t line = 1;
  std::size_t column = 1;

  friend bool operator==(const Place& a, const Place& b) {
    return a.line == b.line && a.column == b.column;
  }
  friend bool operator<(const Place& a, const Place& b) {
    return a.line < b.line || (a.line == b.line && a.column < b.column);
  }
};

/// The bytes of a file, whatever they are. Never changes.
class SourceFile {
 public:
  /// `name` is what messages call the file. Cost: one pass.
  SourceFile(std::string name, std::string bytes);

  const std::string& name() const { return name_; }
  std::string_view bytes() const { return bytes_; }

  /// At least 1; the last line may be empty.
  std::size_t lineCount() const { return starts_.size(); }

  /// A line, from 1, without its line feed; empty beyond the last.
  std::string_view line(std::size_t number) const;

  /// The place of a byte. One beyond the end is just behind the last. Cost: the logarithm of the
  /// number of lines, however long they are.
  Place placeOf(std::size_t offset) const;

  /// The offset of a character, or that of the line's end where the line is shorter. Cost: as
  /// that of placeOf(). REQUIRES: 1 <= place.line <= lineCount(), 1 <= place.column.
  std::size_t offsetOf(Place place) const;

  /// The offset of a line's first byte. REQUIRES: 1 <= number <= lineCount().
  std::size_t startOf(std::size_t number) const { return starts_[number - 1]; }

 private:
  std::size_t charactersBefore(std::size_t offset) const;

  std::string name_;
  std::string bytes_;
  std::vector<std::size_t> starts_;
  std::vector<std::size_t> characters_;  // how many begin before each block of bytes
};

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCEFILE_H
