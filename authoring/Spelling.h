// Whether bridge is written as players write it.

#ifndef TAVREL_AUTHORING_SPELLING_H
#define TAVREL_AUTHORING_SPELLING_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel::authoring {

/// A piece of a text and how it should be written.
struct Misspelling {
  std::size_t offset;  ///< in the text, in bytes
  std::string written;
  std::string wanted;
};

/// The first call in a text that isn't written as 1NT, 2♣, Pass, X or XX: "1 NT", "1N", "2C",
/// "2!c", "3♡", "PASS", "Dbl". A blank between a number and a suit is none, since hands are
/// written so; nor are words of English such as "pass" and "double" in a sentence.
std::optional<Misspelling> misspelledCall(std::string_view text);

/// The same for a text that is one call and nothing else, but for "Bid" or "Call" before it:
/// "pass" and "Double" are misspelled there.
std::optional<Misspelling> misspelledLoneCall(std::string_view text);

/// The first range in a text without an en dash: "15-17", "8 - 9". Of two numbers the second
/// has to be larger, and no third may follow: 5-4 and 4-3-3-3 are shapes.
std::optional<Misspelling> misspelledRange(std::string_view text);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_SPELLING_H
