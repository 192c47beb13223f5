// How bytes and lines of words are written in a conversation.

#ifndef TAVREL_TESTS_SUPPORT_NOTATION_H
#define TAVREL_TESTS_SUPPORT_NOTATION_H

#include <stdexcept>
#include <string>
#include <vector>

namespace tavrel {

/// What a reader of the notation throws for text that doesn't follow it. The
/// message says what is wrong; whoever knows the file and the line adds them.
class NotationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One word of a line: a quoted string, held without quotes and escapes, or a
/// run of bytes other than blanks.
struct Word {
  std::string text;
  bool isQuoted;
};

/// `bytes` between double quotes. A quote, a backslash, and control bytes are
/// escaped (\" \\ \n \r \t \xHH); every other byte stands for itself.
std::string quote(const std::string& bytes);

/// `text` with its escapes replaced by the bytes they stand for. Throws
/// NotationError for an escape that `quote` doesn't know.
std::string unescape(const std::string& text);

/// The words of `line`. Throws NotationError for an open quote, and for a quoted
/// string that touches the next word.
std::vector<Word> wordsOf(const std::string& line);

}  // namespace tavrel

#endif  // TAVREL_TESTS_SUPPORT_NOTATION_H
