// Text as it may stand in a picture's file.

#ifndef TAVREL_DRAWING_SVGMARKUP_H
#define TAVREL_DRAWING_SVGMARKUP_H

#include <string>
#include <string_view>

namespace tavrel::drawing {

/// Printable text without the two characters that are printable and that XML
/// forbids, U+FFFE and U+FFFF: they become U+FFFD.
std::string xmlText(std::string_view text);

/// A file's name as a link says it: every byte but letters, digits and - . _ ~ as
/// a percent sign and two digits.
std::string linkTo(std::string_view fileName);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_SVGMARKUP_H
