// What is looked at before a source is given to the reader of YAML.

#ifndef TAVREL_AUTHORING_SOURCESCREENING_H
#define TAVREL_AUTHORING_SOURCESCREENING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "authoring/Diagnostic.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// A source without what may not stand in it, so that all else that is wrong can be found too.
/// Its lines are those of the file.
class Screened {
 public:
  /// Where the bytes behind an offset stand in the file: so many further on.
  struct Shift {
    std::uint32_t offset;
    std::int32_t bytes;
  };

  Screened(SourceFile text, std::vector<Shift> shifts, std::size_t doubtfulLine)
      : text_(std::move(text)), shifts_(std::move(shifts)), doubtfulLine_(doubtfulLine) {}

  const SourceFile& text() const { return text_; }

  /// The place in the file of what stands at one in the text.
  Place placeIn(const SourceFile& file, Place place) const;

  /// The line from which on tabs or carriage returns may be why YAML can't read the text; none
  /// of its lines has that number if there are none.
  std::size_t doubtfulLine() const { return doubtfulLine_; }

 private:
  SourceFile text_;
  std::vector<Shift> shifts_;  // by their offsets in the text
  std::size_t doubtfulLine_;
};

/// A source is of bearable size, in UTF-8 without a byte order mark, without tabs and other
/// control characters but for the line ends of Windows and Unix, and has no more brackets within
/// brackets and values between them than a reader can bear. Each place where that is not so is a
/// diagnostic, and taken out of the text; of very many of a kind, the first. Nothing comes back
/// where that makes no sense. Cost: a few passes.
std::optional<Screened> screen(const SourceFile& file, Diagnostics& found);

/// The values that a source may have. Those that only a reader of YAML sees are counted there.
constexpr std::size_t mostValues = 100'000;

/// Says that there are more, at the first of these.
void sayTooManyValues(Place place, Diagnostics& found);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SOURCESCREENING_H
