// The lines of a flowchart file that hold numbers.

#ifndef TAVREL_AUTHORING_NUMBERLINE_H
#define TAVREL_AUTHORING_NUMBERLINE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// The integers at the beginning of a line. What follows them is a comment.
struct NumberLine {
  static constexpr std::size_t most = 8;  ///< one more than any line should have

  std::size_t count = 0;
  std::array<std::int32_t, most> numbers = {};
  std::array<std::size_t, most> offsets = {};  ///< of their first bytes, in the line
  bool isTooLarge = false;                     ///< what stops the reading is no integer of 32 bits
  std::size_t end = 0;                         ///< where the reading stopped, in the line
};

/// Reads up to NumberLine::most integers with blanks between them. An integer has a blank or
/// the line's end behind it.
NumberLine readNumberLine(std::string_view line);

/// Whether a line holds nothing but blanks.
bool isBlank(std::string_view line);

/// Where the n-th integer of a line stands, from 0; its end if there are fewer.
Place placeOfNumber(const SourceFile& file, std::size_t line, std::size_t n);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_NUMBERLINE_H
