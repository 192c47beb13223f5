#include "authoring/ExpressionPlace.h"

#include <algorithm>
#include <string_view>

#include "text/Utf8.h"

namespace tavrel::authoring {
namespace {

// The bytes of a value in its file, which are those of its text but for blanks, the ends of lines,
// quotes and escapes. Blanks are what YAML folds: all else has the order that it has in the text.
class WrittenValue {
 public:
  WrittenValue(std::string_view bytes, std::size_t begin) : bytes_(bytes), at_(begin) {
    const char first = byteAt(begin);
    if (first == '"' || first == '\'') {
      quote_ = first;
      ++at_;
    } else if (first == '|' || first == '>') {
      at_ = std::min(bytes.find('\n', begin), bytes.size());  // what stands there is no text
    }
  }

  std::size_t offset() const { return at_; }

  void passBlanks() {
    while (at_ < bytes_.size() && (isBlank(bytes_[at_]) || isJoined())) ++at_;
  }

  /// Moves on over blanks of one line, `most` at most.
  void passBlanks(std::size_t most) {
    for (; most > 0 && byteAt(at_) == ' '; --most) ++at_;
  }

  /// Moves to a byte of the text, which follows. Returns false if something else stands here.
  bool moveTo(char wanted) {
    const bool isEscape = quote_ == '"' && byteAt(at_) == '\\';
    if (isEscape) ++at_;
    return byteAt(at_) == wanted && (!isEscape || wanted == '"' || wanted == '\\');
  }

  /// Moves behind it.
  void pass() { at_ += quote_ == '\'' && byteAt(at_) == '\'' ? 2 : 1; }

 private:
  static bool isBlank(char c) { return c == ' ' || c == '\n' || c == '\r'; }

  // A backslash at the end of a line.
  bool isJoined() const {
    if (quote_ != '"' || bytes_[at_] != '\\') return false;
    return byteAt(at_ + 1) == '\n' || byteAt(at_ + 1) == '\r';
  }

  char byteAt(std::size_t offset) const { return offset < bytes_.size() ? bytes_[offset] : '\0'; }

  std::string_view bytes_;
  std::size_t at_;
  char quote_ = '\0';
};

}  // namespace

Place placeIn(const SourceFile& file, const SourceExpression& expression, std::size_t byte) {
  const std::string_view text = expression.text;
  std::size_t wanted = std::min(byte, text.size());
  while (wanted > 0 && wanted < text.size() && isContinuation(text[wanted])) --wanted;
  WrittenValue written(file.bytes(), file.offsetOf(expression.place));
  std::size_t blanks = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') {
      if (i == wanted) break;
      ++blanks;
      continue;
    }
    written.passBlanks();
    if (!written.moveTo(text[i])) return expression.place;
    if (i == wanted) return file.placeOf(written.offset());
    written.pass();
    blanks = 0;
  }
  written.passBlanks(blanks);
  return file.placeOf(written.offset());
}

}  // namespace tavrel::authoring
