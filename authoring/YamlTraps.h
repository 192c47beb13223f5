// Where YAML doesn't read what an author means.

#ifndef TAVREL_AUTHORING_YAMLTRAPS_H
#define TAVREL_AUTHORING_YAMLTRAPS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "authoring/Diagnostic.h"

namespace tavrel::authoring {

/// The usual cure.
extern const char* const quoteIt;

/// What is said of a text between braces that has no double quotes.
extern const char* const wantsDoubleQuotes;

/// The cure for such a text, which may begin with a quote that is none to YAML: “, or another that
/// editors of letters write.
std::string quoteCureFor(std::string_view text);

/// What is said of a text behind the quote that closes it, and the cure.
extern const char* const goesOnBehind;
extern const char* const quoteAll;

/// What is wrong with a value, which wants quotes as a rule.
struct Trap {
  std::size_t offset;  ///< in the line, in bytes
  std::string text;
  std::string cure = quoteIt;
  Code code = Code::mustBeQuoted;
  bool isCertain = true;  ///< YAML can't read it; else it is read as something else
  bool isColon = false;   ///< it is one that YAML takes for the end of a key
};

/// Whether a key or an id may have the character, or nearly so.
bool isKeyCharacter(char c);

/// A trap in a line of the form "key: value", with or without "- " before it; nothing where
/// there is none. A value that stands in quotes from end to end has none.
std::optional<Trap> trapIn(std::string_view line);

/// The same for the value of a key that begins at an offset of a line, which holds no more of it.
std::optional<Trap> trapInValue(std::string_view line, std::size_t offset, std::string_view key);

/// Where in a line the plain text that begins at an offset is followed by what YAML takes for
/// a comment; npos for none.
std::size_t commentBehind(std::string_view line, std::size_t offset);

/// Where the quoted text that begins at an offset ends: the offset of its closing quote, npos
/// for none.
std::size_t closingQuote(std::string_view bytes, std::size_t offset);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_YAMLTRAPS_H
