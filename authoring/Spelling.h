// Whether bridge is written as players write it.

#ifndef TAVREL_AUTHORING_SPELLING_H
#define TAVREL_AUTHORING_SPELLING_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::authoring {

/// A piece of a text and how it should be written.
struct Misspelling {
  std::size_t offset;  ///< in the text, in bytes
  std::string written;
  std::string wanted;
};

/// The calls in a text that aren't written as 1NT, 2♣, Pass, X or XX: "1 NT", "1N", "2C", "2!c",
/// "3♡", "PASS", "Dbl". What may be cards as well is wrong only where a call is meant: "2 ♣" and
/// "1 N" in "bid 2 ♣", "raise to 2 ♣" and "a 2 ♣ opening", "2s" and "Xx" there and in parentheses.
/// Words of English such as "pass" and "double" are right in a sentence.
std::vector<Misspelling> misspelledCalls(std::string_view text);

/// The same for a text that is one call and nothing else, but for "Bid" or "Call" before it:
/// "pass", "Double", "2s" and "2 ♣" are misspelled there, and "Pass." with a full stop.
std::optional<Misspelling> misspelledLoneCall(std::string_view text);

/// The ranges in a text without an en dash, with blanks round it, or without a blank behind it:
/// "15-17", "8 - 9", "15 – 17", "15-17HCP". Of two numbers the second has to be larger, and no
/// third may follow: 5-4 and 4-3-3-3 are shapes, and so is "4-5 in the majors"; "10-12 July" is
/// a date.
std::vector<Misspelling> misspelledRanges(std::string_view text);

/// What begins like !c !d !h !s, and isn't read as a suit: "!S", "!diamonds".
std::vector<Misspelling> misspelledSuits(std::string_view text);

/// Of each kind the first hundred are found. Cost: linear.
constexpr std::size_t mostMisspellings = 100;

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SPELLING_H
