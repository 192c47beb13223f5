// Text for terminals: what may be printed, how wide it is, where it wraps.
//
// Text is UTF-8. A byte that is no part of well-formed UTF-8 is taken as a
// character of its own, so every function here takes any bytes. Costs are linear
// in the text.

#ifndef TAVREL_TEXT_TEXT_H
#define TAVREL_TEXT_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// What the output can show.
enum class Charset {
  utf8,  ///< all of Unicode
  plain  ///< ASCII alone
};

/// The text without anything that could move a terminal's cursor, change the
/// direction of writing or break a line: control characters, line and paragraph
/// separators, the embeddings, overrides and isolates of bidirectional text, and
/// bytes that are not UTF-8 become U+FFFD each. The emoji selector after ♣ ♦ ♥ ♠
/// is dropped, since terminals draw emoji two columns wide.
///
/// In plain, every grapheme cluster becomes ASCII: the suits their letters C D H
/// S, dashes, quotes, arrows and comparisons what a typewriter has for them
/// ("15–17" becomes "15-17", "≥" ">="), letters lose their accents, and whatever
/// is left is one '?'.
std::string printable(std::string_view text, Charset charset);

/// The columns that printable text takes on a terminal. Wide characters take 2,
/// combining ones 0, and no grapheme cluster more than 2.
int displayWidth(std::string_view text);

/// One grapheme cluster: what a reader takes for one character.
struct Glyph {
  std::string_view bytes;  ///< a part of the text asked about
  int width;               ///< in columns, 0 to 2
};

/// The grapheme clusters of the text, in order. A variation selector belongs to
/// the character before it. The text must outlive the answer.
std::vector<Glyph> glyphs(std::string_view text);

/// The lines, each wrapped by itself so that none takes more than `width`
/// columns. Lines wrap at blanks, which the wrapping drops; a word wider than the
/// width is broken. A line that fits stays as it is, and so do empty lines. A
/// width below 1 counts as 1; a wide character that doesn't fit has a line to
/// itself.
std::vector<std::string> wrapped(const std::vector<std::string>& lines, int width);

/// The lines as they are where all of them fit into `width` columns. Otherwise they
/// flow: lines that follow one another become one and wrap as in `wrapped`. A line
/// that is empty or begins with a blank does not join the one before it, and nothing
/// joins an empty line.
std::vector<std::string> flowed(const std::vector<std::string>& lines, int width);

}  // namespace tavrel

#endif  // TAVREL_TEXT_TEXT_H
