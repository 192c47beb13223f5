// From the text of a source to lines.

#ifndef TAVREL_AUTHORING_BOXLINES_H
#define TAVREL_AUTHORING_BOXLINES_H

#include <string>
#include <string_view>
#include <vector>

namespace tavrel::authoring {

/// The text with ♣ ♦ ♥ ♠ for !c !d !h !s, unless a letter or digit goes on behind them.
std::string withSuits(std::string_view text);

/// The lines of a text, without empty ones at its end and without blanks at theirs.
std::vector<std::string> linesOf(std::string_view text);

/// The text of a box. Several lines stay as they are; a single one is broken at blanks into as
/// few lines of at most `width` columns as there can be, and these are made as even as can be.
/// A word that is wider stands alone.
std::vector<std::string> boxLines(std::string_view text, int width);

/// A commentary or an introduction: paragraphs, which empty lines part, wrapped at 72 columns.
std::vector<std::string> paragraphLines(std::string_view text);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_BOXLINES_H
